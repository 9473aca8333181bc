#include "ui/frmStartTimes.h"

#include <QKeyEvent>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/EnterKey.h"
#include "ui/HelpFile.h"
#include "ui/RaceHeadings.h"
#include "ui_frmStartTimes.h"

namespace tb {

namespace {

QString Text(const Value& v) {
    return QString::fromStdString(v.ToText());
}

bool IsDigits(const QString& text) {
    for (QChar c : text) {
        if (c < '0' || c > '9')
            return false;
    }
    return true;
}

}  // namespace

frmStartTimes::frmStartTimes(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmStartTimes>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId),
      RaceId(RaceId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Results");
    connect(ui->tTime, &QLineEdit::returnPressed, this, [this] { ui->cmdOK->setFocus(); });
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("StartTimes.cmdOK", [this] { Save(); }); });
    connect(ui->cmdCopy, &QPushButton::clicked, this, [this] {
        Copy();
        Changed = true;
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmStartTimes::reject);
    for (QLineEdit* field : {ui->tTime, ui->tDate, ui->tComment, ui->tFootnote})
        connect(field, &QLineEdit::textEdited, this, [this] { Changed = true; });

    RunTrapped("StartTimes.Load", [this] {
        ShowHeadings();
        ReadStarts();
        ShowClass();
    });
}

frmStartTimes::~frmStartTimes() = default;

void frmStartTimes::reject() {
    if (Changed && AskYesNo("Do you want to save the changes?", "Tallyboard"))
        RunTrapped("StartTimes.Close", [this] { Save(); });
    else
        Changed = false;
    if (!Changed)
        QDialog::reject();
}

void frmStartTimes::keyPressEvent(QKeyEvent* e) {
    if (!IsEnterKey(e))
        QDialog::keyPressEvent(e);
}

void frmStartTimes::ShowHeadings() {
    ShowRaceHeadings(ResultsDb, SeriesId, RaceId, *ui->lSeries, *ui->lRace);
}

void frmStartTimes::ReadStarts() {
    Starts.Clear();
    ClassIndex = 0;
    ShowMessage(ResultsDb.GetStartTimes(SeriesId, RaceId, Starts));
    const bool anyClass = !Starts.IsEmpty();
    ui->cmdOK->setEnabled(anyClass);
    if (!anyClass)
        ui->lInfo->setText(tr("This series has no classes to start."));
}

void frmStartTimes::ShowClass() {
    if (Starts.IsEmpty())
        return;
    ui->lClass->setText(Text(Starts(clResults::StartTimesCol::ClassName, ClassIndex)));
    ui->tComment->setText(Text(Starts(clResults::StartTimesCol::TopNote, ClassIndex)));
    ui->tFootnote->setText(Text(Starts(clResults::StartTimesCol::Footnote, ClassIndex)));
    const Value& start = Starts(clResults::StartTimesCol::StartTime, ClassIndex);
    if (start.IsNull()) {
        ui->tTime->clear();
        ui->tDate->setText(QString::fromStdString(
            Format(Starts(clResults::StartTimesCol::RaceDate, ClassIndex), "dd/mm/yyyy")));
    } else {
        ui->tTime->setText(QString::fromStdString(Format(start, "hhmm")));
        ui->tDate->setText(QString::fromStdString(Format(start, "dd/mm/yyyy")));
    }
    ui->tTime->setFocus();
    ui->tTime->selectAll();
    Changed = false;
}

void frmStartTimes::Save() {
    if (Starts.IsEmpty())
        return;
    for (QLineEdit* field : {ui->tTime, ui->tDate, ui->tComment, ui->tFootnote})
        field->setText(field->text().trimmed());
    ui->tTime->setFocus();

    const QString time = ui->tTime->text();
    Value startTime;
    if (!time.isEmpty()) {
        if (time.size() != 4 || !IsDigits(time) || time.left(2).toInt() >= 24 ||
            time.right(2).toInt() >= 60) {
            ShowMessage("E-Please enter a valid start time");
            return;
        }
        const auto start = ParseTypedDateTime(
            (ui->tDate->text() + " " + time.left(2) + ":" + time.right(2)).toStdString());
        if (!start) {
            ShowMessage("E-Please enter a valid start date");
            ui->tDate->setFocus();
            return;
        }
        startTime = Value(*start);
    }

    const int startId =
        static_cast<int>(Starts(clResults::StartTimesCol::StartId, ClassIndex).AsInt());
    const std::string Msg =
        ResultsDb.PutStartTime(startId, startTime, ui->tComment->text().toStdString(),
                               ui->tFootnote->text().toStdString());
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    ui->lInfo->setText(tr("Start saved for %1").arg(ui->lClass->text()));
    if (!ui->tComment->text().isEmpty())
        LastComment = ui->tComment->text();
    if (!ui->tFootnote->text().isEmpty())
        LastFootnote = ui->tFootnote->text();
    ui->cmdCopy->setEnabled(!LastComment.isEmpty() || !LastFootnote.isEmpty());

    if (ClassIndex + 1 >= Starts.Rows()) {
        ReadStarts();
    } else {
        ++ClassIndex;
    }
    ShowClass();
}

void frmStartTimes::Copy() {
    ui->tComment->setText(LastComment);
    ui->tFootnote->setText(LastFootnote);
}

}  // namespace tb
