#include "ui/frmEntryDetail.h"

#include <QFontDatabase>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <vector>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/ListLines.h"
#include "ui/frmBoatDetail.h"
#include "ui_frmEntryDetail.h"

namespace tb {

namespace {

// The boat list shows either the series' entries or every boat, read by the same columns.
static_assert(std::size_t{clResults::EntriesCol::BoatId} == clResults::BoatsCol::Id &&
              std::size_t{clResults::EntriesCol::BoatName} == clResults::BoatsCol::BoatName &&
              std::size_t{clResults::EntriesCol::FullSailNo} == clResults::BoatsCol::FullSailNo);

constexpr int kIndividualRaces = 2;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

// Selects the item whose data is id, or nothing.
void SelectById(QComboBox* list, int id) {
    list->setCurrentIndex(list->findData(id));
}

}  // namespace

frmEntryDetail::frmEntryDetail(clResults& ResultsDb, int SeriesId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmEntryDetail>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Entries");
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QWidget* w : std::initializer_list<QWidget*>{ui->SelEntry, ui->SelEntrant, ui->SelClass,
                                                      ui->listSchedule, ui->lRaceColumns})
        w->setFont(fixed);
    ui->lRaceColumns->setText(EntryRaceColumnsHeader());
    AlignHeading(ui->lRaceColumns, ui->listSchedule, true);
    const QFontMetrics metrics(fixed);
    ui->listSchedule->setMinimumWidth(metrics.horizontalAdvance(QString(52, QChar('M'))));
    ui->SelEntry->setMinimumWidth(metrics.horizontalAdvance(QString(48, QChar('M'))));
    QFont title = ui->lSeries->font();
    title.setBold(true);
    ui->lSeries->setFont(title);

    for (QRadioButton* show : {ui->RShow_0, ui->RShow_2})
        connect(show, &QRadioButton::clicked, this,
                [this] { RunTrapped("EntryDetail.RShow", [this] { return ShowEntries(0); }); });
    connect(ui->SelEntry, &QComboBox::currentIndexChanged, this, [this] {
        if (!Filling)
            RunTrapped("EntryDetail.SelEntry", [this] { BoatSelected(); });
    });
    for (QComboBox* list : {ui->SelEntrant, ui->SelClass}) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] {
            if (!Filling)
                SetChanged(true);
        });
    }
    connect(ui->tDisplay, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    connect(ui->tEntryDate, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    connect(ui->listSchedule, &QListWidget::itemChanged, this, [this] {
        if (!Filling)
            SetChanged(true);
    });
    const QRadioButton* types[] = {ui->rEnter_0, ui->rEnter_1, ui->rEnter_2, ui->rEnter_3};
    for (int k = 0; k < 4; ++k)
        connect(types[k], &QRadioButton::clicked, this, [this, k] {
            RunTrapped("EntryDetail.rEnter", [this, k] { EntrantTypeChosen(k); });
        });
    ui->SelEntry->installEventFilter(this);

    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.cmdOK", [this] { OK(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.cmdCancel", [this] { Cancel(); }); });
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.cmdRemove", [this] { RemoveEntry(); }); });
    connect(ui->cmdEdit, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.cmdEdit", [this] { EditBoat(); }); });
    connect(ui->cmdAdd, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.cmdAdd", [this] { AddBoat(); }); });
    connect(ui->Command1, &QPushButton::clicked, this,
            [this] { RunTrapped("EntryDetail.Command1", [this] { AssignByClassSplit(); }); });

    RowSet series;
    std::string Msg = ResultsDb.GetSeriesDetails(SeriesId, series);
    if (Msg.empty())
        ui->lSeries->setText(Text(series(clResults::SeriesDetailCol::Title, 0).ToText()));
    ui->RShow_0->setChecked(true);
    if (Msg.empty())
        Msg = ShowEntries(0);
    SetChanged(false);
    ShowMessage(Msg);
}

frmEntryDetail::~frmEntryDetail() = default;

bool frmEntryDetail::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->SelEntry && event->type() == QEvent::FocusOut)
        ui->lInfo->clear();
    return QDialog::eventFilter(watched, event);
}

void frmEntryDetail::SetChanged(bool changed) {
    Changed = changed;
    ui->cmdOK->setEnabled(changed);
    ui->cmdAdd->setEnabled(!changed);
}

