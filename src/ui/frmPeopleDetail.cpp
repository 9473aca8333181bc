#include "ui/frmPeopleDetail.h"

#include "ui_frmPeopleDetail.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <array>
#include <vector>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/UsageLists.h"

namespace tb {

frmPeopleDetail::frmPeopleDetail(clResults& ResultsDb, int SelectedId, bool AddingOwner,
                                 QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmPeopleDetail>()),
      ResultsDb(ResultsDb),
      AddingOwner(AddingOwner) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "People");
    // Enter in the list searches by the typed start of the family name; the list offers no
    // completion of its own, so the typed text is what the search sees.
    ui->SelPerson->setCompleter(nullptr);
    ui->SelPerson->installEventFilter(this);
    ui->SelPerson->lineEdit()->installEventFilter(this);

    connect(ui->SelPerson, &QComboBox::currentIndexChanged, this, [this] { PersonChosen(); });
    for (QLineEdit* field :
         {ui->tTitle, ui->tForename, ui->tSurname, ui->tAddr1, ui->tAddr2, ui->tCity, ui->tPostcode,
          ui->tCountry, ui->tDay, ui->tEvening, ui->tMobile, ui->tFax, ui->tEmail})
        connect(field, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    connect(ui->cMember, &QCheckBox::clicked, this, [this] { SetChanged(true); });
    connect(ui->cmdAdd, &QPushButton::clicked, this,
            [this] { RunTrapped("PeopleDetail.cmdAdd", [this] { return AddPerson(); }); });
    connect(ui->cmdOK, &QPushButton::clicked, this, [this] { SavePerson(); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmPeopleDetail::reject);
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("PeopleDetail.cmdRemove", [this] { return RemovePerson(); }); });
    connect(ui->ListSeries, &QPushButton::clicked, this, [this] {
        RunTrapped("PeopleDetail.ListSeries", [this] { return ListSeriesEntered(); });
    });
    connect(ui->ListBoats, &QPushButton::clicked, this,
            [this] { RunTrapped("PeopleDetail.ListBoats", [this] { return ListBoatsOwned(); }); });

    ListPeople(0);
    if (SelectedId == -1)
        RunTrapped("PeopleDetail.Load", [this] { return AddPerson(); });
}

frmPeopleDetail::~frmPeopleDetail() = default;

bool frmPeopleDetail::eventFilter(QObject* watched, QEvent* e) {
    const bool inList = watched == ui->SelPerson || watched == ui->SelPerson->lineEdit();
    if (inList && e->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            RunTrapped("PeopleDetail.SearchPerson", [this] { return SearchPerson(); });
            return true;
        }
    }
    if (watched == ui->SelPerson && e->type() == QEvent::FocusOut)
        ui->lInfo->clear();
    return QDialog::eventFilter(watched, e);
}

// Every way of closing offers to save; a save that fails keeps the window open.
void frmPeopleDetail::reject() {
    if (AskSave().empty())
        QDialog::reject();
}

void frmPeopleDetail::SetChanged(bool Flag) {
    Changed = Flag;
    ui->cmdOK->setEnabled(Flag);
    ui->cmdAdd->setEnabled(!Flag);
}

std::string frmPeopleDetail::ListPeople(int SelectId) {
    const std::string Msg = Trap("PeopleDetail.ListPeople", [&] {
        RowSet people;
        const std::string Msg = ResultsDb.GetPeople(people);
        bool chosen = false;
        {
            const QSignalBlocker block(ui->SelPerson);
            ui->SelPerson->clear();
            int select = -1;
            for (std::size_t row = 0; Msg.empty() && row < people.Rows(); ++row) {
                const int id = static_cast<int>(people(clResults::PeopleCol::Id, row).AsInt());
                ui->SelPerson->addItem(FieldText(people(clResults::PeopleCol::Person, row)), id);
                if (id == SelectId || (row == 0 && SelectId <= 0))
                    select = static_cast<int>(row);
            }
            ui->SelPerson->setCurrentIndex(select);
            chosen = select >= 0;
        }
        if (chosen)
            PersonChosen();
        return Msg;
    });
    ShowMessage(Msg);
    return Msg;
}

