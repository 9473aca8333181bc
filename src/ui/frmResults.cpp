#include "ui/frmResults.h"

#include <QButtonGroup>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimer>
#include <cmath>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/ResultStatus.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/EnterKey.h"
#include "ui/HelpFile.h"
#include "ui/RaceHeadings.h"
#include "ui/frmSelectBoat.h"
#include "ui/frmStartTimes.h"
#include "ui_frmResults.h"

namespace tb {

namespace {

// Statuses that mean the boat did not finish: a pre-filled hour makes no sense for them.
bool IsNonFinishing(long long status) {
    return status == ResultStatus::kDidNotCompete || status == ResultStatus::kDidNotFinish ||
           status == ResultStatus::kDidNotStart;
}

bool IsDigits(const QString& text) {
    for (QChar c : text) {
        if (c < '0' || c > '9')
            return false;
    }
    return !text.isEmpty();
}

// Six digits hhmmss of a time of day.
bool IsValidTime(const QString& text) {
    return text.size() == 6 && IsDigits(text) && text.left(2).toInt() < 24 &&
           text.mid(2, 2).toInt() < 60 && text.right(2).toInt() < 60;
}

// Whole days from the start day to the finish day.
long long DaysBetween(DateTime start, DateTime finish) {
    return (DatePart(finish) - DatePart(start)).count() / 86400;
}

int FinishOption(DateTime start, DateTime finish) {
    const long long days = DaysBetween(start, finish);
    return days == 0 ? 0 : days == 1 ? 1 : 2;
}

QString Text(const Value& v) {
    return QString::fromStdString(v.ToText());
}

}  // namespace

frmResults::frmResults(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmResults>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId),
      RaceId(RaceId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Results");
    rFinish = new QButtonGroup(this);
    rFinish->addButton(ui->rFinish_0, 0);
    rFinish->addButton(ui->rFinish_1, 1);
    rFinish->addButton(ui->rFinish_2, 2);
    ui->SelEntry->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui->SelEntry->setInsertPolicy(QComboBox::NoInsert);
    // Typing searches by sail number or name on Enter; completing would pick a boat by itself.
    ui->SelEntry->setCompleter(nullptr);
    // Keys typed into an editable list reach the list first, its inner field only through it.
    ui->SelEntry->installEventFilter(this);
    ui->SelStatus->installEventFilter(this);
    ui->tTime->installEventFilter(this);

    connect(ui->SelEntry, &QComboBox::currentIndexChanged, this,
            [this](int index) { RunTrapped("Results.SelEntry", [&] { ChooseEntry(index); }); });
    connect(ui->SelEntry, &QComboBox::activated, this, &frmResults::EntryPicked);
    connect(ui->SelEntry->lineEdit(), &QLineEdit::textEdited, this,
            [this] { EnableResultFields(false); });
    connect(ui->cStart, &QPushButton::clicked, this,
            [this] { RunTrapped("Results.cStart", [this] { OpenStartTimes(); }); });
    connect(ui->tTime, &QLineEdit::textChanged, this, [this](const QString& text) {
        RunTrapped("Results.tTime", [&] { TimeChanged(text); });
    });
    connect(ui->tTime, &QLineEdit::returnPressed, this, &frmResults::TimeEnter);
    connect(rFinish, &QButtonGroup::idClicked, this, &frmResults::FinishChosen);
    connect(ui->SelStatus, &QComboBox::activated, this, &frmResults::StatusChosen);
    const std::pair<QLineEdit*, QWidget*> enterMovesOn[] = {{ui->tDate, ui->tMins},
                                                            {ui->tMins, ui->tPercent},
                                                            {ui->tPercent, ui->tPoints},
                                                            {ui->tPoints, ui->tNote}};
    for (const auto& [field, next] : enterMovesOn)
        connect(field, &QLineEdit::returnPressed, next, [next] { next->setFocus(); });
    connect(ui->tNote, &QLineEdit::returnPressed, this, [this] {
        if (ui->cmdOK->isEnabled())
            TrappedSave();
    });
    for (QLineEdit* field : {ui->tDate, ui->tMins, ui->tPercent, ui->tPoints, ui->tNote})
        connect(field, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmResults::TrappedSave);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmResults::reject);

    SetFinishOption(0);
    EnableResultFields(false);
    SetChanged(false);
    RunTrapped("Results.Load", [this] {
        ShowRaceHeadings(this->ResultsDb, this->SeriesId, this->RaceId, *ui->lSeries, *ui->lRace);
        FillStatus();
        FillEntries();
        CheckStartTimes();
    });
    ui->SelEntry->setFocus();
}

frmResults::~frmResults() = default;

void frmResults::keyPressEvent(QKeyEvent* e) {
    if (!IsEnterKey(e))
        QDialog::keyPressEvent(e);
}

