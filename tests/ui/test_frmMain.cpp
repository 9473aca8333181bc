#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "app/Globals.h"
#include "app/desktop/frmMain.h"
#include "data/Schema.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"

using namespace tb;

namespace {

using test::Items;
using test::Row;
using test::Shown;

const QString kTitleStart = QStringLiteral("Tallyboard") + QString(19, QLatin1Char(' ')) +
                            QStringLiteral("Data last updated ");

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<test::TemporarySettingsStore> store;
    std::unique_ptr<test::TestDatabase> db;
    std::unique_ptr<test::RecordingMessages> messages;
    test::RecordingViewer viewer;

    int AddSeries(const std::string& title) {
        db->Exec("INSERT INTO Series (Title, Scoring, Discards) VALUES ('" + title + "', 1, 1)");
        return static_cast<int>(db->raw().getLastInsertRowid());
    }
    int AddRace(int series, const std::string& name, const std::string& date) {
        db->Exec("INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" +
                 std::to_string(series) + ", '" + name + "', '" + date + " 00:00:00')");
        return static_cast<int>(db->raw().getLastInsertRowid());
    }
    void AddClass(int series) {
        db->Exec("INSERT INTO HandicapType (Description) VALUES ('Club')");
        db->Exec("INSERT INTO Class (Series, ClassName, HandicapType) VALUES (" +
                 std::to_string(series) + ", 'Cruisers', " +
                 std::to_string(db->raw().getLastInsertRowid()) + ")");
    }
    void Remember(const std::string& parameter, const std::string& value) {
        db->Exec("INSERT OR REPLACE INTO Settings (Parameter, Value) VALUES ('" + parameter +
                 "', '" + value + "')");
    }
    std::string Remembered(const std::string& parameter) {
        return db->Text("SELECT Value FROM Settings WHERE Parameter='" + parameter + "'");
    }

    std::unique_ptr<frmMain> OpenMain() {
        auto window = std::make_unique<frmMain>(viewer);
        window->show();
        test::SettleEvents();
        return window;
    }
    static QComboBox* List(frmMain& window, const char* name) {
        return window.findChild<QComboBox*>(QString::fromLatin1(name));
    }
    static void Press(frmMain& window, const char* button) {
        window.findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }

private slots:
    void init() {
        store = std::make_unique<test::TemporarySettingsStore>();
        db = std::make_unique<test::TestDatabase>();
        WriteStartupSetting(kDataFileKey, QString::fromStdString(db->path()));
        messages = std::make_unique<test::RecordingMessages>();
        viewer.opened.clear();
    }
    void cleanup() {
        messages.reset();
        db.reset();
        store.reset();
    }

    void restoresTheRememberedContextAndShowsTheStamp() {
        const int spring = AddSeries("Spring Cup");
        const int evening = AddSeries("Wednesday Evening");
        AddRace(spring, "Race 1", "2026-04-12");
        AddRace(evening, "Race 1", "2026-05-06");
        const int second = AddRace(evening, "Race 2", "2026-05-13");
        AddRace(evening, "Race 3", "2026-05-20");
        AddRace(spring, "Race 1", "2025-04-13");
        Remember("LastSeriesYr", "2026");
        Remember("LastSeries", std::to_string(evening));
        Remember("LastSchedule", std::to_string(second));
        Remember("LastModified", "21 Nov 2026 18:42");

        auto main = OpenMain();
        QCOMPARE(Items(List(*main, "SelYear")), QStringList({"2026", "2025"}));
        QCOMPARE(List(*main, "SelYear")->currentText(), QStringLiteral("2026"));
        QCOMPARE(Items(List(*main, "SelSeries")), QStringList({"Spring Cup", "Wednesday Evening"}));
        QCOMPARE(main->CurrentSeriesId(), evening);
        QCOMPARE(
            Items(List(*main, "SelRace")),
            QStringList({"Race 1 - 06/05/2026", "Race 2 - 13/05/2026", "Race 3 - 20/05/2026"}));
        QCOMPARE(main->CurrentRaceId(), second);
        QCOMPARE(main->windowTitle(), kTitleStart + QStringLiteral("21 Nov 2026 18:42"));
        QCOMPARE(Shown(*messages), QStringList());
        QCOMPARE(DataFile, db->path());
        QCOMPARE(ReportPath, DefaultReportPath());
    }

