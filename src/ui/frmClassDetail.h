#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmClassDetail;
}

namespace tb {

class clResults;

// One class (or class split) of a series: a new one when ClassId is 0. After exec() the opener
// refreshes its class list when Saved().
class frmClassDetail : public QDialog {
    Q_OBJECT
public:
    frmClassDetail(clResults& ResultsDb, int SeriesId, int ClassId, QWidget* parent = nullptr);
    ~frmClassDetail() override;

    bool Saved() const { return result() == QDialog::Accepted; }

private:
    void Load();
    void OK();

    std::unique_ptr<Ui::frmClassDetail> ui;
    clResults& ResultsDb;
    int SeriesId;
    int ClassId;
};

}  // namespace tb