bool frmResults::eventFilter(QObject* watched, QEvent* e) {
    if (e->type() == QEvent::KeyPress && IsEnterKey(static_cast<QKeyEvent*>(e))) {
        if (watched == ui->SelEntry) {
            RunTrapped("Results.SelEntry", [this] { EntryEnter(); });
            return true;
        }
        if (watched == ui->SelStatus) {
            StatusEnter();
            return true;
        }
    }
    if (watched == ui->tTime && e->type() == QEvent::FocusIn)
        TimeEntered();
    return QDialog::eventFilter(watched, e);
}

void frmResults::FillStatus() {
    RowSet statuses;
    const std::string Msg = ResultsDb.GetStatus(statuses);
    ShowMessage(Msg);
    for (std::size_t r = 0; !statuses.IsEmpty() && r < statuses.Rows(); ++r) {
        QString text = Text(statuses(clResults::StatusCol::Code, r));
        if (!statuses(clResults::StatusCol::Description, r).ToText().empty())
            text += " - " + Text(statuses(clResults::StatusCol::Description, r));
        ui->SelStatus->addItem(
            text, QVariant::fromValue<qlonglong>(statuses(clResults::StatusCol::Id, r).AsInt()));
    }
    ui->SelStatus->setCurrentIndex(-1);
}

void frmResults::FillEntries() {
    RowSet entries;
    const std::string Msg = ResultsDb.GetEntriesForRace(RaceId, entries);
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    if (entries.IsEmpty()) {
        ShowMessage("I-This race does not have any entrants");
        return;
    }
    const std::string field = "!" + std::string(34, '@');
    const QSignalBlocker blocker(ui->SelEntry);
    for (std::size_t r = 0; r < entries.Rows(); ++r) {
        const std::string text =
            FormatText(entries(clResults::RaceEntriesCol::BoatName, r).ToText() + " ", field) +
            entries(clResults::RaceEntriesCol::FullSailNo, r).ToText();
        ui->SelEntry->addItem(QString::fromStdString(text),
                              QVariant::fromValue<qlonglong>(
                                  entries(clResults::RaceEntriesCol::EntrantId, r).AsInt()));
    }
    ui->SelEntry->setCurrentIndex(-1);
    ui->SelEntry->clearEditText();
}

void frmResults::CheckStartTimes() {
    RowSet starts;
    const std::string Msg = ResultsDb.GetStartTimes(SeriesId, RaceId, starts);
    if (!Msg.empty()) {
        ui->cStart->setEnabled(false);
        ui->cmdOK->setEnabled(false);
        ShowMessage(Msg);
        return;
    }
    for (std::size_t r = 0; !starts.IsEmpty() && r < starts.Rows(); ++r) {
        if (starts(clResults::StartTimesCol::StartTime, r).IsDate())
            return;
    }
    // No class has started yet: the start times come first, once this window is up.
    QTimer::singleShot(0, this, &frmResults::OpenStartTimes);
}

void frmResults::OpenStartTimes() {
    frmStartTimes window(ResultsDb, SeriesId, RaceId, this);
    window.exec();
    // The shown boat's class may have just been started: the offered hour depends on it.
    if (EntrantId != 0) {
        RowSet start;
        const std::string Msg = ResultsDb.GetStartTimeForEntrant(RaceId, EntrantId, start);
        ShowMessage(Msg);
        if (Msg.empty())
            StartTime = start(clResults::EntrantStartCol::StartTime, 0);
    }
}

void frmResults::ChooseEntry(int index) {
    if (index < 0)
        return;
    const int entrant = static_cast<int>(ui->SelEntry->itemData(index).toLongLong());
    if (Changed && entrant != EntrantId && !OfferToSave()) {
        // The unsaved result stays on screen with its boat.
        const QSignalBlocker blocker(ui->SelEntry);
        ui->SelEntry->setCurrentIndex(
            ui->SelEntry->findData(QVariant::fromValue<qlonglong>(EntrantId)));
        return;
    }
    EntrantId = entrant;
    ShowResult();
}

