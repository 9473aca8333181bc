#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class frmHandicapDetail;
}

namespace tb {

class clResults;

// The small window for one handicap of a boat. Request 0 adds a handicap, an Id edits that
// handicap, and a negated Id revises it: a new value from a new start, the old one ending the day
// before. The boat editor hears of every saved handicap.
class frmHandicapDetail : public QDialog {
    Q_OBJECT
public:
    using HandicapSaved = std::function<void()>;
    frmHandicapDetail(clResults& ResultsDb, int BoatId, int Request, HandicapSaved handicapSaved,
                      QWidget* parent = nullptr);
    ~frmHandicapDetail() override;

protected:
private:
    std::string Load();
    std::string SaveHandicap();

    std::unique_ptr<Ui::frmHandicapDetail> ui;
    clResults& ResultsDb;
    int BoatId;
    int Request;
    HandicapSaved handicapSaved;
};

}  // namespace tb
