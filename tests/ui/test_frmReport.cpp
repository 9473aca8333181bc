#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <fstream>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/frmReport.h"

using namespace tb;
using test::Row;

namespace {

// Slots 1 and 4 are free; race results offer two actions with different entrant selections; the
// entry list's actions deliver the XML itself, one for each way of opening it.
constexpr const char* kMenu =
    "[Entry list by handicap]\n"
    "Everyone=,,,2,1\n"
    "In a spreadsheet=,,,2,2\n"
    "As a web page=,,,2,3\n"
    "Filed only=,,,2,0\n"
    "[]\n"
    "[Class sheet]\n"
    "Sheet=classes.xsl,,,0,2\n"
    "[Race results]\n"
    "Series entrants=results.xsl,,,0,1\n"
    "Sub-series entrants=results.xsl,,,1,3\n"
    "[]\n"
    "[Combined results]\n";

}  // namespace

class ReportWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<test::TempFolder> programFolder;
    std::unique_ptr<test::TestDatabase> db;
    std::unique_ptr<test::RecordingMessages> messages;
    std::unique_ptr<clResults> results;
    test::RecordingViewer viewer;
    int seriesId = 0;
    int raceId = 0;

    // One boat of the series' only class, entered for the race.
    void EnterABoat() {
        const std::string series = std::to_string(seriesId);
        db->Exec("INSERT INTO HandicapType (Description) VALUES ('Club')");
        const std::string type = std::to_string(db->raw().getLastInsertRowid());
        db->Exec("INSERT INTO Class (Series, ClassName, HandicapType) VALUES (" + series +
                 ", 'Cruisers', " + type + ")");
        const std::string cls = std::to_string(db->raw().getLastInsertRowid());
        db->Exec("INSERT INTO People (Firstname, Lastname) VALUES ('Ann', 'Lee')");
        const std::string person = std::to_string(db->raw().getLastInsertRowid());
        db->Exec("INSERT INTO BoatType (Model) VALUES ('Sigma 33')");
        const std::string model = std::to_string(db->raw().getLastInsertRowid());
        db->Exec(
            "INSERT INTO Boat (BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES "
            "('Blue Heron', " +
            model + ", 'GBR 4012', 4012, " + person + ")");
        const std::string boat = std::to_string(db->raw().getLastInsertRowid());
        db->Exec("INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant) VALUES (" +
                 series + ", " + boat + ", " + cls + ", 0, " + person + ")");
        db->Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (" +
                 std::to_string(db->raw().getLastInsertRowid()) + ", " + std::to_string(raceId) +
                 ")");
    }

    QRadioButton* Kind(QWidget& window, int kind) {
        return window.findChild<QRadioButton*>(QStringLiteral("rReport_%1").arg(kind));
    }
    static QStringList Actions(QWidget& window) {
        QStringList actions;
        const auto* list = window.findChild<QListWidget*>(QStringLiteral("SelAction"));
        for (int row = 0; row < list->count(); ++row) {
            actions << list->item(row)->text() + " / " +
                           list->item(row)->data(Qt::UserRole).toString();
        }
        return actions;
    }

