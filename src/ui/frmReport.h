#pragma once

#include <QDialog>
#include <array>
#include <memory>

namespace Ui {
class frmReport;
}
class QRadioButton;

namespace tb {

class clResults;
class ReportViewer;

// The report window: the officer picks a report kind and one of its actions for the current
// race; OK writes the report and opens it, and the window stays open for the next one.
class frmReport : public QDialog {
    Q_OBJECT
public:
    frmReport(clResults& ResultsDb, int SeriesId, int RaceId, ReportViewer& Viewer,
              QWidget* parent = nullptr);
    ~frmReport() override;

protected:
private:
    std::string Load();
    void rReport_Click(int kind);
    std::string cmdOK_Click();
    std::string MakeReport();
    int SelectedKind() const;

    std::unique_ptr<Ui::frmReport> ui;
    std::array<QRadioButton*, 6> rReport{};
    clResults& ResultsDb;
    ReportViewer& Viewer;
    int RaceId;
    int SeriesId;
};

}  // namespace tb
