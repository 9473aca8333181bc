#include "app/desktop/frmMain.h"

#include <QCloseEvent>
#include <QSignalBlocker>
#include <QTimer>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/StartupSettings.h"
#include "ui/frmBoatDetail.h"
#include "ui/frmEntryDetail.h"
#include "ui/frmImportExport.h"
#include "ui/frmOptions.h"
#include "ui/frmPeopleDetail.h"
#include "ui/frmReport.h"
#include "ui/frmResults.h"
#include "ui/frmScoring.h"
#include "ui/frmSeries.h"
#include "ui_frmMain.h"

namespace tb {

namespace {

constexpr const char* kNoSeries = "X-Please first select or create a series";

int ItemId(const QComboBox* list) {
    return list->currentIndex() < 0 ? 0 : list->currentData().toInt();
}

// Selects the item from the program as a user would: the list's change handling runs. The list
// was filled with its signals blocked, so nothing is selected yet.
void SelectAsUser(QComboBox* list, int index) {
    {
        const QSignalBlocker quiet(list);
        list->setCurrentIndex(-1);
    }
    if (index >= 0)
        list->setCurrentIndex(index);
}

}  // namespace

frmMain::frmMain(ReportViewer& viewer, QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::frmMain>()), Viewer(viewer) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Tallyboard help");
    const auto trapped = [this](const char* location, std::string (frmMain::*procedure)()) {
        return [this, location, procedure] {
            RunTrapped(location, [this, procedure] { return (this->*procedure)(); });
        };
    };
    connect(ui->SelYear, &QComboBox::currentIndexChanged, this,
            trapped("Main.SelYear", &frmMain::SelYear_Click));
    connect(ui->SelSeries, &QComboBox::currentIndexChanged, this,
            trapped("Main.SelSeries", &frmMain::SelSeries_Click));
    connect(ui->SelRace, &QComboBox::currentIndexChanged, this,
            trapped("Main.SelRace", &frmMain::SelRace_Click));
    connect(ui->cmdSeries, &QPushButton::clicked, this,
            trapped("Main.cmdSeries", &frmMain::cmdSeries_Click));
    connect(ui->cmdEntries, &QPushButton::clicked, this,
            trapped("Main.cmdEntries", &frmMain::cmdEntries_Click));
    connect(ui->cmdResults, &QPushButton::clicked, this,
            trapped("Main.cmdResults", &frmMain::cmdResults_Click));
    connect(ui->cmdReports, &QPushButton::clicked, this,
            trapped("Main.cmdReports", &frmMain::cmdReports_Click));
    connect(ui->cmdBoats, &QPushButton::clicked, this,
            trapped("Main.cmdBoats", &frmMain::cmdBoats_Click));
    connect(ui->cmdPeople, &QPushButton::clicked, this,
            trapped("Main.cmdPeople", &frmMain::cmdPeople_Click));
    connect(ui->cmdScoring, &QPushButton::clicked, this,
            trapped("Main.cmdScoring", &frmMain::cmdScoring_Click));
    connect(ui->cmdSettings, &QPushButton::clicked, this,
            trapped("Main.cmdSettings", &frmMain::cmdSettings_Click));
    connect(ui->cmdExchange, &QPushButton::clicked, this,
            trapped("Main.cmdExchange", &frmMain::cmdExchange_Click));
    RunTrapped("Main.Load", [this] {
        ResultsDb = std::make_unique<clResults>();
        return LoadStartupPaths();
    });
}

// Terminate: the connection is closed with any error ignored, then the one clResults released.
frmMain::~frmMain() {
    if (ResultsDb)
        ResultsDb->CloseConnection();
}

int frmMain::CurrentSeriesId() const {
    return ItemId(ui->SelSeries);
}

int frmMain::CurrentRaceId() const {
    return ItemId(ui->SelRace);
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!ActivatedOnce) {
        ActivatedOnce = true;
        // After the window is on screen, so that a message appears over it.
        QTimer::singleShot(0, this, &frmMain::Activate);
    }
}

