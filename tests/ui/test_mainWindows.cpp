// The main window and the windows that write files: its buttons open their windows or say why
// not, the report window writes the chosen report and opens it with its action's viewer, and
// the import window previews a file before importing it whole.

#include <QFileInfo>
#include <QTableWidget>
#include <filesystem>
#include <fstream>

#include "app/Globals.h"
#include "app/desktop/frmMain.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"
#include "ui/frmImportExport.h"
#include "ui/frmReport.h"

using namespace tb;
using namespace tb::test;

namespace {

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

const QString kCsv = QString(TALLYBOARD_TEST_FIXTURES) + "/csv/";
const QString kData = QString(TALLYBOARD_TEST_FIXTURES) + "/../data/";

// Tabs from the kind to the file field, types the path and presses Enter.
void OpenFile(const QString& path) {
    Key(Qt::Key_Tab);
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys(path);
    Enter();
}

QStringList Headings(const QTableWidget* table) {
    QStringList headings;
    for (int c = 0; c < table->columnCount(); ++c)
        headings << table->horizontalHeaderItem(c)->text();
    return headings;
}

}  // namespace

class MainWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void mainButtonsRefuseUntilTheContextIsComplete_data() { CasesFrom("main-refusals.tsv"); }
    void mainButtonsRefuseUntilTheContextIsComplete() {
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

    void mainButtonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards_data() {
        CasesFrom("main-openings.tsv");
    }
    void mainButtonsOpenTheirWindowsAndTheListsAreRefreshedAfterwards() {
        Main m;
        const QStringList opening = Case();
        m.db.Exec(DataText("main-season.sql"));
        SelectedId = 7;
        m.Open();
        QString shared = SharedAccelerators(*m.main);
        const NextModal opened([&](QDialog& window) {
            shared += SharedAccelerators(window);
            m.db.Exec(DataText("autumn-added.sql"));
        });
        m.c.Press(opening[0].toLatin1());
        QCOMPARE(opened.name, opening[1]);
        QCOMPARE(shared, QString());
        QCOMPARE(SelectedId, opening[2].toInt());
        QCOMPARE(m.main->windowTitle(), kTitleStart + QStringLiteral("02 Jun 2026 10:15"));
        QCOMPARE(m.c.Items("SelSeries"), QStringList({"Autumn Series", "Summer Series"}));
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

    void okWritesTheReportAndOpensItWithTheActionsViewer_data() { CasesFrom("report-viewers.tsv"); }
    void okWritesTheReportAndOpensItWithTheActionsViewer() {
        const QStringList written = Case();
        const bool writable = written[2] == "yes";
        const TempFolder programFolder;
        std::ofstream(programFolder.path() + "/Tallyboard.ini") << DataText("report-menu.ini");
        SetProgramFolder(programFolder.path());
        RaceDay day;
        day.AddBoat("Blue Heron", "GBR 4012", RaceDay::kClass1);
        clResults results;
        RecordingMessages messages;
        RecordingViewer viewer;
        QCOMPARE(results.GetInitialisationInfo(), std::string());
        ReportPath = (writable ? day.db.folder() : day.db.path()) + "/";
        Opened<frmReport> c(results, RaceDay::kSeries, RaceDay::kRace, viewer);
        c.Press("rReport_0");
        FocusOn(c.Get<QListWidget>("SelAction"));
        Key(Qt::Key_Home);
        for (int step = 0; step < written[0].toInt(); ++step)
            Key(Qt::Key_Down);
        c.Press("cmdOK");
        SetProgramFolder({});

        QVERIFY(c.w.isVisible());
        const QString file = QString::fromStdString(ReportPath) + "2005/0612__2E.xml";
        QCOMPARE(QFileInfo::exists(file), writable);
        QCOMPARE(c.Label("lStatus"), writable ? "Written to " + file : QString());
        QCOMPARE(messages.shown.size(), std::size_t{writable ? 0u : 1u});
        QCOMPARE(viewer.opened,
                 written[1].isEmpty() ? QStringList() : QStringList({written[1] + ": " + file}));
    }

    // A file with a problem shows its rows and the problem, and offers no import; a good one
    // shows which column each field is read as and imports whole.
    void anImportPreviewsThenImportsTheWholeFile() {
        Club club;
        Opened<frmImportExport> c(club.results, 0);
        Key(Qt::Key_Down);
        Key(Qt::Key_Down);
        QCOMPARE(c.Current("SelKind"), QString("Boats"));

        OpenFile(kCsv + "bad/twice.csv");
        QCOMPARE(c.Items("listProblems"),
                 QStringList{"twice.csv row 3, column Sail No: the sail number of row 2 again"});
        QCOMPARE(c.Get<QTableWidget>("listPreview")->rowCount(), 2);
        QVERIFY(!c.Get("cmdImport")->isEnabled());

        Key(Qt::Key_Backtab);
        OpenFile(kCsv + "club/boats.csv");
        QCOMPARE(
            Headings(c.Get<QTableWidget>("listPreview")).join("|"),
            QString(
                "Yacht\n= Boat|Sail #\n= Sail No|Design\n= Model|Helm\n= Owner|Colour\n(ignored)"));
        QCOMPARE(c.Get<QTableWidget>("listPreview")->item(1, 0)->text(), QString("Tern, the"));
        QVERIFY(c.Items("listProblems").isEmpty());
        QCOMPARE(club.db.Count("Boat"), 0);

        c.Press("cmdImport");
        QCOMPARE(club.db.Count("Boat"), 4);
        QCOMPARE(club.db.Count("People"), 4);
        QCOMPARE(c.Label("lInfo") + "\n",
                 QString::fromStdString(DataText("boat-import-summary.txt")));
        QVERIFY(!c.Get("cmdImport")->isEnabled());
        QVERIFY(club.messages.shown.empty());
    }

    // A series file of another scoring program: a fault is a message and nothing is written;
    // a good file is imported whole and the window lists the same summary as the command line.
    void anImportedSeriesFileListsWhatItBroughtAcross() {
        Club club;
        Opened<frmImportExport> c(club.results, 0);
        for (int down = 0; down < 4; ++down)
            Key(Qt::Key_Down);
        QCOMPARE(c.Current("SelKind"), QString("Series from another scoring program (.blw)"));
        QVERIFY(!c.Get("cmdExport")->isEnabled());

        OpenFile(kData + "blw/bad-time.blw");
        c.Press("cmdImport");
        QCOMPARE(
            Shown(club.messages),
            QStringList{"E-Line 15 (rft): the finish time '10:7x:00' does not read as a time"});
        QCOMPARE(club.db.Count("Series"), 0);

        c.Type("tFile", kData + "blw/season.blw");
        Enter();
        c.Press("cmdImport");
        // The command line's golden summary, beside the core tests' data.
        const QString summary = QString::fromStdString(DataText("../../data/golden/blw-season.txt"))
                                    .section("==\n", 0, 0);
        QCOMPARE(c.Items("listProblems"), summary.trimmed().split('\n'));
        QCOMPARE(c.Label("lInfo"), QString("Imported: Series 1: Harbour Frostbite (classes: 4)"));
        QCOMPARE(club.db.Count("Series"), 2);
        QVERIFY(!c.Get("cmdImport")->isEnabled());
    }
};

QTEST_MAIN(MainWindowsTest)
#include "test_mainWindows.moc"