    void withoutAUsableYearEverySeriesIsListed_data() {
        QTest::addColumn<QString>("rememberedYear");
        Row("nothing remembered", QString());
        Row("a year without races any more", QStringLiteral("2019"));
    }
    void withoutAUsableYearEverySeriesIsListed() {
        QFETCH(QString, rememberedYear);
        AddRace(AddSeries("Winter Series"), "Race 1", "2025-12-07");
        AddRace(AddSeries("Autumn Series"), "Race 1", "2025-10-05");
        AddSeries("Summer Series");
        if (!rememberedYear.isEmpty())
            Remember("LastSeriesYr", rememberedYear.toStdString());

        auto main = OpenMain();
        QCOMPARE(List(*main, "SelYear")->currentIndex(), -1);
        QCOMPARE(Items(List(*main, "SelSeries")),
                 QStringList({"Autumn Series", "Summer Series", "Winter Series"}));
        QCOMPARE(List(*main, "SelSeries")->currentText(), QStringLiteral("Autumn Series"));
        QCOMPARE(Remembered("LastSeriesYr"),
                 rememberedYear.isEmpty() ? "<no row>" : rememberedYear.toStdString());
    }

    void aRememberedSeriesThatIsGoneGivesWayToTheFirst() {
        const int autumn = AddSeries("Autumn Series");
        AddRace(autumn, "Race 1", "2026-10-04");
        AddRace(AddSeries("Summer Series"), "Race 1", "2026-06-07");
        Remember("LastSeriesYr", "2026");
        Remember("LastSeries", "999");

        auto main = OpenMain();
        QCOMPARE(main->CurrentSeriesId(), autumn);
        QCOMPARE(Remembered("LastSeries"), std::to_string(autumn));
        QCOMPARE(List(*main, "SelRace")->currentText(), QStringLiteral("Race 1 - 04/10/2026"));
    }

    void aSeriesSpanningTwoYearsIsListedUnderBoth() {
        const int winter = AddSeries("Winter Series");
        AddRace(winter, "Race 1", "2025-12-07");
        const int january = AddRace(winter, "Race 2", "2026-01-04");
        AddRace(AddSeries("Spring Cup"), "Race 1", "2026-04-12");
        AddRace(AddSeries("Autumn Series"), "Race 1", "2025-10-05");
        Remember("LastSeriesYr", "2026");
        Remember("LastSeries", std::to_string(winter));
        Remember("LastSchedule", std::to_string(january));

        auto main = OpenMain();
        QCOMPARE(Items(List(*main, "SelSeries")), QStringList({"Spring Cup", "Winter Series"}));
        QCOMPARE(main->CurrentRaceId(), january);

        List(*main, "SelYear")->setCurrentIndex(1);
        QCOMPARE(Items(List(*main, "SelSeries")), QStringList({"Autumn Series", "Winter Series"}));
        QCOMPARE(main->CurrentSeriesId(), winter);
        QCOMPARE(Items(List(*main, "SelRace")),
                 QStringList({"Race 1 - 07/12/2025", "Race 2 - 04/01/2026"}));
        QCOMPARE(Remembered("LastSeriesYr"), std::string("2025"));
        QCOMPARE(Shown(*messages), QStringList());
    }

    void choosingASeriesAndARaceRemembersThem() {
        const int autumn = AddSeries("Autumn Series");
        AddRace(autumn, "Race 1", "2026-10-04");
        const int summer = AddSeries("Summer Series");
        AddRace(summer, "Race 1", "2026-06-07");
        const int summerSecond = AddRace(summer, "Race 2", "2026-06-14");

        auto main = OpenMain();
        List(*main, "SelSeries")->setCurrentIndex(1);
        QCOMPARE(Remembered("LastSeries"), std::to_string(summer));
        List(*main, "SelRace")->setCurrentIndex(1);
        QCOMPARE(Remembered("LastSchedule"), std::to_string(summerSecond));

        db->Exec("DELETE FROM Settings WHERE Parameter='LastSchedule'");
        main->close();
        QCOMPARE(Remembered("LastSchedule"), std::to_string(summerSecond));
    }