void frmMain::Activate() {
    std::string Msg = GetYear();
    if (Msg.empty())
        Msg = GetSeries();
    if (Msg.empty())
        Msg = GetSchedule();
    std::string Stamp;
    if (Msg.empty())
        Msg = ResultsDb->GetSetting("LastModified", Stamp);
    setWindowTitle(QStringLiteral("Tallyboard") + QString(19, QLatin1Char(' ')) +
                   QStringLiteral("Data last updated ") + QString::fromStdString(Stamp));
    ShowMessage(Msg);
}

std::string frmMain::GetYear() {
    return Trap("Main.GetYear", [this] {
        RowSet Years;
        std::string CurrentYear;
        const std::string Msg = ResultsDb->GetCurrentYear(Years, CurrentYear);
        int selected = -1;
        {
            const QSignalBlocker quiet(ui->SelYear);
            ui->SelYear->clear();
            if (Msg.empty() && !Years.IsEmpty()) {
                for (std::size_t row = 0; row < Years.Rows(); ++row) {
                    const std::string year = Years(clResults::YearsCol::Year, row).ToText();
                    ui->SelYear->addItem(QString::fromStdString(year),
                                         static_cast<int>(ParseNumber(year).value_or(0)));
                    if (year == CurrentYear)
                        selected = static_cast<int>(row);
                }
            }
        }
        SelectAsUser(ui->SelYear, selected);
        return Msg;
    });
}

std::string frmMain::GetSeries() {
    return Trap("Main.GetSeries", [this] {
        const std::string Year = ui->SelYear->currentIndex() < 0
                                     ? std::string()
                                     : ui->SelYear->currentText().toStdString();
        RowSet Series;
        int CurrentSeries = 0;
        const std::string Msg = ResultsDb->GetCurrentSeries(Series, CurrentSeries, Year);
        int selected = -1;
        {
            const QSignalBlocker quiet(ui->SelSeries);
            ui->SelSeries->clear();
            if (Msg.empty() && !Series.IsEmpty()) {
                for (std::size_t row = 0; row < Series.Rows(); ++row) {
                    const int id = static_cast<int>(Series(clResults::SeriesCol::Id, row).AsInt());
                    ui->SelSeries->addItem(
                        QString::fromStdString(Series(clResults::SeriesCol::Title, row).ToText()),
                        id);
                    if (id == CurrentSeries)
                        selected = static_cast<int>(row);
                }
                if (selected < 0)
                    selected = 0;
            }
        }
        SelectAsUser(ui->SelSeries, selected);
        return Msg;
    });
}

std::string frmMain::GetSchedule() {
    return Trap("GetSchedule", [this] {
        {
            const QSignalBlocker quiet(ui->SelRace);
            ui->SelRace->clear();
        }
        if (ui->SelSeries->currentIndex() < 0)
            return std::string();
        RowSet Schedule;
        int CurrentSchedule = 0;
        const std::string Msg =
            ResultsDb->GetCurrentSchedule(Schedule, CurrentSeriesId(), CurrentSchedule);
        int selected = -1;
        {
            const QSignalBlocker quiet(ui->SelRace);
            if (Msg.empty() && !Schedule.IsEmpty()) {
                for (std::size_t row = 0; row < Schedule.Rows(); ++row) {
                    const int id =
                        static_cast<int>(Schedule(clResults::ScheduleCol::Id, row).AsInt());
                    const std::string text =
                        Schedule(clResults::ScheduleCol::RaceName, row).ToText() + " - " +
                        Format(Schedule(clResults::ScheduleCol::RaceDate, row), "dd/mm/yyyy");
                    ui->SelRace->addItem(QString::fromStdString(text), id);
                    if (id == CurrentSchedule)
                        selected = static_cast<int>(row);
                }
                if (selected < 0)
                    selected = 0;
            }
        }
        SelectAsUser(ui->SelRace, selected);
        return Msg;
    });
}

std::string frmMain::CheckRaceSelection() {
    std::string Msg;
    if (ui->SelRace->currentIndex() < 0)
        Msg = "X-Please first  select a race or create a schedule for the series";
    if (ui->SelSeries->currentIndex() < 0)
        Msg = kNoSeries;
    RowSet Classes;
    if (Msg.empty())
        Msg = ResultsDb->GetEntryClasses(CurrentSeriesId(), Classes);
    if (Msg.empty()) {
        Msg = "X-This series has no associated classes.  Please check the series details";
        for (std::size_t row = 0; !Classes.IsEmpty() && row < Classes.Rows(); ++row) {
            if (Classes(clResults::EntryClassesCol::Flag, row).ToText() == "C")
                Msg.clear();
        }
    }
    return Msg;
}

