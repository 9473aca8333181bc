#pragma once

#include <QDialog>
#include <memory>

#include "data/RowSet.h"

class QComboBox;

namespace Ui {
class frmSelectBoat;
}

namespace tb {

// Lets the officer pick one of several entered boats that match a search; the chosen entrant
// becomes the selection of the results window's entrant list.
class frmSelectBoat : public QDialog {
    Q_OBJECT
public:
    // Matches: Entrant.Id, BoatName, FullSailNo, ClassName, one row per boat found.
    frmSelectBoat(const RowSet& Matches, QComboBox& SelEntry, QWidget* parent = nullptr);
    ~frmSelectBoat() override;

protected:
    bool event(QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void FillList(const RowSet& Matches);
    void Confirm();

    std::unique_ptr<Ui::frmSelectBoat> ui;
    QComboBox& SelEntry;
};

}  // namespace tb
