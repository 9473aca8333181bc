#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "data/RowSet.h"

namespace Ui {
class frmStartTimes;
}

namespace tb {

class clResults;

// The start time of each class of a race, with the texts printed above and below the class's
// results; one class at a time, stepping on after each save and back to the first after the last.
class frmStartTimes : public QDialog {
    Q_OBJECT
public:
    frmStartTimes(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent = nullptr);
    ~frmStartTimes() override;

    // A typed start not yet saved is offered for saving first; the window stays open when it
    // could not be saved.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void ShowHeadings();
    void ReadStarts();
    void ShowClass();
    void Save();
    void Copy();

    std::unique_ptr<Ui::frmStartTimes> ui;
    clResults& ResultsDb;
    int SeriesId;
    int RaceId;
    RowSet Starts;
    std::size_t ClassIndex = 0;
    QString LastComment;
    QString LastFootnote;
    bool Changed = false;
};

}  // namespace tb
