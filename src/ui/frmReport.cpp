#include "ui/frmReport.h"

#include <QApplication>
#include <QRadioButton>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/ReportViewer.h"
#include "ui_frmReport.h"

namespace tb {

namespace {

constexpr int kRaceResults = 3;

// The pointer shows busy while a report is being written.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace

frmReport::frmReport(clResults& ResultsDb, int SeriesId, int RaceId, ReportViewer& Viewer,
                     QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmReport>()),
      ResultsDb(ResultsDb),
      Viewer(Viewer),
      RaceId(RaceId),
      SeriesId(SeriesId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Reports");
    for (int kind = 0; kind < static_cast<int>(rReport.size()); ++kind) {
        rReport[kind] = findChild<QRadioButton*>(QStringLiteral("rReport_%1").arg(kind));
        connect(rReport[kind], &QRadioButton::clicked, this, [this, kind] {
            RunTrapped("Report.rReport", [this, kind] { rReport_Click(kind); });
        });
    }
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("Report.OK.Click", [this] { return cmdOK_Click(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->SelAction, &QListWidget::itemDoubleClicked, this,
            [this] { RunTrapped("Report.OK.Click", [this] { return cmdOK_Click(); }); });
    RunTrapped("Report.Load", [this] { return Load(); });
}

frmReport::~frmReport() = default;

std::string frmReport::Load() {
    const ReportMenuTable& menu = ResultsDb.ReportMenu();
    for (int kind = 0; kind < static_cast<int>(rReport.size()); ++kind) {
        rReport[kind]->setText(QString::fromStdString(menu[kind].Title));
        rReport[kind]->setEnabled(!menu[kind].Title.empty());
    }
    rReport[kRaceResults]->setChecked(true);
    rReport_Click(kRaceResults);

    RowSet series;
    std::string Msg = ResultsDb.GetSeriesDetails(SeriesId, series);
    if (Msg.empty()) {
        ui->lSeries->setText(
            QString::fromStdString(series(clResults::SeriesDetailCol::Title, 0).ToText()));
        RowSet race;
        Msg = ResultsDb.GetRaceDetails(RaceId, race);
        if (Msg.empty() && !race.IsEmpty()) {
            ui->lRace->setText(QString::fromStdString(
                race(clResults::RaceDetailCol::RaceName, 0).ToText() + " - " +
                Format(race(clResults::RaceDetailCol::RaceDate, 0), "dd/mm/yyyy")));
        }
    }
    return Msg;
}

void frmReport::rReport_Click(int kind) {
    ui->SelAction->clear();
    for (const ReportAction& action : ResultsDb.ReportMenu()[kind].Actions) {
        auto* item = new QListWidgetItem(QString::fromStdString(action.Caption), ui->SelAction);
        item->setData(Qt::UserRole, static_cast<int>(action.Option));
    }
    if (ui->SelAction->count() > 0)
        ui->SelAction->setCurrentRow(0);
}

int frmReport::SelectedKind() const {
    for (int kind = 0; kind < static_cast<int>(rReport.size()); ++kind) {
        if (rReport[kind]->isChecked())
            return kind;
    }
    return -1;
}

std::string frmReport::cmdOK_Click() {
    const BusyCursor busy;
    return MakeReport();
}

std::string frmReport::MakeReport() {
    const int kind = SelectedKind();
    const int actionIndex = ui->SelAction->currentRow();
    if (kind < 0 || actionIndex < 0)
        return {};
    const int viewerCode = ResultsDb.ReportMenu()[kind].Actions.at(actionIndex).Viewer;

    std::string outputPath;
    ui->lStatus->clear();
    const std::string Msg =
        ResultsDb.CreateReport(kind, actionIndex, viewerCode, RaceId, outputPath);
    // The status line says where the report went: a published page is nowhere else to be seen.
    const QString path = QString::fromStdString(outputPath);
    const bool published =
        !ResultsDb.ReportMenu()[kind].Actions.at(actionIndex).OutputObject.empty();
    if (!Msg.empty()) {
        if (!path.isEmpty())
            ui->lStatus->setText(tr("See %1").arg(path));
        return Msg;
    }
    ui->lStatus->setText((published ? tr("Published to %1") : tr("Written to %1")).arg(path));
    if (viewerCode == 2)
        Viewer.OpenInSpreadsheet(path);
    else if (viewerCode == 1 || viewerCode == 3)
        Viewer.OpenInBrowser(path);
    return {};
}

}  // namespace tb
