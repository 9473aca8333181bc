#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

namespace Ui {
class frmPeopleDetail;
}

namespace tb {

class clResults;

// The people editor: looks up, adds, changes and removes persons of the register. Opened by the
// boat editor to add an owner, it hands the saved person back and closes.
class frmPeopleDetail : public QDialog {
    Q_OBJECT
public:
    using OwnerAdded = std::function<void(int PersonId)>;

    // SelectedId -1 starts by adding a new person. With an OwnerAdded handler (the boat editor's)
    // the window closes once a person is saved and hands the person to the handler.
    frmPeopleDetail(clResults& ResultsDb, int SelectedId, OwnerAdded ownerAdded = {},
                    QWidget* parent = nullptr);
    ~frmPeopleDetail() override;

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
    OwnerAdded ownerAdded;
    int PersonId = 0;
    bool Changed = false;
};

}  // namespace tb