    void buttonsRefuseUntilTheContextIsComplete_data() {
        QTest::addColumn<QString>("situation");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("message");
        const QString noSeries = QStringLiteral("E-Please first select or create a series");
        const QString noRace =
            QStringLiteral("E-Please first  select a race or create a schedule for the series");
        Row("entries, no series", "empty", "cmdEntries", noSeries);
        Row("results, no series", "empty", "cmdResults", noSeries);
        Row("reports, no series", "empty", "cmdReports", noSeries);
        Row("entries, series without races", "no races", "cmdEntries",
            QStringLiteral("E-Please first create a schedule for the series"));
        Row("results, series without races", "no races", "cmdResults", noRace);
        Row("reports, series without races", "no races", "cmdReports", noRace);
        Row("results, series without classes", "no classes", "cmdResults",
            QStringLiteral("I-There are no classes in this series"));
        Row("reports, series without classes", "no classes", "cmdReports",
            QStringLiteral("I-There are no classes in this series"));
    }
    void buttonsRefuseUntilTheContextIsComplete() {
        QFETCH(QString, situation);
        QFETCH(QString, button);
        QFETCH(QString, message);
        if (situation != "empty") {
            const int series = AddSeries("Summer Series");
            if (situation == "no classes")
                AddRace(series, "Race 1", "2026-06-07");
        }

        auto main = OpenMain();
        const test::NextModal opened;
        Press(*main, button.toLatin1().constData());
        QCOMPARE(Shown(*messages), QStringList({message}));
        QVERIFY(opened.name.isEmpty());
    }

    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("window");
        QTest::addColumn<int>("selectedId");
        QTest::addColumn<QStringList>("shown");
        Row("series", "cmdSeries", "frmSeries", 7, QStringList());
        Row("entries", "cmdEntries", "frmEntryDetail", 7, QStringList());
        Row("results", "cmdResults", "frmResults", 7,
            QStringList({"I-This race does not have any entrants"}));
        Row("reports", "cmdReports", "frmReport", 7, QStringList());
        Row("boats", "cmdBoats", "frmBoatDetail", -1, QStringList());
        Row("people", "cmdPeople", "frmPeopleDetail", 0, QStringList());
        Row("scoring", "cmdScoring", "frmScoring", 7, QStringList());
        Row("options", "cmdSettings", "frmOptions", 7, QStringList());
    }
    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards() {
        QFETCH(QString, button);
        QFETCH(QString, window);
        QFETCH(int, selectedId);
        QFETCH(QStringList, shown);
        const int summer = AddSeries("Summer Series");
        const int race = AddRace(summer, "Race 1", "2026-06-07");
        AddClass(summer);
        // A started class keeps the results window from opening the start times window itself.
        db->Exec("INSERT INTO Start (Schedule, Class, StartTime) VALUES (" + std::to_string(race) +
                 ", " + std::to_string(db->raw().getLastInsertRowid()) +
                 ", '2026-06-07 18:30:00')");
        Remember("LastModified", "01 Jun 2026 09:00");
        SelectedId = 7;

        auto main = OpenMain();
        const test::NextModal opened([this](QDialog&) {
            AddRace(AddSeries("Autumn Series"), "Race 1", "2026-10-04");
            Remember("LastModified", "02 Jun 2026 10:15");
        });
        Press(*main, button.toLatin1().constData());
        QCOMPARE(opened.name, window);
        QCOMPARE(SelectedId, selectedId);
        QCOMPARE(main->windowTitle(), kTitleStart + QStringLiteral("02 Jun 2026 10:15"));
        QCOMPARE(Items(List(*main, "SelSeries")), QStringList({"Autumn Series", "Summer Series"}));
        QCOMPARE(main->CurrentSeriesId(), summer);
        QCOMPARE(Shown(*messages), shown);
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

        auto main = OpenMain();
        const QStringList shown = Shown(*messages);
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.front().startsWith("C-Error ") && shown.front().contains(" in ConnectDb"),
                 qPrintable(shown.front()));
        QCOMPARE(List(*main, "SelYear")->count(), 0);
        QCOMPARE(List(*main, "SelSeries")->count(), 0);
        QCOMPARE(List(*main, "SelRace")->count(), 0);
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
        const test::NextModal boats;
        Press(*main, "cmdBoats");
        QCOMPARE(Shown(*messages), QStringList());
        QCOMPARE(Items(List(*main, "SelSeries")), QStringList({"Summer Series"}));
        QCOMPARE(main->windowTitle(), kTitleStart + QStringLiteral("03 Jun 2026 08:30"));
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_frmMain.moc"
