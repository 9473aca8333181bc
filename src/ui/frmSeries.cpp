#include "ui/frmSeries.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/ListLines.h"
#include "ui/frmClassDetail.h"
#include "ui/frmRaceDetail.h"
#include "ui_frmSeries.h"

namespace tb {

namespace {

// The race name starts after the date (8) and the sub-series mark (3).
constexpr int kRaceNameStart = 11;
constexpr int kClassNameWidth = 31;

std::string Trimmed(const QString& text) {
    return text.trimmed().toStdString();
}

}  // namespace

frmSeries::frmSeries(clResults& ResultsDb, int SeriesId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmSeries>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Series");
    const QFont fixed = ColumnFont();
    for (QWidget* w :
         {static_cast<QWidget*>(ui->listSchedule), static_cast<QWidget*>(ui->listClassSplits),
          static_cast<QWidget*>(ui->lScheduleColumns), static_cast<QWidget*>(ui->lClassColumns)})
        w->setFont(fixed);
    ui->lScheduleColumns->setText(RaceColumnsHeader());
    ui->lClassColumns->setText(ClassColumnsHeader());
    AlignHeading(ui->lScheduleColumns, ui->listSchedule, false);
    AlignHeading(ui->lClassColumns, ui->listClassSplits, false);
    const int lineWidth = QFontMetrics(fixed).horizontalAdvance(QString(60, QChar('M')));
    ui->listSchedule->setMinimumWidth(lineWidth);
    ui->listClassSplits->setMinimumWidth(lineWidth);

    connect(ui->tName, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    connect(ui->tSubName, &QLineEdit::textEdited, this, [this] { SetChanged(true); });
    for (QComboBox* list : {ui->SelScoring, ui->SelDiscards}) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] {
            if (!Filling)
                SetChanged(true);
        });
    }
    ui->listSchedule->installEventFilter(this);

    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdOK", [this] { OK(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdCancel", [this] { Cancel(); }); });
    connect(ui->cmdAddSeries, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdAddSeries", [this] { AddSeries(); }); });
    connect(ui->cmdRemoveSeries, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdRemoveSeries", [this] { RemoveSeries(); }); });
    connect(ui->cmdAddSchedule, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdAddSchedule", [this] { AddRace(); }); });
    connect(ui->cmdEditSchedule, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdEditSchedule", [this] { EditRace(); }); });
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdRemove", [this] { RemoveRace(); }); });
    connect(ui->cmdAddClassSplit, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdAddClassSplit", [this] { AddClass(); }); });
    connect(ui->cEditClassSplit, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cEditClassSplit", [this] { EditClass(); }); });
    connect(ui->cmdRemoveClass, &QPushButton::clicked, this,
            [this] { RunTrapped("Series.cmdRemoveClass", [this] { RemoveClass(); }); });
    connect(ui->listSchedule, &QListWidget::itemDoubleClicked, this,
            [this] { RunTrapped("Series.listSchedule", [this] { EditRace(); }); });
    connect(ui->listClassSplits, &QListWidget::itemDoubleClicked, this,
            [this] { RunTrapped("Series.listClassSplits", [this] { EditClass(); }); });

    ShowDetails();
}

frmSeries::~frmSeries() = default;

bool frmSeries::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->listSchedule && event->type() == QEvent::FocusOut)
        ui->lInfo->clear();
    return QDialog::eventFilter(watched, event);
}

void frmSeries::SetChanged(bool changed) {
    Changed = changed;
    ui->cmdOK->setEnabled(changed);
    ui->cmdAddSeries->setEnabled(!changed);
}

void frmSeries::ShowDetails() {
    RunTrapped("Series.ShowDetails", [this] {
        std::string Msg;
        ui->listSchedule->clear();
        ui->listClassSplits->clear();
        if (SeriesId > 0) {
            RowSet rows;
            Msg = ResultsDb.GetSeriesDetails(SeriesId, rows);
            if (Msg.empty()) {
                ui->tName->setText(FieldText(rows(clResults::SeriesDetailCol::Title, 0)));
                ui->tSubName->setText(
                    FieldText(rows(clResults::SeriesDetailCol::SubseriesTitle, 0)));
                ScoringId = static_cast<int>(rows(clResults::SeriesDetailCol::Scoring, 0).AsInt());
                DiscardId = static_cast<int>(rows(clResults::SeriesDetailCol::Discards, 0).AsInt());
            }
            if (Msg.empty())
                Msg = ShowSchedule();
            if (Msg.empty())
                Msg = ShowClassSplits();
        }
        FillSystemList(ui->SelScoring, true, ScoringId, Msg);
        FillSystemList(ui->SelDiscards, false, DiscardId, Msg);
        SetChanged(false);
        return Msg;
    });
}

void frmSeries::FillSystemList(QComboBox* list, bool scoring, int selectedId, std::string& Msg) {
    Filling = true;
    list->clear();
    if (Msg.empty()) {
        RowSet rows;
        Msg = scoring ? ResultsDb.GetScoring(rows) : ResultsDb.GetDiscards(rows);
        for (std::size_t r = 0; Msg.empty() && !rows.IsEmpty() && r < rows.Rows(); ++r) {
            const int id = static_cast<int>(rows(clResults::SystemsCol::Id, r).AsInt());
            list->addItem(
                QString::fromStdString(rows(clResults::SystemsCol::Description, r).ToText()), id);
            if (id == selectedId)
                list->setCurrentIndex(list->count() - 1);
        }
    }
    if (list->findData(selectedId) < 0)
        list->setCurrentIndex(-1);
    Filling = false;
}

std::string frmSeries::ShowSchedule() {
    ui->listSchedule->clear();
    RowSet rows;
    const std::string Msg = ResultsDb.GetSchedule(rows, SeriesId);
    for (std::size_t r = 0; Msg.empty() && !rows.IsEmpty() && r < rows.Rows(); ++r) {
        auto* item =
            new QListWidgetItem(ScheduleLine(rows(clResults::ScheduleCol::RaceDate, r),
                                             rows(clResults::ScheduleCol::InSubSeries, r).AsBool(),
                                             rows(clResults::ScheduleCol::RaceName, r).ToText()));
        item->setData(Qt::UserRole, static_cast<int>(rows(clResults::ScheduleCol::Id, r).AsInt()));
        ui->listSchedule->addItem(item);
    }
    return Msg;
}

std::string frmSeries::ShowClassSplits() {
    ui->listClassSplits->clear();
    RowSet rows;
    const std::string Msg = ResultsDb.GetClassSplits(rows, SeriesId);
    for (std::size_t r = 0; Msg.empty() && !rows.IsEmpty() && r < rows.Rows(); ++r) {
        auto* item = new QListWidgetItem(
            ClassSplitLine(rows(clResults::ClassSplitsCol::ClassName, r).ToText(),
                           rows(clResults::ClassSplitsCol::Description, r).ToText(),
                           rows(clResults::ClassSplitsCol::MinTCF, r)));
        item->setData(Qt::UserRole,
                      static_cast<int>(rows(clResults::ClassSplitsCol::Id, r).AsInt()));
        ui->listClassSplits->addItem(item);
    }
    return Msg;
}

void frmSeries::OK() {
    ui->tName->setText(QString::fromStdString(Trimmed(ui->tName->text())));
    ui->tSubName->setText(QString::fromStdString(Trimmed(ui->tSubName->text())));
    std::string Msg;
    if (ui->tName->text().isEmpty())
        Msg = "X-Please enter the series name";
    if (Msg.empty() && ui->SelScoring->currentIndex() < 0)
        Msg = "X-Please select a scoring system";
    if (Msg.empty() && ui->SelDiscards->currentIndex() < 0)
        Msg = "X-Please select a discard system";
    if (Msg.empty()) {
        Msg = ResultsDb.PutSeriesDetails(SeriesId, ui->tName->text().toStdString(),
                                         ui->tSubName->text().toStdString(),
                                         ui->SelScoring->currentData().toInt(),
                                         std::to_string(ui->SelDiscards->currentData().toInt()));
    }
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    ui->lInfo->setText("Series details saved");
    ui->listSchedule->setFocus();
    SetChanged(false);
}

std::optional<bool> frmSeries::AskToSave() {
    if (!Changed)
        return std::nullopt;
    const bool yes = tb::AskYesNo("Do you want to save the changes?", "Tallyboard");
    if (yes)
        OK();
    SetChanged(false);
    return yes;
}

void frmSeries::closeEvent(QCloseEvent* event) {
    if (AskToSave().has_value() && ui->listSchedule->count() == 0) {
        ShowMessage("I-There must be at least one race scheduled in the series");
        event->ignore();
        return;
    }
    QDialog::done(QDialog::Rejected);
    event->accept();
}

void frmSeries::reject() {
    Cancel();
}

void frmSeries::Cancel() {
    SetChanged(false);
    close();
}

void frmSeries::AddSeries() {
    SeriesId = 0;
    ScoringId = 0;
    DiscardId = 0;
    ui->tName->clear();
    ui->tSubName->clear();
    Filling = true;
    ui->SelScoring->setCurrentIndex(-1);
    ui->SelDiscards->setCurrentIndex(-1);
    Filling = false;
    ui->listSchedule->clear();
    ui->listClassSplits->clear();
    ui->tName->setFocus();
    SetChanged(false);
}

void frmSeries::RemoveSeries() {
    std::string Msg;
    if (SeriesId <= 0) {
        Msg = "I-No series selected";
    } else if (ui->listSchedule->count() > 0 || ui->listClassSplits->count() > 0) {
        Msg = "I-Before removing a series, first remove any scheduled races and classes";
    } else if (tb::AskYesNo("Remove series " + ui->tName->text().toStdString() + "?",
                            "Tallyboard")) {
        Msg = ResultsDb.RemoveSeries(SeriesId);
        if (Msg.empty())
            AddSeries();
    }
    ShowMessage(Msg);
}

void frmSeries::AddRace() {
    if (SeriesId <= 0) {
        ShowMessage("I-No series selected");
        return;
    }
    OpenRace(0);
}

void frmSeries::AddClass() {
    if (SeriesId <= 0) {
        ShowMessage("I-No series selected");
        return;
    }
    OpenClass(0);
}

void frmSeries::OpenRace(int RaceId) {
    frmRaceDetail window(ResultsDb, SeriesId, RaceId, this);
    window.exec();
    if (window.Saved())
        ShowMessage(ShowSchedule());
}

void frmSeries::OpenClass(int ClassId) {
    frmClassDetail window(ResultsDb, SeriesId, ClassId, this);
    window.exec();
    if (window.Saved())
        ShowMessage(ShowClassSplits());
}

std::string frmSeries::CheckHighlighted(QListWidget* list, const std::string& noneSelected) const {
    if (SeriesId <= 0)
        return "I-No series selected";
    if (list->currentItem() == nullptr || !list->currentItem()->isSelected())
        return noneSelected;
    return {};
}

void frmSeries::EditRace() {
    const std::string Msg = CheckHighlighted(ui->listSchedule, "I-No scheduled race selected");
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    OpenRace(ui->listSchedule->currentItem()->data(Qt::UserRole).toInt());
}

void frmSeries::EditClass() {
    const std::string Msg = CheckHighlighted(ui->listClassSplits, "I-No class selected");
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    OpenClass(ui->listClassSplits->currentItem()->data(Qt::UserRole).toInt());
}

void frmSeries::RemoveRace() {
    std::string Msg = CheckHighlighted(ui->listSchedule, "I-No scheduled race selected");
    if (Msg.empty()) {
        const QListWidgetItem* line = ui->listSchedule->currentItem();
        const std::string name = line->text().mid(kRaceNameStart).toStdString();
        if (tb::AskYesNo("Remove race: " + name + "?", "Remove race from schedule")) {
            Msg = ResultsDb.RemoveSchedule(line->data(Qt::UserRole).toInt());
            if (Msg.empty())
                ShowDetails();
        }
    }
    ShowMessage(Msg);
}

void frmSeries::RemoveClass() {
    std::string Msg = CheckHighlighted(ui->listClassSplits, "I-No class selected");
    if (Msg.empty()) {
        const QListWidgetItem* line = ui->listClassSplits->currentItem();
        const std::string name = Trimmed(line->text().left(kClassNameWidth));
        if (tb::AskYesNo("Remove class: " + name + "?", "Remove class from series")) {
            Msg = ResultsDb.RemoveClass(line->data(Qt::UserRole).toInt());
            if (Msg.empty())
                ShowDetails();
        }
    }
    ShowMessage(Msg);
}

}  // namespace tb