// The selection handling of the list: offer to save the person shown until now, then show the
// chosen one (even when saving refilled the list).
void frmPeopleDetail::PersonChosen() {
    ui->lInfo->clear();
    const int chosen = ChosenId(ui->SelPerson);
    AskSave();
    ChooseById(ui->SelPerson, chosen);
    PersonId = chosen;
    ShowDetails();
}

std::string frmPeopleDetail::ShowDetails() {
    const std::string Msg = Trap("PeopleDetail.ShowDetails", [this] {
        const int id = ChosenId(ui->SelPerson);
        RowSet detail(clResults::PersonDetailCol::Count, 1);
        const std::string Msg = id != 0 ? ResultsDb.GetPersonDetails(id, detail) : std::string();
        if (Msg.empty()) {
            const std::array<QLineEdit*, 12> fields = {
                ui->tTitle,    ui->tForename, ui->tSurname, ui->tAddr1, ui->tAddr2, ui->tCity,
                ui->tPostcode, ui->tCountry,  ui->tEvening, ui->tFax,   ui->tDay,   ui->tMobile};
            for (std::size_t column = 0; column < fields.size(); ++column)
                fields[column]->setText(FieldText(detail(column, 0)));
            ui->cMember->setChecked(detail(clResults::PersonDetailCol::ClubMember, 0).AsBool());
            ui->tEmail->setText(FieldText(detail(clResults::PersonDetailCol::EmailAddress, 0)));
        }
        SetChanged(false);
        return Msg;
    });
    ShowMessage(Msg);
    return Msg;
}

std::string frmPeopleDetail::SavePerson() {
    std::string Msg = Trap("PeopleDetail.SavePerson", [this] {
        ui->tForename->setText(ui->tForename->text().trimmed());
        ui->tSurname->setText(ui->tSurname->text().trimmed());
        const std::string forename = S(ui->tForename->text());
        const std::string surname = S(ui->tSurname->text());
        if (forename.empty()) {
            ui->tForename->setFocus();
            return std::string("E-Please specify the forename of the person");
        }
        if (surname.empty()) {
            ui->tSurname->setFocus();
            return std::string("E-Please specify the surname of the person");
        }
        if (PersonId == 0) {
            RowSet found;
            if (ResultsDb.FindName(forename, surname, found).empty() && !found.IsEmpty() &&
                found(clResults::FoundCol::Id, 0).AsInt() > 0 &&
                !AskYesNo("A person with this name already exists. Continue to save the "
                          "details?"))
                return std::string();
        }
        const auto field = [](const QLineEdit* edit) { return S(edit->text().trimmed()); };
        int id = PersonId;
        std::string Msg = ResultsDb.PutPersonalDetails(
            id, field(ui->tTitle), forename, surname, field(ui->tAddr1), field(ui->tAddr2),
            field(ui->tCity), field(ui->tPostcode), field(ui->tCountry), field(ui->tEvening),
            field(ui->tFax), field(ui->tDay), field(ui->tMobile), ui->cMember->isChecked(),
            field(ui->tEmail));
        if (!Msg.empty())
            return Msg;
        PersonId = id;
        ui->SelPerson->setEnabled(true);
        ui->SelPerson->setFocus();
        SetChanged(false);
        SavedId = PersonId;
        if (AddingOwner) {
            accept();
            return Msg;
        }
        // The listing shows its own message; it clears the status line, so the line follows it.
        ListPeople(PersonId);
        ui->lInfo->setText("Details of person saved");
        return Msg;
    });
    ShowMessage(Msg);
    return Msg;
}

