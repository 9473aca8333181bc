#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "ui_frmPeopleDetail.h"

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

protected:
    bool event(QEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;
    void reject() override;

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

    Ui::frmPeopleDetail ui;
    clResults& ResultsDb;
    OwnerAdded ownerAdded;
    int PersonId = 0;
    bool Changed = false;
};

}  // namespace tb