void frmResults::EntryEnter() {
    if (!OfferToSave())
        return;
    const QString typed = ui->SelEntry->currentText();
    const int listed = ui->SelEntry->findText(typed, Qt::MatchExactly);
    if (listed >= 0) {
        ui->SelEntry->setCurrentIndex(listed);
    } else {
        const QString search = typed.trimmed();
        const std::string Msg = ResultsDb.GetBoatInRace(RaceId, search.toStdString(), Matches);
        if (!Msg.empty()) {
            ShowMessage(Msg);
            return;
        }
        if (Matches(clResults::BoatInRaceCol::EntrantId, 0).IsNull()) {
            Refuse(search + " is not entered in this race", ui->SelEntry);
            // The next sail number typed replaces the one not found.
            ui->SelEntry->lineEdit()->selectAll();
            return;
        }
        ui->lInfo->clear();
        const int first = ui->SelEntry->findData(QVariant::fromValue<qlonglong>(
            Matches(clResults::BoatInRaceCol::EntrantId, 0).AsInt()));
        if (first >= 0)
            ui->SelEntry->setCurrentIndex(first);
        if (Matches.Rows() > 1) {
            Beep();
            frmSelectBoat picker(Matches, this);
            picker.exec();
            const int chosen =
                ui->SelEntry->findData(QVariant::fromValue<qlonglong>(picker.ChosenEntrant()));
            if (chosen >= 0)
                ui->SelEntry->setCurrentIndex(chosen);
        }
    }
    // Choosing the boat already shown brings back its result fields.
    if (ui->SelEntry->currentIndex() >= 0 && !ui->tTime->isEnabled())
        ChooseEntry(ui->SelEntry->currentIndex());
    if (ui->tTime->isEnabled()) {
        ui->tTime->setFocus();
        // A stored time is typed over, as a correction from the sheet is.
        if (ui->tTime->text() != PrefilledHour)
            ui->tTime->selectAll();
    }
}

void frmResults::EntryPicked(int index) {
    // Picking the shown boat again after editing the text brings its fields back as they were.
    if (index >= 0 && ui->SelEntry->itemData(index).toInt() == EntrantId && !ui->tTime->isEnabled())
        EnableResultFields(true);
}

void frmResults::EnableResultFields(bool enabled) {
    for (QWidget* field : std::initializer_list<QWidget*>{
             ui->tTime, ui->rFinish_0, ui->rFinish_1, ui->rFinish_2, ui->tDate, ui->SelStatus,
             ui->tMins, ui->tPercent, ui->tPoints, ui->tNote})
        field->setEnabled(enabled);
}

void frmResults::ShowResult() {
    EnableResultFields(true);
    ui->cmdOK->setEnabled(true);
    RowSet result;
    std::string Msg = ResultsDb.GetResult(RaceId, EntrantId, result);
    RowSet start;
    if (Msg.empty())
        Msg = ResultsDb.GetStartTimeForEntrant(RaceId, EntrantId, start);
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    StartTime = start(clResults::EntrantStartCol::StartTime, 0);

    Loading = true;
    const Value& finish = result(clResults::ResultCol::FinishTime, 0);
    if (!finish.IsDate()) {
        ui->tTime->clear();
    } else {
        ui->tTime->setText(QString::fromStdString(Format(finish, "hhmmss")));
        ui->tDate->setText(QString::fromStdString(Format(finish, "dd mmm yyyy")));
        SetFinishOption(StartTime.IsDate() ? FinishOption(StartTime.AsDate(), finish.AsDate()) : 2);
    }
    ui->tMins->setText(Text(result(clResults::ResultCol::PenaltyMins, 0)));
    ui->tPercent->setText(Text(result(clResults::ResultCol::PenaltyPercent, 0)));
    ui->tPoints->setText(Text(result(clResults::ResultCol::PenaltyPoints, 0)));
    ui->tNote->setText(Text(result(clResults::ResultCol::Notes, 0)));
    ui->SelStatus->setCurrentIndex(result(clResults::ResultCol::Status, 0).IsNull()
                                       ? -1
                                       : ui->SelStatus->findData(QVariant::fromValue<qlonglong>(
                                             result(clResults::ResultCol::Status, 0).AsInt())));
    Loading = false;
    Changed = false;
}

void frmResults::TimeEntered() {
    if (!ui->tTime->text().isEmpty() || !StartTime.IsDate() || !LastFinish)
        return;
    PrefilledHour = QString::fromStdString(FormatDate(*LastFinish, "hhmmss")).left(2);
    ui->tTime->setText(PrefilledHour);
    SetFinishOption(FinishOption(StartTime.AsDate(), *LastFinish));
    // A tab into the field selects its text; the cursor goes after the hour all the same.
    ui->tTime->end(false);
    QTimer::singleShot(0, ui->tTime, [field = ui->tTime] { field->end(false); });
}

void frmResults::TimeChanged(const QString& text) {
    if (Loading)
        return;
    if (text.size() != 2)
        SetChanged(true);
    const int status = ui->SelStatus->currentIndex();
    if (IsValidTime(text) && (status == -1 || status == 1) && ui->SelStatus->count() > 7)
        ui->SelStatus->setCurrentIndex(7);
}

void frmResults::TimeEnter() {
    // No time taken (a boat that did not finish): Enter goes on to the status, not to a refusal
    // of the bare pre-filled hour.
    const QString time = ui->tTime->text().trimmed();
    if (ui->cmdOK->isEnabled() && !time.isEmpty() && time != PrefilledHour)
        TrappedSave();
    else
        ui->SelStatus->setFocus();
}

