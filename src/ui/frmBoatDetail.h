#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class frmBoatDetail;
}

namespace tb {

class clResults;

// The boat editor: boats with their model, owner and handicaps. It opens the model window, the
// handicap window and the people editor (to add an owner), which hand their new records back.
class frmBoatDetail : public QDialog {
    Q_OBJECT
public:
    // Told the Id of every boat saved here and of every boat whose handicaps change.
    using BoatSaved = std::function<void(int BoatId)>;

    // SelectedId: the boat to show first; -1 shows the first boat, or, when a BoatSaved handler
    // is given (the entry editor opens the editor so), starts adding a new boat.
    frmBoatDetail(clResults& ResultsDb, int SelectedId, BoatSaved boatSaved = {},
                  QWidget* parent = nullptr);
    ~frmBoatDetail() override;

    // Refill the lists and select the given record; the model window and the people editor call
    // them after they store.
    std::string ShowModels(int SelectId);
    std::string ShowPeople(int SelectId);
    std::string ShowHandicaps();

    // Every way of closing offers to save the edits first.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    std::string Load(int SelectedId);
    std::string ListBoats(int SelectId);
    std::string ShowBoat();
    std::string SaveBoat();
    std::string AskSave();
    void BoatChosen();
    void UpdateChangeState();

    std::string AddBoat();
    std::string RemoveBoat();
    std::string EditModel(int ModelId);
    std::string RemoveModel();
    std::string AddOwner();
    std::string OpenHandicap(bool needsHandicap, int sign);
    std::string ListBoatsOfModel();
    std::string ListSeriesEntered();

    std::unique_ptr<Ui::frmBoatDetail> ui;
    clResults& ResultsDb;
    BoatSaved boatSaved;
    int BoatId = 0;
    bool Changed = false;
    QString shownName;
    QString shownSailNo;
    int shownModel = 0;
    int shownOwner = 0;
};

}  // namespace tb
