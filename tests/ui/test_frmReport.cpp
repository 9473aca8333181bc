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
    std::unique_ptr<test::Club> club;
    test::RecordingViewer viewer;
    int seriesId = 0;
    int raceId = 0;

    // One boat of the series' only class, entered for the race.
    void EnterABoat() {
        const std::string series = std::to_string(seriesId);
        const std::string type =
            std::to_string(club->Add("INSERT INTO HandicapType (Description) VALUES ('Club')"));
        const std::string cls = std::to_string(
            club->Add("INSERT INTO Class (Series, ClassName, HandicapType) VALUES (" + series +
                      ", 'Cruisers', " + type + ")"));
        const std::string person = std::to_string(
            club->Add("INSERT INTO People (Firstname, Lastname) VALUES ('Ann', 'Lee')"));
        const std::string model =
            std::to_string(club->Add("INSERT INTO BoatType (Model) VALUES ('Sigma 33')"));
        const std::string boat = std::to_string(
            club->Add("INSERT INTO Boat (BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES "
                      "('Blue Heron', " +
                      model + ", 'GBR 4012', 4012, " + person + ")"));
        const int entrant =
            club->Add("INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant) VALUES (" +
                      series + ", " + boat + ", " + cls + ", 0, " + person + ")");
        club->db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (" +
                      std::to_string(entrant) + ", " + std::to_string(raceId) + ")");
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
        club = std::make_unique<test::Club>();
        seriesId = club->Add("INSERT INTO Series (Title) VALUES ('Wednesday Evening')");
        raceId = club->Add("INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" +
                           std::to_string(seriesId) + ", 'Race 4', '2026-06-03 00:00:00')");
        viewer.opened.clear();
        QCOMPARE(club->results.GetInitialisationInfo(), std::string());
    }
    void cleanup() {
        club.reset();
        SetProgramFolder({});
        programFolder.reset();
    }

    void offersTheKindsOfTheMenuAndStartsWithRaceResults() {
        frmReport window(club->results, seriesId, raceId, viewer);
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
        QVERIFY(club->messages.shown.empty());
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
        frmReport window(club->results, seriesId, raceId, viewer);
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
        ReportPath = club->db.folder() + "/";
        frmReport window(club->results, seriesId, raceId, viewer);
        window.show();
        QTest::mouseClick(Kind(window, 0), Qt::LeftButton);
        window.findChild<QListWidget*>(QStringLiteral("SelAction"))->setCurrentRow(action);
        window.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();

        QCOMPARE(club->messages.Texts(), std::vector<std::string>());
        QVERIFY(window.isVisible());
        const QString written = QString::fromStdString(club->db.folder()) + "/2026/0603__2E.xml";
        QVERIFY2(QFileInfo::exists(written), qPrintable(written));
        QCOMPARE(viewer.opened,
                 viewedWith.isEmpty() ? QStringList() : QStringList({viewedWith + ": " + written}));
    }

    void aReportFolderThatCannotBeWrittenIsReportedAndNothingOpens() {
        EnterABoat();
        ReportPath = club->db.path() + "/";
        frmReport window(club->results, seriesId, raceId, viewer);
        window.show();
        QTest::mouseClick(Kind(window, 0), Qt::LeftButton);
        window.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        QCOMPARE(club->messages.shown.size(), std::size_t{1});
        QVERIFY(window.isVisible());
        QCOMPARE(viewer.opened, QStringList());
    }

    void aSeriesThatIsGoneIsReportedAndLeavesTheLabelsEmpty() {
        frmReport window(club->results, seriesId + 100, raceId, viewer);
        QCOMPARE(club->messages.shown.size(), std::size_t{1});
        QVERIFY(club->messages.Texts().front().rfind("C-Error ", 0) == 0);
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("lSeries"))->text().isEmpty());
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("lRace"))->text().isEmpty());
    }
};

QTEST_MAIN(ReportWindowTest)
#include "test_frmReport.moc"