private slots:
    void init() {
        programFolder = std::make_unique<test::TempFolder>();
        std::ofstream(programFolder->path() + "/Tallyboard.ini") << kMenu;
        SetProgramFolder(programFolder->path());
        db = std::make_unique<test::TestDatabase>();
        db->Exec("INSERT INTO Series (Title) VALUES ('Wednesday Evening')");
        seriesId = static_cast<int>(db->raw().getLastInsertRowid());
        db->Exec("INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" +
                 std::to_string(seriesId) + ", 'Race 4', '2026-06-03 00:00:00')");
        raceId = static_cast<int>(db->raw().getLastInsertRowid());
        messages = std::make_unique<test::RecordingMessages>();
        viewer.opened.clear();
        results = std::make_unique<clResults>();
        QCOMPARE(results->GetInitialisationInfo(), std::string());
    }
    void cleanup() {
        results.reset();
        messages.reset();
        db.reset();
        SetProgramFolder({});
        programFolder.reset();
    }

    void offersTheKindsOfTheMenuAndStartsWithRaceResults() {
        frmReport window(*results, seriesId, raceId, viewer);
        const QStringList titles = {"Entry list by handicap", "", "Class sheet",
                                    "Race results",           "", "Combined results"};
        for (int kind = 0; kind < 6; ++kind) {
            QCOMPARE(Kind(window, kind)->text(), titles[kind]);
            QCOMPARE(Kind(window, kind)->isEnabled(), !titles[kind].isEmpty());
        }
        QVERIFY(Kind(window, 3)->isChecked());
        QCOMPARE(Actions(window), QStringList({"Series entrants / 0", "Sub-series entrants / 1"}));
        QCOMPARE(window.findChild<QListWidget*>(QStringLiteral("SelAction"))->currentRow(), 0);
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("lSeries"))->text(),
                 QStringLiteral("Wednesday Evening"));
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("lRace"))->text(),
                 QStringLiteral("Race 4 - 03/06/2026"));
        QVERIFY(messages->shown.empty());
    }

    void choosingAKindListsItsActions_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("chosen");
        QTest::addColumn<QStringList>("actions");
        Row("entry list", 0, 0,
            QStringList(
                {"Everyone / 2", "In a spreadsheet / 2", "As a web page / 2", "Filed only / 2"}));
        Row("class sheet", 2, 2, QStringList({"Sheet / 0"}));
        Row("a kind without actions", 5, 5, QStringList());
        Row("a free slot", 1, 3, QStringList({"Series entrants / 0", "Sub-series entrants / 1"}));
    }
    void choosingAKindListsItsActions() {
        QFETCH(int, kind);
        QFETCH(int, chosen);
        QFETCH(QStringList, actions);
        frmReport window(*results, seriesId, raceId, viewer);
        QTest::mouseClick(Kind(window, kind), Qt::LeftButton);
        QVERIFY(Kind(window, chosen)->isChecked());
        QCOMPARE(Actions(window), actions);
        QCOMPARE(window.findChild<QListWidget*>(QStringLiteral("SelAction"))->currentRow(),
                 actions.isEmpty() ? -1 : 0);
    }

    void okWritesTheReportAndOpensItWithTheActionsViewer_data() {
        QTest::addColumn<int>("action");
        QTest::addColumn<QString>("viewedWith");
        Row("browser", 0, "browser");
        Row("spreadsheet", 1, "spreadsheet");
        Row("browser, second code", 2, "browser");
        Row("not opened", 3, "");
    }
    void okWritesTheReportAndOpensItWithTheActionsViewer() {
        QFETCH(int, action);
        QFETCH(QString, viewedWith);
        EnterABoat();
        ReportPath = db->folder() + "/";
        frmReport window(*results, seriesId, raceId, viewer);
        window.show();
        QTest::mouseClick(Kind(window, 0), Qt::LeftButton);
        window.findChild<QListWidget*>(QStringLiteral("SelAction"))->setCurrentRow(action);
        window.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();

        QCOMPARE(messages->Texts(), std::vector<std::string>());
        QVERIFY(window.isVisible());
        const QString written = QString::fromStdString(db->folder()) + "/2026/0603__2E.xml";
        QVERIFY2(QFileInfo::exists(written), qPrintable(written));
        QCOMPARE(viewer.opened,
                 viewedWith.isEmpty() ? QStringList() : QStringList({viewedWith + ": " + written}));
    }

    void aReportFolderThatCannotBeWrittenIsReportedAndNothingOpens() {
        EnterABoat();
        ReportPath = db->path() + "/";
        frmReport window(*results, seriesId, raceId, viewer);
        window.show();
        QTest::mouseClick(Kind(window, 0), Qt::LeftButton);
        window.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        QCOMPARE(messages->shown.size(), std::size_t{1});
        QVERIFY(window.isVisible());
        QCOMPARE(viewer.opened, QStringList());
    }

    void aSeriesThatIsGoneIsReportedAndLeavesTheLabelsEmpty() {
        frmReport window(*results, seriesId + 100, raceId, viewer);
        QCOMPARE(messages->shown.size(), std::size_t{1});
        QVERIFY(messages->Texts().front().rfind("C-Error ", 0) == 0);
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("lSeries"))->text().isEmpty());
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("lRace"))->text().isEmpty());
    }
};

QTEST_MAIN(ReportWindowTest)
#include "test_frmReport.moc"
