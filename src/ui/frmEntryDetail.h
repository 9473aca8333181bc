#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "data/RowSet.h"

namespace Ui {
class frmEntryDetail;
}

namespace tb {

class clResults;

// The entry editor: for one boat at a time, who entered it in the series, its class, entry date,
// entrant type, name on results and the races it is entered in with its handicap for each.
class frmEntryDetail : public QDialog {
    Q_OBJECT
public:
    frmEntryDetail(clResults& ResultsDb, int SeriesId, QWidget* parent = nullptr);
    ~frmEntryDetail() override;

    // The boat editor calls this after saving so that a new or changed boat, owner or handicap
    // shows at once: lists all boats and selects this one.
    void ShowNewBoat(int BoatId);
    std::string ShowPeople(int PersonId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // Escape is Cancel.
    void reject() override;

private:
    std::string ShowEntries(int BoatId);
    std::string ShowClasses(int ClassId);
    std::string ShowRaces(const RowSet& RaceRows);
    void BoatSelected();
    void EntrantTypeChosen(int type);
    void ClearEntrantType();
    int ChosenEntrantType() const;
    void SetChanged(bool changed);
    void AskToSave();

    void OK();
    void Cancel();
    void RemoveEntry();
    void EditBoat();
    void AddBoat();
    void AssignByClassSplit();
    // Opens the boat editor on SelectedId; the one place that knows which window that is.
    void OpenBoatEditor();

    std::unique_ptr<Ui::frmEntryDetail> ui;
    clResults& ResultsDb;
    int SeriesId = 0;
    int BoatId = -1;
    RowSet Races;  // the series' races: Id, name, date, in sub-series
    bool Changed = false;
    bool Filling = false;
};

}  // namespace tb
