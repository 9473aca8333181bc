#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class frmPeopleDetail;
}

namespace tb {

class clResults;

// The people editor: looks up, adds, changes and removes persons of the register. Opened by the
// boat editor to add an owner, it closes once the person is saved, and the boat editor reads
// SavedPersonId() after exec().
class frmPeopleDetail : public QDialog {
    Q_OBJECT
public:
    // SelectedId -1 starts by adding a new person. AddingOwner (the boat editor's way of opening
    // it) closes the window once a person is saved.
    frmPeopleDetail(clResults& ResultsDb, int SelectedId, bool AddingOwner = false,
                    QWidget* parent = nullptr);
    ~frmPeopleDetail() override;

    // The person last saved, 0 when none was.
    int SavedPersonId() const { return SavedId; }

    // Every way of closing offers to save the edits first.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void SetChanged(bool Flag);
    std::string ListPeople(int SelectId);
    std::string ShowDetails();
    std::string SavePerson();
    std::string AskSave();
    std::string SearchPerson();
    void PersonChosen();

    std::string AddPerson();
    std::string RemovePerson();
    std::string ListSeriesEntered();
    std::string ListBoatsOwned();

    std::unique_ptr<Ui::frmPeopleDetail> ui;
    clResults& ResultsDb;
    bool AddingOwner;
    int SavedId = 0;
    int PersonId = 0;
    bool Changed = false;
};

}  // namespace tb