std::string frmPeopleDetail::AskSave() {
    if (!Changed)
        return {};
    std::string Msg;
    if (AskYesNo("Do you want to save the changes?"))
        Msg = SavePerson();
    SetChanged(false);
    return Msg;
}

std::string frmPeopleDetail::SearchPerson() {
    AskSave();
    ui->lInfo->clear();
    const QString typed = ui->SelPerson->currentText();
    if (!HasChosenItem(ui->SelPerson) && !typed.isEmpty()) {
        RowSet found;
        const std::string Msg = ResultsDb.FindPerson(S(typed), found);
        if (!Msg.empty())
            return Msg;
        const int id =
            found.IsEmpty() ? 0 : static_cast<int>(found(clResults::FoundCol::Id, 0).AsInt());
        if (id == 0) {
            ui->lInfo->setText("The name starting with " + typed + " was not found");
            Beep();
            ui->SelPerson->setFocus();
            return {};
        }
        ChooseById(ui->SelPerson, 0);
        ChooseById(ui->SelPerson, id);
        PersonId = id;
    } else if (ui->SelPerson->currentIndex() >= 0) {
        PersonId = ChosenId(ui->SelPerson);
    }
    ShowDetails();
    return {};
}

std::string frmPeopleDetail::AddPerson() {
    {
        const QSignalBlocker block(ui->SelPerson);
        ui->SelPerson->setCurrentIndex(-1);
    }
    PersonChosen();
    ui->SelPerson->setEnabled(false);
    ui->tTitle->setFocus();
    return {};
}

std::string frmPeopleDetail::RemovePerson() {
    const int position = ui->SelPerson->currentIndex();
    if (position < 0)
        return "I-No person is selected";
    const int id = ChosenId(ui->SelPerson);
    const std::string person = S(ui->SelPerson->itemText(position));
    RowSet series;
    RowSet boats;
    std::string Msg = ResultsDb.GetSeriesForPerson(id, series);
    if (Msg.empty())
        Msg = ResultsDb.GetBoatsOwned(id, boats);
    if (!Msg.empty())
        return Msg;
    if (!series.IsEmpty() || !boats.IsEmpty()) {
        std::string refusal = person;
        if (!series.IsEmpty())
            refusal += " is entered in " + std::to_string(series.Rows()) + " series";
        if (!series.IsEmpty() && !boats.IsEmpty())
            refusal += " and";
        if (!boats.IsEmpty())
            refusal += " is a boat owner";
        return RemovalRefused(refusal + ".");
    }
    if (!AskYesNo("Permanently delete " + person + "?"))
        return {};
    Msg = ResultsDb.RemovePerson(id);
    if (Msg.empty()) {
        // The person is gone: their unsaved edits with them.
        SetChanged(false);
        RemoveAndChooseNeighbour(ui->SelPerson, position);
        PersonChosen();
    }
    return Msg;
}

std::string frmPeopleDetail::ListSeriesEntered() {
    if (ui->SelPerson->currentIndex() < 0)
        return "I-No person is selected";
    RowSet series;
    const std::string Msg = ResultsDb.GetSeriesForPerson(ChosenId(ui->SelPerson), series);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Series entered by " + S(ui->SelPerson->itemText(ui->SelPerson->currentIndex())),
              "No entries found", series, [](const RowSet& rows, std::size_t row) {
                  return Format(rows(clResults::SeriesEnteredCol::FirstRaceDate, row), "yyyy") +
                         " " + ToText(rows(clResults::SeriesEnteredCol::Title, row));
              });
    return Msg;
}

std::string frmPeopleDetail::ListBoatsOwned() {
    if (ui->SelPerson->currentIndex() < 0)
        return "I-No person is selected";
    RowSet boats;
    const std::string Msg = ResultsDb.GetBoatsOwned(ChosenId(ui->SelPerson), boats);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Boats owned by " + S(ui->SelPerson->itemText(ui->SelPerson->currentIndex())),
              "No boats found", boats, BoatWithSailNo);
    return Msg;
}

}  // namespace tb