std::string frmEntryDetail::ShowEntries(int BoatId) {
    const std::string Msg = Trap("EntryDetail.ShowEntries", [this, BoatId] {
        int selected = -1;
        Filling = true;
        ui->SelEntry->clear();
        RowSet rows;
        std::string Msg = ui->RShow_0->isChecked() ? ResultsDb.GetEntries(SeriesId, rows)
                                                   : ResultsDb.GetBoats(rows);
        for (std::size_t r = 0; Msg.empty() && !rows.IsEmpty() && r < rows.Rows(); ++r) {
            const int id = static_cast<int>(rows(clResults::EntriesCol::BoatId, r).AsInt());
            ui->SelEntry->addItem(BoatLine(rows(clResults::EntriesCol::BoatName, r).ToText(),
                                           rows(clResults::EntriesCol::FullSailNo, r).ToText()),
                                  id);
            if (id == BoatId || (r == 0 && BoatId <= 0))
                selected = static_cast<int>(r);
        }
        ui->SelEntry->setCurrentIndex(selected);
        Filling = false;
        BoatSelected();
        return Msg;
    });
    Filling = false;
    return Msg;
}

std::string frmEntryDetail::ShowPeople(int PersonId) {
    return Trap("EntryDetail.ShowPeope", [this, PersonId] {
        std::string Msg;
        const QSignalBlocker quiet(ui->SelEntrant);
        if (ui->SelEntrant->count() == 0) {
            RowSet people;
            Msg = ResultsDb.GetPeople(people);
            for (std::size_t r = 0; Msg.empty() && !people.IsEmpty() && r < people.Rows(); ++r) {
                ui->SelEntrant->addItem(
                    Text(people(clResults::PeopleCol::Person, r).ToText()),
                    static_cast<int>(people(clResults::PeopleCol::Id, r).AsInt()));
            }
        }
        ui->SelEntrant->setCurrentIndex(-1);
        if (Msg.empty())
            SelectById(ui->SelEntrant, PersonId);
        return Msg;
    });
}

std::string frmEntryDetail::ShowClasses(int ClassId) {
    const QSignalBlocker quiet(ui->SelClass);
    std::string Msg;
    if (ui->SelClass->count() == 0) {
        RowSet classes;
        Msg = ResultsDb.GetEntryClasses(SeriesId, classes);
        for (std::size_t r = 0; Msg.empty() && !classes.IsEmpty() && r < classes.Rows(); ++r) {
            ui->SelClass->addItem(
                Text(classes(clResults::EntryClassesCol::ClassName, r).ToText()),
                static_cast<int>(classes(clResults::EntryClassesCol::Id, r).AsInt()));
        }
    }
    ui->SelClass->setCurrentIndex(-1);
    if (Msg.empty())
        SelectById(ui->SelClass, ClassId);
    return Msg;
}

std::string frmEntryDetail::ShowRaces(const RowSet& RaceRows) {
    Filling = true;
    ui->listSchedule->clear();
    Races.Clear();
    const std::string Msg = ResultsDb.GetSchedule(Races, SeriesId);
    for (std::size_t r = 0; Msg.empty() && !Races.IsEmpty() && r < Races.Rows(); ++r) {
        const Value& raceId = Races(clResults::ScheduleCol::Id, r);
        QString handicaps;
        bool entered = false;
        for (std::size_t e = 0; !RaceRows.IsEmpty() && e < RaceRows.Rows(); ++e) {
            if (RaceRows(clResults::EntrantRacesCol::Race, e).AsInt() == raceId.AsInt()) {
                handicaps += HandicapText(RaceRows(clResults::EntrantRacesCol::Handicap, e));
                entered = true;
            }
        }
        auto* item = new QListWidgetItem(
            EntryRaceLine(Races(clResults::ScheduleCol::RaceDate, r),
                          Races(clResults::ScheduleCol::InSubSeries, r).AsBool(),
                          Races(clResults::ScheduleCol::RaceName, r).ToText(), handicaps));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(entered ? Qt::Checked : Qt::Unchecked);
        item->setData(Qt::UserRole, static_cast<int>(raceId.AsInt()));
        ui->listSchedule->addItem(item);
    }
    Filling = false;
    return Msg;
}

