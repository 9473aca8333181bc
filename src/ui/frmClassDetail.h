#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmClassDetail;
}

namespace tb {

class frmSeries;

// One class (or class split) of the series shown in the series window: a new one when the
// series window's EditId is 0. Saving refreshes the series window's class list.
class frmClassDetail : public QDialog {
    Q_OBJECT
public:
    explicit frmClassDetail(frmSeries& seriesWindow);
    ~frmClassDetail() override;

private:
    void Load();
    void OK();

    std::unique_ptr<Ui::frmClassDetail> ui;
    frmSeries& SeriesWindow;
    int ClassId = 0;
};

}  // namespace tb
