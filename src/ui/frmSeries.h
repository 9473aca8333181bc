#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

class QComboBox;
class QListWidget;

namespace Ui {
class frmSeries;
}

namespace tb {

class clResults;

// The series editor: one series' titles and scoring, with its race schedule and classes. Races
// and classes are edited in their own small windows, which read SeriesId and EditId from here
// and refresh the lists through ShowSchedule and ShowClassSplits.
class frmSeries : public QDialog {
    Q_OBJECT
public:
    frmSeries(clResults& resultsDb, int seriesId, QWidget* parent = nullptr);
    ~frmSeries() override;

    int SeriesId() const { return SeriesId_; }
    // The race or class the detail window is to edit; 0 for a new one.
    int EditId() const { return EditId_; }
    clResults& ResultsDb() { return ResultsDb_; }

    std::string ShowSchedule();
    std::string ShowClassSplits();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // Escape is Cancel.
    void reject() override;

private:
    void ShowDetails();
    void SetChanged(bool changed);
    void FillSystemList(QComboBox* list, bool scoring, int selectedId, std::string& Msg);
    // Yes or No when there were changes to ask about; nothing otherwise.
    std::optional<bool> AskToSave();

    void OK();
    void Cancel();
    void AddSeries();
    void RemoveSeries();
    void AddRace();
    void EditRace();
    void RemoveRace();
    void AddClass();
    void EditClass();
    void RemoveClass();
    // Checks shared by editing and removing a highlighted line; empty when both pass.
    std::string CheckHighlighted(QListWidget* list, const std::string& noneSelected) const;

    std::unique_ptr<Ui::frmSeries> ui;
    clResults& ResultsDb_;
    int SeriesId_ = 0;
    int EditId_ = 0;
    int Scoring_ = 0;
    int Discards_ = 0;
    bool Changed_ = false;
    bool filling_ = false;
};

}  // namespace tb
