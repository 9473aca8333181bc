#pragma once

#include <QDialog>
#include <memory>

#include "data/RowSet.h"

namespace Ui {
class frmSelectBoat;
}

namespace tb {

// Lets the officer pick one of several entered boats that match a search; after exec() the
// opener reads the chosen entrant.
class frmSelectBoat : public QDialog {
    Q_OBJECT
public:
    // Matches: Entrant.Id, BoatName, FullSailNo, ClassName, one row per boat found.
    explicit frmSelectBoat(const RowSet& Matches, QWidget* parent = nullptr);
    ~frmSelectBoat() override;

    // The Entrant.Id picked, 0 when the window was closed without a choice.
    int ChosenEntrant() const { return EntrantId; }

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void FillList(const RowSet& Matches);
    void Confirm();

    std::unique_ptr<Ui::frmSelectBoat> ui;
    int EntrantId = 0;
};

}  // namespace tb
