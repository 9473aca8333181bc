#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "app/Globals.h"
#include "app/desktop/frmMain.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"

using namespace tb;
using namespace tb::test;

const QString kTitleStart = QStringLiteral("Tallyboard") + QString(19, QLatin1Char(' ')) +
                            QStringLiteral("Data last updated ");

// The main window over a fresh database that the user's settings name.
struct Main {
    TemporarySettingsStore store;
    TestDatabase db;
    RecordingMessages messages;
    RecordingViewer viewer;
    std::unique_ptr<frmMain> main;
    Controls c{nullptr};
    Main() { WriteStartupSetting(kDataFileKey, QString::fromStdString(db.path())); }
    void Open() {
        main = std::make_unique<frmMain>(viewer);
        c.window = main.get();
        main->show();
        SettleEvents();
    }
};

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void buttonsRefuseUntilTheContextIsComplete_data() { CasesFrom("main-refusals.tsv"); }
    void buttonsRefuseUntilTheContextIsComplete() {
        Main m;
        const QStringList refusal = Case();
        if (refusal[0] != "empty")
            m.db.Exec(
                "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1)");
        if (refusal[0] == "no classes")
            m.db.Exec("INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2026-06-07 00:00:00')");
        m.Open();
        const NextModal opened;
        m.c.Press(refusal[1].toLatin1());
        QCOMPARE(Shown(m.messages), QStringList({refusal[2]}));
        QVERIFY(opened.name.isEmpty());
    }

    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards_data() {
        CasesFrom("main-openings.tsv");
    }
    void buttonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards() {
        Main m;
        const QStringList opening = Case();
        m.db.Exec(DataText("main-season.sql"));
        SelectedId = 7;
        m.Open();
        QString shared = SharedAccelerators(*m.main);
        const NextModal opened([&](QDialog& window) {
            shared += SharedAccelerators(window);
            m.db.Exec(
                "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (2, 'Autumn Series', 1, "
                "1);"
                "INSERT INTO Schedule (Series, RaceDate) VALUES (2, '2026-10-04 00:00:00');"
                "UPDATE Settings SET Value = '02 Jun 2026 10:15' WHERE Parameter = 'LastModified'");
        });
        m.c.Press(opening[0].toLatin1());
        QCOMPARE(opened.name, opening[1]);
        QCOMPARE(shared, QString());
        QCOMPARE(SelectedId, opening[2].toInt());
        QCOMPARE(m.main->windowTitle(), kTitleStart + QStringLiteral("02 Jun 2026 10:15"));
        QCOMPARE(Items(m.c.Get<QComboBox>("SelSeries")),
                 QStringList({"Autumn Series", "Summer Series"}));
        QCOMPARE(m.main->CurrentSeriesId(), 1);
        QCOMPARE(Shown(m.messages), opening[3].isEmpty() ? QStringList() : QStringList{opening[3]});
    }

    void anUnusableDataFileIsReportedOnce_data() {
        QTest::addColumn<bool>("exists");
        QTest::newRow("missing") << false;
        QTest::newRow("not a database") << true;
    }
    void anUnusableDataFileIsReportedOnce() {
        Main m;
        QFETCH(bool, exists);
        const std::string path = m.db.folder() + "/later.db";
        if (exists) {
            SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
                .exec("CREATE TABLE Notes (Line TEXT)");
        }
        WriteStartupSetting(kDataFileKey, QString::fromStdString(path));

        m.Open();
        const QStringList shown = Shown(m.messages);
        QCOMPARE(shown.size(), 1);
        QVERIFY2(shown.front().startsWith("C-Error ") && shown.front().contains(" in ConnectDb"),
                 qPrintable(shown.front()));
        for (const char* list : {"SelYear", "SelSeries", "SelRace"})
            QCOMPARE(m.c.Get<QComboBox>(list)->count(), 0);
        QCOMPARE(m.main->windowTitle(), kTitleStart);
    }

    // A fresh account starting an installed copy: a new database and the style sheets in the
    // user's data folder, the settings pointed at the database, and no message at all.
    void aFirstStartMakesTheUsersDatabaseWithoutAMessage() {
        Main m;
        TempFolder root;
        const std::string installed = root.path() + "/usr/share/tallyboard";
        std::filesystem::create_directories(installed);
        std::filesystem::copy(ProgramFolder() + "/Reports", installed + "/Reports");
        SetProgramFolder(installed);
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(root.path() + "/data"));
        WriteStartupSetting(kDataFileKey, QString());

        m.Open();
        SetProgramFolder("");
        qunsetenv("XDG_DATA_HOME");
        const std::string user = root.path() + "/data/Tallyboard/";
        QCOMPARE(Shown(m.messages), QStringList());
        QCOMPARE(DataFile, user + "Tallyboard.db");
        QCOMPARE(ReadStartupSetting(kDataFileKey).toStdString(), DataFile);
        QCOMPARE(ReportPath, user + "Reports/");
        QVERIFY(std::filesystem::is_regular_file(ReportPath + "results.xsl"));
        QCOMPARE(m.main->windowTitle(), kTitleStart);
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_frmMain.moc"
