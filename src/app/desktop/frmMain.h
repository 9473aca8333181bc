#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

namespace Ui {
class frmMain;
}

namespace tb {

class clResults;
class ReportViewer;

// The first window: owns the program's one clResults, holds the working context (year, series,
// race) and opens every other window. Each time it becomes active again it refills its lists
// from the database and the remembered context.
class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(ReportViewer& viewer, QWidget* parent = nullptr);
    ~frmMain() override;

    // The series and race the other windows work on; 0 when none is selected.
    int CurrentSeriesId() const;
    int CurrentRaceId() const;

    // Refills the lists and the title; runs on first display and after each window closes.
    void Activate();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    std::string GetYear();
    std::string GetSeries();
    std::string GetSchedule();
    std::string CheckRaceSelection();

    std::string SelYear_Click();
    std::string SelSeries_Click();
    std::string SelRace_Click();

    std::string cmdSeries_Click();
    std::string cmdEntries_Click();
    std::string cmdResults_Click();
    std::string cmdReports_Click();
    std::string cmdBoats_Click();
    std::string cmdPeople_Click();
    std::string cmdScoring_Click();
    std::string cmdSettings_Click();
    std::string cmdExchange_Click();

    // One method per window that a button opens, each modal.
    void OpenSeriesEditor();
    void OpenEntryEditor();
    void OpenResults();
    void OpenReports();
    void OpenBoatEditor();
    void OpenPeopleEditor();
    void OpenScoringEditor();
    void OpenOptions();
    void OpenImportExport();

    std::unique_ptr<Ui::frmMain> ui;
    std::unique_ptr<clResults> ResultsDb;
    ReportViewer& Viewer;
    bool ActivatedOnce = false;
};

}  // namespace tb
