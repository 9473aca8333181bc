#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "app/Globals.h"
#include "app/desktop/frmMain.h"
#include "data/Schema.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"

using namespace tb;
using namespace tb::test;

namespace {

const QString kTitleStart = QStringLiteral("Tallyboard") + QString(19, QLatin1Char(' ')) +
                            QStringLiteral("Data last updated ");

struct Recalled {
    std::string year, series;
    QString yearShown;
    QStringList listed;
};

struct Refusal {
    QString situation, button, message;
};

struct Opening {
    QString button, window;
    int selectedId;
    QStringList shown;
};

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TemporarySettingsStore> store;
    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<RecordingMessages> messages;
    RecordingViewer viewer;
    std::unique_ptr<frmMain> main;
    Controls c{nullptr};

    int AddSeries(const std::string& title) {
        db->Exec("INSERT INTO Series (Title, Scoring, Discards) VALUES ('" + title + "', 1, 1)");
        return static_cast<int>(db->raw().getLastInsertRowid());
    }
    int AddRace(int series, const std::string& name, const std::string& date) {
        db->Exec("INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" +
                 std::to_string(series) + ", '" + name + "', '" + date + " 00:00:00')");
        return static_cast<int>(db->raw().getLastInsertRowid());
    }
    void Remember(const std::string& parameter, const std::string& value) {
        db->Exec("INSERT OR REPLACE INTO Settings (Parameter, Value) VALUES ('" + parameter +
                 "', '" + value + "')");
    }
    std::string Remembered(const std::string& parameter) {
        return db->Text("SELECT Value FROM Settings WHERE Parameter='" + parameter + "'");
    }
    void OpenMain() {
        main = std::make_unique<frmMain>(viewer);
        c.window = main.get();
        main->show();
        SettleEvents();
    }
    QStringList Listed(const char* list) { return Items(c.Get<QComboBox>(list)); }

private slots:
    void init() {
        store = std::make_unique<TemporarySettingsStore>();
        db = std::make_unique<TestDatabase>();
        WriteStartupSetting(kDataFileKey, QString::fromStdString(db->path()));
        messages = std::make_unique<RecordingMessages>();
        viewer.opened.clear();
    }
    void cleanup() {
        main.reset();
        messages.reset();
        db.reset();
        store.reset();
    }

    void buttonsRefuseUntilTheContextIsComplete_data() {
        QTest::addColumn<Refusal>("refusal");
        const QString noSeries = "E-Please first select or create a series";
        const QString noRace = "E-Please first  select a race or create a schedule for the series";
        const QString noClass = "I-There are no classes in this series";
        Row("entries, no series", Refusal{"empty", "cmdEntries", noSeries});
        Row("results, no series", Refusal{"empty", "cmdResults", noSeries});
        Row("reports, no series", Refusal{"empty", "cmdReports", noSeries});
        Row("entries, series without races",
            Refusal{"no races", "cmdEntries", "E-Please first create a schedule for the series"});
        Row("results, series without races", Refusal{"no races", "cmdResults", noRace});
        Row("reports, series without races", Refusal{"no races", "cmdReports", noRace});
        Row("results, series without classes", Refusal{"no classes", "cmdResults", noClass});
        Row("reports, series without classes", Refusal{"no classes", "cmdReports", noClass});
    }
    void buttonsRefuseUntilTheContextIsComplete() {
        QFETCH(Refusal, refusal);
        if (refusal.situation != "empty") {
            const int series = AddSeries("Summer Series");
            if (refusal.situation == "no classes")
                AddRace(series, "Race 1", "2026-06-07");
        }
        OpenMain();
        const NextModal opened;
        c.Press(refusal.button.toLatin1().constData());
        QCOMPARE(Shown(*messages), QStringList({refusal.message}));
        QVERIFY(opened.name.isEmpty());
    }

    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards_data() {
        QTest::addColumn<Opening>("opening");
        Row("series", Opening{"cmdSeries", "frmSeries", 7, {}});
        Row("entries", Opening{"cmdEntries", "frmEntryDetail", 7, {}});
        Row("results",
            Opening{"cmdResults", "frmResults", 7, {"I-This race does not have any entrants"}});
        Row("reports", Opening{"cmdReports", "frmReport", 7, {}});
        Row("boats", Opening{"cmdBoats", "frmBoatDetail", -1, {}});
        Row("people", Opening{"cmdPeople", "frmPeopleDetail", 0, {}});
        Row("scoring", Opening{"cmdScoring", "frmScoring", 7, {}});
        Row("options", Opening{"cmdSettings", "frmOptions", 7, {}});
    }
    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards() {
        QFETCH(Opening, opening);
        const int summer = AddSeries("Summer Series");
        const int race = AddRace(summer, "Race 1", "2026-06-07");
        db->Exec("INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club')");
        db->Exec("INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (1, " +
                 std::to_string(summer) + ", 'Cruisers', 1)");
        // A started class keeps the results window from opening the start times window itself.
        db->Exec("INSERT INTO Start (Schedule, Class, StartTime) VALUES (" + std::to_string(race) +
                 ", 1, '2026-06-07 18:30:00')");
        Remember("LastModified", "01 Jun 2026 09:00");
        SelectedId = 7;

        OpenMain();
        QString shared = SharedAccelerators(*main);
        const NextModal opened([&](QDialog& window) {
            shared += SharedAccelerators(window);
            AddRace(AddSeries("Autumn Series"), "Race 1", "2026-10-04");
            Remember("LastModified", "02 Jun 2026 10:15");
        });
        c.Press(opening.button.toLatin1().constData());
        QCOMPARE(opened.name, opening.window);
        QCOMPARE(shared, QString());
        QCOMPARE(SelectedId, opening.selectedId);
        QCOMPARE(main->windowTitle(), kTitleStart + QStringLiteral("02 Jun 2026 10:15"));
        QCOMPARE(Listed("SelSeries"), QStringList({"Autumn Series", "Summer Series"}));
        QCOMPARE(main->CurrentSeriesId(), summer);
        QCOMPARE(Shown(*messages), opening.shown);
    }

