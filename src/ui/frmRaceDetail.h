#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmRaceDetail;
}

namespace tb {

class frmSeries;

// One scheduled race of the series shown in the series window: a new one when the series
// window's EditId is 0. Saving refreshes the series window's race list.
class frmRaceDetail : public QDialog {
    Q_OBJECT
public:
    explicit frmRaceDetail(frmSeries& seriesWindow);
    ~frmRaceDetail() override;

private:
    void Load();
    void OK();

    std::unique_ptr<Ui::frmRaceDetail> ui;
    frmSeries& SeriesWindow;
    int RaceId = 0;
};

}  // namespace tb
