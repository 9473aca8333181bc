#include "app/desktop/frmMain.h"

#include <QCloseEvent>
#include <QSignalBlocker>
#include <QTimer>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
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

// Runs a fill procedure of the window under its error location.
template <typename Fill>
std::string Trapped(const char* location, Fill fill) {
    try {
        return ErrorText(fill(), location);
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, location, &pending);
    }
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
    : QMainWindow(parent), ui(std::make_unique<Ui::frmMain>()), viewer(viewer) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Tallyboard help");
    connect(ui->SelYear, &QComboBox::currentIndexChanged, this, &frmMain::SelYear_Click);
    connect(ui->SelSeries, &QComboBox::currentIndexChanged, this, &frmMain::SelSeries_Click);
    connect(ui->SelRace, &QComboBox::currentIndexChanged, this, &frmMain::SelRace_Click);
    connect(ui->cmdSeries, &QPushButton::clicked, this, &frmMain::cmdSeries_Click);
    connect(ui->cmdEntries, &QPushButton::clicked, this, &frmMain::cmdEntries_Click);
    connect(ui->cmdResults, &QPushButton::clicked, this, &frmMain::cmdResults_Click);
    connect(ui->cmdReports, &QPushButton::clicked, this, &frmMain::cmdReports_Click);
    connect(ui->cmdBoats, &QPushButton::clicked, this, &frmMain::cmdBoats_Click);
    connect(ui->cmdPeople, &QPushButton::clicked, this, &frmMain::cmdPeople_Click);
    connect(ui->cmdScoring, &QPushButton::clicked, this, &frmMain::cmdScoring_Click);
    connect(ui->cmdSettings, &QPushButton::clicked, this, &frmMain::cmdSettings_Click);
    connect(ui->cmdExchange, &QPushButton::clicked, this, &frmMain::cmdExchange_Click);
    Load();
}

// Terminate: the connection is closed with any error ignored, then the one clResults released.
frmMain::~frmMain() {
    if (ResultsDb)
        ResultsDb->CloseConnection();
}

void frmMain::Load() {
    try {
        ResultsDb = std::make_unique<clResults>();
        ShowMessage(LoadStartupPaths());
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        ShowMessage(ErrorText({}, "Main.Load", &pending));
    }
}

int frmMain::CurrentSeriesId() const {
    return ItemId(ui->SelSeries);
}

int frmMain::CurrentRaceId() const {
    return ItemId(ui->SelRace);
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!activatedOnce) {
        activatedOnce = true;
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
    return Trapped("Main.GetYear", [this] {
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
    return Trapped("Main.GetSeries", [this] {
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
    return Trapped("GetSchedule", [this] {
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

void frmMain::SelYear_Click() {
    std::string Msg = GetSeries();
    if (Msg.empty())
        Msg = ResultsDb->PutSetting("LastSeriesYr", ui->SelYear->currentText().toStdString());
    ShowMessage(Msg);
}

void frmMain::SelSeries_Click() {
    std::string Msg = GetSchedule();
    if (Msg.empty() && ui->SelSeries->currentIndex() >= 0)
        Msg = ResultsDb->PutSetting("LastSeries", std::to_string(CurrentSeriesId()));
    ShowMessage(Msg);
}

void frmMain::SelRace_Click() {
    if (ui->SelRace->currentIndex() < 0)
        return;
    ShowMessage(ResultsDb->PutSetting("LastSchedule", std::to_string(CurrentRaceId())));
}

void frmMain::cmdSeries_Click() {
    OpenSeriesEditor();
    Activate();
}

void frmMain::cmdEntries_Click() {
    if (ui->SelSeries->currentIndex() < 0) {
        ShowMessage(kNoSeries);
        return;
    }
    if (ui->SelRace->count() == 0) {
        ShowMessage("X-Please first create a schedule for the series");
        return;
    }
    OpenEntryEditor();
    Activate();
}

void frmMain::cmdResults_Click() {
    const std::string Msg = CheckRaceSelection();
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    OpenResults();
    Activate();
}

void frmMain::cmdReports_Click() {
    std::string Msg = ResultsDb->GetInitialisationInfo();
    if (Msg.empty())
        Msg = CheckRaceSelection();
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    OpenReports();
    Activate();
}

void frmMain::cmdBoats_Click() {
    SelectedId = -1;
    OpenBoatEditor();
    Activate();
}

void frmMain::cmdPeople_Click() {
    SelectedId = 0;
    OpenPeopleEditor();
    Activate();
}

void frmMain::cmdScoring_Click() {
    OpenScoringEditor();
    Activate();
}

void frmMain::cmdSettings_Click() {
    OpenOptions();
    Activate();
}

// The race's finishes, results and standings are offered when a race is chosen.
void frmMain::cmdExchange_Click() {
    OpenImportExport();
    Activate();
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
    frmReport window(*ResultsDb, CurrentSeriesId(), CurrentRaceId(), viewer, this);
    window.exec();
}

void frmMain::OpenBoatEditor() {
    frmBoatDetail window(*ResultsDb, SelectedId, {}, this);
    window.exec();
}

void frmMain::OpenPeopleEditor() {
    frmPeopleDetail window(*ResultsDb, SelectedId, {}, this);
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