    void anUnusableDataFileIsReportedOnce_data() {
        QTest::addColumn<bool>("exists");
        Row("missing", false);
        Row("not a database", true);
    }
    void anUnusableDataFileIsReportedOnce() {
        QFETCH(bool, exists);
        const std::string path = db->folder() + "/later.db";
        if (exists) {
            SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
                .exec("CREATE TABLE Notes (Line TEXT)");
        }
        WriteStartupSetting(kDataFileKey, QString::fromStdString(path));

        OpenMain();
        const QStringList shown = Shown(*messages);
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.front().startsWith("C-Error ") && shown.front().contains(" in ConnectDb"),
                 qPrintable(shown.front()));
        for (const char* list : {"SelYear", "SelSeries", "SelRace"})
            QCOMPARE(c.Get<QComboBox>(list)->count(), 0);
        QCOMPARE(main->windowTitle(), kTitleStart);
        if (exists)
            return;

        // Once the file is there, the next window opened finds it.
        QCOMPARE(CreateDatabase(path), std::string());
        SQLite::Database(path, SQLite::OPEN_READWRITE)
            .exec(
                "INSERT INTO Series (Title) VALUES ('Summer Series');"
                "INSERT INTO Settings (Parameter, Value) VALUES ('LastModified', '03 Jun 2026 "
                "08:30')");
        messages->Clear();
        const NextModal boats;
        c.Press("cmdBoats");
        QCOMPARE(Shown(*messages), QStringList());
        QCOMPARE(Listed("SelSeries"), QStringList({"Summer Series"}));
        QCOMPARE(main->windowTitle(), kTitleStart + QStringLiteral("03 Jun 2026 08:30"));
    }

    // A fresh account starting an installed copy: a new database and the style sheets in the
    // user's data folder, the settings pointed at the database, and no message at all.
    void aFirstStartMakesTheUsersDatabaseWithoutAMessage() {
        TempFolder root;
        const std::string installed = root.path() + "/usr/share/tallyboard";
        std::filesystem::create_directories(installed);
        std::filesystem::copy(ProgramFolder() + "/Reports", installed + "/Reports");
        SetProgramFolder(installed);
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(root.path() + "/data"));
        WriteStartupSetting(kDataFileKey, QString());

        OpenMain();
        SetProgramFolder("");
        qunsetenv("XDG_DATA_HOME");
        const std::string user = root.path() + "/data/Tallyboard/";
        QCOMPARE(Shown(*messages), QStringList());
        QCOMPARE(DataFile, user + "Tallyboard.db");
        QCOMPARE(ReadStartupSetting(kDataFileKey).toStdString(), DataFile);
        QCOMPARE(ReportPath, user + "Reports/");
        QVERIFY(std::filesystem::is_regular_file(ReportPath + "results.xsl"));
        QCOMPARE(main->windowTitle(), kTitleStart);
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_frmMain.moc"