void frmEntryDetail::BoatSelected() {
    ui->lInfo->clear();
    RowSet RaceRows;
    AskToSave();
    std::string Msg;
    int person = 0;
    int classId = 0;
    std::string date;
    short type = 0;
    std::string name;
    if (ui->SelEntry->currentIndex() >= 0) {
        BoatId = ui->SelEntry->currentData().toInt();
        Msg = ResultsDb.GetEntryDetails(BoatId, SeriesId, person, classId, date, type, name,
                                        RaceRows);
        if (classId != 0) {
            ClearEntrantType();
            if (auto* option = findChild<QRadioButton*>("rEnter_" + QString::number(type)))
                option->setChecked(true);
            ui->tEntryDate->setText(Text(date));
        } else {
            ClearEntrantType();
            ui->tEntryDate->clear();
        }
    } else {
        BoatId = -1;
    }
    ui->tDisplay->setText(Text(name));
    if (Msg.empty())
        Msg = ShowPeople(person);
    if (Msg.empty())
        Msg = ShowClasses(classId);
    if (Msg.empty())
        Msg = ShowRaces(RaceRows);
    SetChanged(false);
    ShowMessage(Msg);
}

void frmEntryDetail::ClearEntrantType() {
    for (QRadioButton* option : {ui->rEnter_0, ui->rEnter_1, ui->rEnter_2, ui->rEnter_3}) {
        option->setAutoExclusive(false);
        option->setChecked(false);
        option->setAutoExclusive(true);
    }
}

int frmEntryDetail::ChosenEntrantType() const {
    const QRadioButton* types[] = {ui->rEnter_0, ui->rEnter_1, ui->rEnter_2, ui->rEnter_3};
    for (int k = 0; k < 4; ++k) {
        if (types[k]->isChecked())
            return k;
    }
    return -1;
}

// A main-series entrant takes every race from the entry date on, a sub-series entrant every
// sub-series race from then on; an entrant in individual races keeps the ticks as they are.
void frmEntryDetail::EntrantTypeChosen(int type) {
    if (ui->tEntryDate->text().isEmpty())
        ui->tEntryDate->setText(Text(FormatDate(Today(), "dd/mm/yyyy")));
    SetChanged(true);
    if (type == kIndividualRaces)
        return;
    const auto entryDate = ParseTypedDate(ui->tEntryDate->text().toStdString());
    if (!entryDate) {
        ShowMessage("E-Please specify a valid entry date");
        ui->tEntryDate->setFocus();
        return;
    }
    for (int i = 0; i < ui->listSchedule->count() && !Races.IsEmpty(); ++i) {
        const bool fromEntryDate =
            DatePart(Races(clResults::ScheduleCol::RaceDate, i).AsDate()) >= DatePart(*entryDate);
        const bool takesRace =
            type == 0 || type == 3 ||
            (type == 1 && Races(clResults::ScheduleCol::InSubSeries, i).AsBool());
        ui->listSchedule->item(i)->setCheckState(fromEntryDate && takesRace ? Qt::Checked
                                                                            : Qt::Unchecked);
    }
}

void frmEntryDetail::OK() {
    std::string Msg;
    // Without a boat there is nothing to enter (the entered-only list may be empty).
    if (BoatId <= 0) {
        Msg = "I-No boat is selected";
    } else if (ui->SelEntrant->currentIndex() < 0) {
        Msg = "E-Please specify the entrant name";
        ui->SelEntrant->setFocus();
    } else if (!IsValidDate(ui->tEntryDate->text().toStdString())) {
        Msg = "E-Please specify a valid entry date";
        ui->tEntryDate->setFocus();
    } else if (ui->SelClass->currentIndex() < 0) {
        Msg = "E-Please specify the class";
        ui->SelClass->setFocus();
    } else if (ChosenEntrantType() < 0) {
        Msg = "E-Please specify whether the boat is entered in the series";
        ui->rEnter_2->setFocus();
    }
    if (Msg.empty()) {
        std::vector<int> entered;
        for (int i = 0; i < ui->listSchedule->count(); ++i) {
            if (ui->listSchedule->item(i)->checkState() == Qt::Checked)
                entered.push_back(ui->listSchedule->item(i)->data(Qt::UserRole).toInt());
        }
        Msg = ResultsDb.PutEntryDetails(
            BoatId, SeriesId, ui->SelEntrant->currentData().toInt(),
            ui->SelClass->currentData().toInt(), ui->tEntryDate->text().toStdString(),
            static_cast<short>(ChosenEntrantType()), ui->tDisplay->text().toStdString(), entered);
        if (Msg.empty()) {
            ui->lInfo->setText("Entry details saved");
            int person = 0;
            int classId = 0;
            std::string date;
            short type = 0;
            std::string name;
            RowSet RaceRows;
            Msg = ResultsDb.GetEntryDetails(BoatId, SeriesId, person, classId, date, type, name,
                                            RaceRows);
            if (Msg.empty())
                Msg = ShowRaces(RaceRows);
            if (Msg.empty()) {
                ui->SelEntry->setFocus();
                SetChanged(false);
            }
        }
    }
    ShowMessage(Msg);
}

