#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <optional>

#include "data/RowSet.h"

class QButtonGroup;
class QLineEdit;

namespace Ui {
class frmResults;
}

namespace tb {

class clResults;

// Boat-by-boat entry of a race's finishes: the boat is found by name or sail number, the finish
// typed as six digits, status, penalties and notes added, and each result saved on its own.
class frmResults : public QDialog {
    Q_OBJECT
public:
    frmResults(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent = nullptr);
    ~frmResults() override;

    // Asks about unsaved changes first; stays open when they could not be saved.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    void FillStatus();
    void FillEntries();
    void CheckStartTimes();
    void OpenStartTimes();

    void ChooseEntry(int index);
    void EntryEnter();
    void EntryPicked(int index);
    void EnableResultFields(bool enabled);
    void ShowResult();

    void TimeEntered();
    void TimeChanged(const QString& text);
    void TimeEnter();
    void StatusEnter();
    void StatusChosen(int index);
    void FinishChosen(int option);
    void SetFinishOption(int option);

    void SetChanged(bool changed);
    bool OfferToSave();
    void TrappedSave();
    bool Save();
    bool Refuse(const QString& message, QWidget* focus);

    std::unique_ptr<Ui::frmResults> ui;
    QButtonGroup* rFinish;
    clResults& ResultsDb;
    int SeriesId;
    int RaceId;

    int EntrantId = 0;
    RowSet Matches;
    Value StartTime;
    std::optional<DateTime> LastFinish;
    QString PrefilledHour;
    bool Changed = false;
    bool Loading = false;
};

}  // namespace tb
