#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class frmHandicapDetail;
}

namespace tb {

class clResults;

// The small window for one handicap of a boat. Request 0 adds a handicap, an Id edits that
// handicap, and a negated Id revises it: a new value from a new start, the old one ending the day
// before. After exec() the boat editor shows the boat's handicaps again when Saved().
class frmHandicapDetail : public QDialog {
    Q_OBJECT
public:
    frmHandicapDetail(clResults& ResultsDb, int BoatId, int Request, QWidget* parent = nullptr);
    ~frmHandicapDetail() override;

    bool Saved() const { return result() == QDialog::Accepted; }

protected:
private:
    std::string Load();
    std::string SaveHandicap();

    std::unique_ptr<Ui::frmHandicapDetail> ui;
    clResults& ResultsDb;
    int BoatId;
    int Request;
};

}  // namespace tb