std::string frmMain::SelYear_Click() {
    std::string Msg = GetSeries();
    if (Msg.empty())
        Msg = ResultsDb->PutSetting("LastSeriesYr", ui->SelYear->currentText().toStdString());
    return Msg;
}

std::string frmMain::SelSeries_Click() {
    std::string Msg = GetSchedule();
    if (Msg.empty() && ui->SelSeries->currentIndex() >= 0)
        Msg = ResultsDb->PutSetting("LastSeries", std::to_string(CurrentSeriesId()));
    return Msg;
}

std::string frmMain::SelRace_Click() {
    if (ui->SelRace->currentIndex() < 0)
        return {};
    return ResultsDb->PutSetting("LastSchedule", std::to_string(CurrentRaceId()));
}

std::string frmMain::cmdSeries_Click() {
    OpenSeriesEditor();
    Activate();
    return {};
}

std::string frmMain::cmdEntries_Click() {
    if (ui->SelSeries->currentIndex() < 0)
        return kNoSeries;
    if (ui->SelRace->count() == 0)
        return "X-Please first create a schedule for the series";
    OpenEntryEditor();
    Activate();
    return {};
}

std::string frmMain::cmdResults_Click() {
    const std::string Msg = CheckRaceSelection();
    if (!Msg.empty())
        return Msg;
    OpenResults();
    Activate();
    return {};
}

std::string frmMain::cmdReports_Click() {
    std::string Msg = ResultsDb->GetInitialisationInfo();
    if (Msg.empty())
        Msg = CheckRaceSelection();
    if (!Msg.empty())
        return Msg;
    OpenReports();
    Activate();
    return {};
}

std::string frmMain::cmdBoats_Click() {
    SelectedId = -1;
    OpenBoatEditor();
    Activate();
    return {};
}

std::string frmMain::cmdPeople_Click() {
    SelectedId = 0;
    OpenPeopleEditor();
    Activate();
    return {};
}

std::string frmMain::cmdScoring_Click() {
    OpenScoringEditor();
    Activate();
    return {};
}

std::string frmMain::cmdSettings_Click() {
    OpenOptions();
    Activate();
    return {};
}

// The race's finishes, results and standings are offered when a race is chosen.
std::string frmMain::cmdExchange_Click() {
    OpenImportExport();
    Activate();
    return {};
}

void frmMain::OpenSeriesEditor() {
    frmSeries window(*ResultsDb, CurrentSeriesId(), this);
    window.exec();
}

void frmMain::OpenEntryEditor() {
    frmEntryDetail window(*ResultsDb, CurrentSeriesId(), this);
    window.exec();
}

void frmMain::OpenResults() {
    frmResults window(*ResultsDb, CurrentSeriesId(), CurrentRaceId(), this);
    window.exec();
}

void frmMain::OpenReports() {
    frmReport window(*ResultsDb, CurrentSeriesId(), CurrentRaceId(), Viewer, this);
    window.exec();
}

void frmMain::OpenBoatEditor() {
    frmBoatDetail window(*ResultsDb, SelectedId, false, this);
    window.exec();
}

void frmMain::OpenPeopleEditor() {
    frmPeopleDetail window(*ResultsDb, SelectedId, false, this);
    window.exec();
}

void frmMain::OpenScoringEditor() {
    frmScoring window(*ResultsDb, this);
    window.exec();
}

void frmMain::OpenOptions() {
    frmOptions window(*ResultsDb, this);
    window.exec();
}

void frmMain::OpenImportExport() {
    frmImportExport window(*ResultsDb, ui->SelRace->currentIndex() < 0 ? 0 : CurrentRaceId(), this);
    window.exec();
}

// Unload: the chosen race is remembered for the next run; a failure to store it is not shown.
void frmMain::closeEvent(QCloseEvent* event) {
    if (ui->SelRace->currentIndex() >= 0)
        ResultsDb->PutSetting("LastSchedule", std::to_string(CurrentRaceId()));
    QMainWindow::closeEvent(event);
}

}  // namespace tb
