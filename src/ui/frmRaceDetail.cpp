#include "ui/frmRaceDetail.h"

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui_frmRaceDetail.h"

namespace tb {

frmRaceDetail::frmRaceDetail(clResults& ResultsDb, int SeriesId, int RaceId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmRaceDetail>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId),
      RaceId(RaceId) {
    ui->setupUi(this);
    // Part of the series editor, so its help page.
    SetHelpOnActivation(this, "Series");
    // Room for a long name without scrolling.
    ui->tTitle->setMinimumWidth(fontMetrics().horizontalAdvance(QString(40, QChar('x'))));
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("RaceDetail.cmdOK", [this] { OK(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RunTrapped("RaceDetail.Load", [this] { Load(); });
}

frmRaceDetail::~frmRaceDetail() = default;

// Messages of the load are not shown: a race that cannot be read starts empty.
void frmRaceDetail::Load() {
    RowSet series;
    if (!ResultsDb.GetSeriesDetails(SeriesId, series).empty())
        return;
    ui->lSeries->setText(
        QString::fromStdString(series(clResults::SeriesDetailCol::Title, 0).ToText()));
    if (RaceId < 1)
        return;
    RowSet race;
    if (!ResultsDb.GetRaceDetails(RaceId, race).empty() || race.IsEmpty())
        return;
    ui->tTitle->setText(
        QString::fromStdString(race(clResults::RaceDetailCol::RaceName, 0).ToText()));
    ui->tDate->setText(
        QString::fromStdString(Format(race(clResults::RaceDetailCol::RaceDate, 0), "dd/mm/yyyy")));
    ui->cSubseries->setChecked(race(clResults::RaceDetailCol::InSubSeries, 0).AsBool());
    ui->tRaceId->setText(
        QString::fromStdString(race(clResults::RaceDetailCol::Reference, 0).ToText()));
}

void frmRaceDetail::OK() {
    ui->tTitle->setText(ui->tTitle->text().trimmed());
    ui->tRaceId->setText(ui->tRaceId->text().trimmed());
    std::string Msg;
    if (ui->tTitle->text().isEmpty()) {
        Msg = "E-Please specify the name of the race";
        ui->tTitle->setFocus();
    } else if (!IsValidDate(ui->tDate->text().toStdString())) {
        Msg = "E-Please specify a valid date for the race";
        ui->tDate->setFocus();
    }
    if (Msg.empty()) {
        Msg = ResultsDb.PutScheduleDetails(
            RaceId, SeriesId, ui->tTitle->text().toStdString(), ui->tDate->text().toStdString(),
            ui->cSubseries->isChecked(), ui->tRaceId->text().toStdString());
    }
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    accept();
}

}  // namespace tb