void frmResults::StatusEnter() {
    if (ui->cmdOK->isEnabled())
        TrappedSave();
    else
        ui->tMins->setFocus();
}

void frmResults::StatusChosen(int index) {
    const long long status = ui->SelStatus->itemData(index).toLongLong();
    if (IsNonFinishing(status) && ui->tTime->text().size() == 2 &&
        ui->tTime->text() == PrefilledHour)
        ui->tTime->clear();
    SetChanged(true);
}

void frmResults::FinishChosen(int option) {
    SetFinishOption(option);
    SetChanged(true);
}

void frmResults::SetFinishOption(int option) {
    rFinish->button(option)->setChecked(true);
    ui->tDate->setVisible(option == 2);
}

void frmResults::SetChanged(bool changed) {
    Changed = changed;
    ui->cmdOK->setEnabled(changed);
    if (changed)
        ui->lInfo->clear();
}

bool frmResults::OfferToSave() {
    if (!Changed)
        return true;
    if (AskYesNo("Do you want to save the changes?", "Tallyboard"))
        TrappedSave();
    else
        SetChanged(false);
    return !Changed;
}

bool frmResults::Refuse(const QString& message, QWidget* focus) {
    ui->lInfo->setText(message);
    Beep();
    focus->setFocus();
    return false;
}

void frmResults::TrappedSave() {
    RunTrapped("Results.cmdOK", [this] { Save(); });
}

bool frmResults::Save() {
    Loading = true;
    for (QLineEdit* field : {ui->tTime, ui->tMins, ui->tPercent, ui->tPoints, ui->tNote})
        field->setText(field->text().trimmed());
    Loading = false;

    if (EntrantId == 0)
        return Refuse("No boat is selected", ui->SelEntry);
    RowSet start;
    const std::string startMsg = ResultsDb.GetStartTimeForEntrant(RaceId, EntrantId, start);
    if (!startMsg.empty()) {
        ShowMessage(startMsg);
        return false;
    }
    StartTime = start(clResults::EntrantStartCol::StartTime, 0);
    const QString className = Text(start(clResults::EntrantStartCol::ClassName, 0));
    // A boat without a class has no start to name, so that is said first.
    if (className.isEmpty()) {
        return Refuse("This boat has not been assigned a class.  Please check the entry details",
                      ui->SelEntry);
    }
    if (!StartTime.IsDate())
        return Refuse("Please enter the start time for " + className, ui->cStart);

    const int option = rFinish->checkedId();
    if (option == 0 || option == 1) {
        ui->tDate->setText(
            QString::fromStdString(FormatDate(AddDays(StartTime.AsDate(), option), "dd mmm yyyy")));
    }
    if (!IsValidDate(ui->tDate->text().toStdString()))
        return Refuse("Finish date is invalid", ui->tDate);

    const QString time = ui->tTime->text();
    std::optional<DateTime> finish;
    if (!time.isEmpty()) {
        if (!IsValidTime(time))
            return Refuse("Finish time is invalid", ui->tTime);
        finish = ParseTypedDateTime(
            (ui->tDate->text() + " " + time.left(2) + ":" + time.mid(2, 2) + ":" + time.right(2))
                .toStdString());
        if (!finish || *finish < StartTime.AsDate() + std::chrono::seconds(1))
            return Refuse("Finish time must be after start time", ui->tTime);
    }
    if (ui->SelStatus->currentIndex() < 0)
        return Refuse("Please select the finish status", ui->SelStatus);
    for (QLineEdit* penalty : {ui->tMins, ui->tPercent, ui->tPoints}) {
        if (!penalty->text().isEmpty() && !IsNumeric(penalty->text().toStdString()))
            return Refuse("Penalty or redress value is invalid", penalty);
    }
    if (!ui->tPoints->text().isEmpty()) {
        const double places = *ParseNumber(ui->tPoints->text().toStdString());
        if (places != std::floor(places))
            return Refuse("Penalty must be a whole number", ui->tPoints);
    }

    const std::string Msg =
        ResultsDb.PutResult(RaceId, EntrantId, time.toStdString(), ui->tDate->text().toStdString(),
                            static_cast<int>(ui->SelStatus->currentData().toLongLong()),
                            ui->tMins->text().toStdString(), ui->tPercent->text().toStdString(),
                            ui->tPoints->text().toStdString(), ui->tNote->text().toStdString());
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return false;
    }
    if (finish)
        LastFinish = finish;
    ui->lInfo->setText("Result saved");
    SetChanged(false);
    ui->SelEntry->setFocus();
    ui->SelEntry->lineEdit()->selectAll();
    return true;
}

void frmResults::reject() {
    if (OfferToSave())
        QDialog::reject();
}

}  // namespace tb