void frmEntryDetail::AskToSave() {
    if (Changed && tb::AskYesNo("Do you want to save the changes?", "Tallyboard"))
        OK();
    SetChanged(false);
}

void frmEntryDetail::Cancel() {
    AskToSave();
    QDialog::reject();
}

void frmEntryDetail::reject() {
    Cancel();
}

void frmEntryDetail::RemoveEntry() {
    std::string Msg;
    if (ui->SelEntry->currentIndex() < 0) {
        Msg = "I-No boat is selected";
    } else {
        const int boat = ui->SelEntry->currentData().toInt();
        int entrant = boat;
        bool hasResults = false;
        Msg = ResultsDb.CheckResults(SeriesId, entrant, hasResults);
        if (Msg.empty()) {
            bool remove = false;
            if (entrant == 0 && !hasResults) {
                Msg = "I-No entry was found for this boat";
            } else {
                remove = tb::AskYesNo(
                    hasResults ? "There are results for this entry. Do you still want to remove it?"
                               : "Remove this entry?",
                    "Tallyboard");
            }
            if (remove) {
                Msg = ResultsDb.RemoveEntrant(entrant);
                if (Msg.empty())
                    Msg = ShowEntries(boat);
            }
        }
    }
    ShowMessage(Msg);
}

void frmEntryDetail::EditBoat() {
    if (ui->SelEntry->currentIndex() < 0) {
        ShowMessage("E-No boat is selected");
        return;
    }
    SelectedId = ui->SelEntry->currentData().toInt();
    OpenBoatEditor();
}

void frmEntryDetail::AddBoat() {
    SelectedId = -1;
    OpenBoatEditor();
}

void frmEntryDetail::OpenBoatEditor() {
    frmBoatDetail window(ResultsDb, SelectedId, true, this);
    window.exec();
    if (window.SavedBoatId() != 0)
        ShowNewBoat(window.SavedBoatId());
}

void frmEntryDetail::ShowNewBoat(int BoatId) {
    ui->RShow_2->setChecked(true);
    {
        const QSignalBlocker quiet(ui->SelEntrant);
        ui->SelEntrant->clear();
    }
    ShowMessage(ShowEntries(BoatId));
}

void frmEntryDetail::AssignByClassSplit() {
    constexpr std::size_t kUnratedBoat = 0, kUnratedSailNo = 1;
    AskToSave();
    RowSet moves, unrated;
    std::string Msg = ResultsDb.GetClassSplitMoves(SeriesId, moves, unrated);
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    const std::size_t changes = moves.Rows();
    if (changes > 0 &&
        AskYesNo(std::to_string(changes) + (changes == 1 ? " entrant" : " entrants") +
                 " will change class by the class split. Assign the boats to their classes?")) {
        Msg = ResultsDb.PutClassSplit(SeriesId, moves);
        if (Msg.empty()) {
            Msg = ShowEntries(BoatId);
            ui->lInfo->setText(QString::number(changes) + " entrants assigned by class split");
        }
    } else if (changes == 0) {
        ui->lInfo->setText("Every entrant is in its class by the class split");
    }
    if (Msg.empty() && !unrated.IsEmpty()) {
        Msg =
            "I-These boats have no handicap of their class's type on their entry date and keep "
            "their class:";
        for (std::size_t r = 0; r < unrated.Rows(); ++r)
            Msg += "\n" + unrated(kUnratedBoat, r).ToText() + "  " +
                   unrated(kUnratedSailNo, r).ToText();
    }
    ShowMessage(Msg);
}

}  // namespace tb
