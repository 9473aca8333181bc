#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmRaceDetail;
}

namespace tb {

class clResults;

// One scheduled race of a series: a new one when RaceId is 0. After exec() the opener refreshes
// its schedule when Saved().
class frmRaceDetail : public QDialog {
    Q_OBJECT
public:
    frmRaceDetail(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent = nullptr);
    ~frmRaceDetail() override;

    bool Saved() const { return result() == QDialog::Accepted; }

private:
    void Load();
    void OK();

    std::unique_ptr<Ui::frmRaceDetail> ui;
    clResults& ResultsDb;
    int SeriesId;
    int RaceId;
};

}  // namespace tb
