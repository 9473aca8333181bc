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
// and classes are edited in their own small windows; the lists are read again when one saves.
class frmSeries : public QDialog {
    Q_OBJECT
public:
    frmSeries(clResults& ResultsDb, int SeriesId, QWidget* parent = nullptr);
    ~frmSeries() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // Escape is Cancel.
    void reject() override;

private:
    void ShowDetails();
    std::string ShowSchedule();
    std::string ShowClassSplits();
    void SetChanged(bool changed);
    void FillSystemList(QComboBox* list, bool scoring, int selectedId, std::string& Msg);
    // Yes or No when there were changes to ask about; nothing otherwise.
    std::optional<bool> AskToSave();

    void OK();
    void Cancel();
    void AddSeries();
    void RemoveSeries();
    void OpenRace(int RaceId);
    void OpenClass(int ClassId);
    void AddRace();
    void EditRace();
    void RemoveRace();
    void AddClass();
    void EditClass();
    void RemoveClass();
    // Checks shared by editing and removing a highlighted line; empty when both pass.
    std::string CheckHighlighted(QListWidget* list, const std::string& noneSelected) const;

    std::unique_ptr<Ui::frmSeries> ui;
    clResults& ResultsDb;
    int SeriesId = 0;
    int ScoringId = 0;
    int DiscardId = 0;
    bool Changed = false;
    bool Filling = false;
};

}  // namespace tb
