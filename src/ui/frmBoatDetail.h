#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <string>

namespace Ui {
class frmBoatDetail;
}

namespace tb {

class clResults;

// The boat editor: boats with their model, owner and handicaps. It opens the model window, the
// handicap window and the people editor (to add an owner) and lists what they saved after they
// close.
class frmBoatDetail : public QDialog {
    Q_OBJECT
public:
    // SelectedId: the boat to show first; -1 shows the first boat, or, ForEntry (the entry
    // editor opens the editor so), starts adding a new boat.
    frmBoatDetail(clResults& ResultsDb, int SelectedId, bool ForEntry = false,
                  QWidget* parent = nullptr);
    ~frmBoatDetail() override;

    // The boat last saved here or whose handicaps last changed, 0 when none: the entry editor
    // shows it after exec().
    int SavedBoatId() const { return SavedId; }

    // Every way of closing offers to save the edits first.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    std::string Load(int SelectedId);
    // Refill the lists and select the given record.
    std::string ShowModels(int SelectId);
    std::string ShowPeople(int SelectId);
    std::string ShowHandicaps();
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
    bool ForEntry;
    int BoatId = 0;
    int SavedId = 0;
    bool Changed = false;
    QString ShownName;
    QString ShownSailNo;
    int ShownModel = 0;
    int ShownOwner = 0;
};

}  // namespace tb
