#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "app/Globals.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"
#include "ui/frmOptions.h"

using namespace tb;
using namespace tb::test;

namespace {

struct Paths {
    QString dataFile, reportDir, message;
    bool stored;
};

struct Removal {
    QString use;
    bool answer;
    QString message;
    int typesLeft;
};

}  // namespace

class OptionsWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TemporarySettingsStore> store;
    std::unique_ptr<Club> club;
    std::unique_ptr<frmOptions> window;
    Controls c{nullptr};

    int AddType(const std::string& description) {
        return club->Add("INSERT INTO HandicapType (Description) VALUES ('" + description + "')");
    }
    void AddBoatsRatedIn(int type, int boats) {
        for (int n = 1; n <= boats; ++n) {
            const int boat =
                club->Add("INSERT INTO Boat (BoatName) VALUES ('Boat " +
                          QString::number(n).rightJustified(2, '0').toStdString() + "')");
            club->db.Exec("INSERT INTO Handicap (Boat, HandicapType, Handicap) VALUES (" +
                          std::to_string(boat) + ", " + std::to_string(type) + ", 0.95)");
        }
    }
    void AddSeriesUsing(int type, const std::string& title, const std::string& firstRace) {
        const std::string series =
            std::to_string(club->Add("INSERT INTO Series (Title) VALUES ('" + title + "')"));
        club->db.Exec("INSERT INTO Class (Series, ClassName, HandicapType) VALUES (" + series +
                      ", 'Fleet', " + std::to_string(type) +
                      ");"
                      "INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" +
                      series + ", 'Race 1', '" + firstRace + " 00:00:00')");
    }
    void Open() {
        window = std::make_unique<frmOptions>(club->results);
        c.window = window.get();
        window->show();
        SettleEvents();
    }
    QComboBox* Types() { return c.Get<QComboBox>("SelHCs"); }
    void FollowLink(const char* label) { emit c.Get<QLabel>(label)->linkActivated({}); }

private slots:
    void init() {
        store = std::make_unique<TemporarySettingsStore>();
        club = std::make_unique<Club>();
        ReportPath = club->db.folder() + "/";
    }
    void cleanup() {
        window.reset();
        club.reset();
        store.reset();
    }

    void showsTheSettingsAndSavesTheReportTextsTrimmed() {
        club->db.Exec("UPDATE Settings SET Value='Harbour Sailing Club' WHERE Parameter='Header'");
        club->db.Exec("UPDATE Settings SET Value='2.3' WHERE Parameter='Version'");
        AddType("Portsmouth");
        const int irc = AddType("IRC");
        Open();
        QCOMPARE(c.Text("tHeading"), QStringLiteral("Harbour Sailing Club"));
        QCOMPARE(c.Text("tDataFile"), QString::fromStdString(club->db.path()));
        QCOMPARE(c.Text("tReportDir"), QString::fromStdString(ReportPath));
        QCOMPARE(Types()->currentData().toInt(), irc);
        QCOMPARE(c.Label("lInfo"), QStringLiteral("Build 27b (05-Nov-09) Schema 2.3"));

        c.Get<QLineEdit>("tHeading")->setText("  Harbour SC ");
        c.Get<QLineEdit>("tFootnote")->setText("Protests within one hour");
        c.Press("cmdOK");
        QVERIFY(club->messages.shown.empty());
        QCOMPARE(club->Setting("Header"), std::string("Harbour SC"));
        QCOMPARE(club->Setting("Comment"), std::string());
        QCOMPARE(club->Setting("Footnote"), std::string("Protests within one hour"));
    }

    void checksBothPathsBeforeStoringEither_data() {
        QTest::addColumn<Paths>("paths");
        Row("both exist", Paths{"<db>", "<folder>", "", true});
        Row("both left empty", Paths{"", " ", "", false});
        Row("missing data file",
            Paths{"/nowhere/Tallyboard.db", "<folder>",
                  "E-The data file /nowhere/Tallyboard.db was not found", false});
        Row("missing report folder",
            Paths{"<db>", "/nowhere/Reports",
                  "E-The report directory /nowhere/Reports was not found", false});
        Row("report folder that is a file",
            Paths{"<db>", "<db>", "E-The report directory <db> was not found", false});
    }
    void checksBothPathsBeforeStoringEither() {
        QFETCH(Paths, paths);
        const QString dbPath = QString::fromStdString(club->db.path());
        const QString folder = QString::fromStdString(club->db.folder());
        paths.dataFile.replace("<db>", dbPath);
        paths.reportDir.replace("<db>", dbPath).replace("<folder>", folder);
        paths.message.replace("<db>", dbPath);
        AddType("IRC");
        Open();
        c.Get<QLineEdit>("tDataFile")->setText(" " + paths.dataFile + " ");
        c.Get<QLineEdit>("tReportDir")->setText(paths.reportDir);
        c.Press("cmdOK");

        QCOMPARE(Shown(club->messages),
                 paths.message.isEmpty() ? QStringList() : QStringList({paths.message}));
        QCOMPARE(window->isVisible(), !paths.message.isEmpty());
        QCOMPARE(ReadStartupSetting(kDataFileKey), paths.stored ? dbPath : QString());
        QCOMPARE(ReadStartupSetting(kReportPathKey), paths.stored ? folder : QString());
    }

    void refusesANewTypeWithoutNameOrWithATakenNameThenAddsAndRenames() {
        const int irc = AddType("IRC");
        Open();
        c.Press("AddHCs");
        c.Press("cmdOK");
        c.Get<QLineEdit>("tHeading")->setText("Harbour SC");
        QApplication::setActiveWindow(window.get());
        Types()->setFocus();
        QTest::keyClicks(Types()->lineEdit(), "irc");
        c.Get<QLineEdit>("tHeading")->setFocus();
        c.Press("cmdOK");
        // Enter in the list saves too, and is refused alike.
        Types()->setFocus();
        QTest::keyClick(Types()->lineEdit(), Qt::Key_Return);
        const QString taken = "E-Another handicap system named 'irc' already exists";
        QCOMPARE(Shown(club->messages),
                 QStringList({"E-Please specify a name for the handicap type", taken, taken}));
        QVERIFY(window->isVisible());
        QCOMPARE(club->Setting("Header"), std::string("Harbour SC"));
        QCOMPARE(club->db.Count("HandicapType"), 1LL);

        Types()->lineEdit()->clear();
        QTest::keyClicks(Types()->lineEdit(), "Portsmouth");
        c.Press("cmdOK");
        QCOMPARE(club->db.Count("HandicapType", "Description='Portsmouth'"), 1LL);

        Open();
        Choose(Types(), "IRC");
        QTest::keyClicks(Types()->lineEdit(), " 2026");
        c.Press("cmdOK");
        QCOMPARE(
            club->db.Text("SELECT Description FROM HandicapType WHERE Id=" + std::to_string(irc)),
            std::string("IRC 2026"));
        QCOMPARE(club->db.Count("HandicapType"), 2LL);
    }

    void removesOnlyATypeNothingUses_data() {
        QTest::addColumn<Removal>("removal");
        const QString inUse = "I-Delete is not allowed as handicap type is in use";
        Row("used by a series", Removal{"series", true, inUse, 2});
        Row("used by a boat", Removal{"boat", true, inUse, 2});
        Row("unused, answered No", Removal{"", false, "", 2});
        Row("unused, answered Yes", Removal{"", true, "", 1});
    }
    void removesOnlyATypeNothingUses() {
        QFETCH(Removal, removal);
        const int clubType = AddType("Club");
        AddType("IRC");
        if (removal.use == "series")
            AddSeriesUsing(clubType, "Summer Series", "2026-06-07");
        if (removal.use == "boat")
            AddBoatsRatedIn(clubType, 1);
        club->messages.answers.push_back(removal.answer);
        Open();
        QCOMPARE(Types()->currentText(), QStringLiteral("Club"));
        c.Press("cmdRemove");

        const bool asked = removal.message.isEmpty();
        QCOMPARE(Shown(club->messages), asked ? QStringList() : QStringList({removal.message}));
        QCOMPARE(club->messages.questions, asked ? Texts{"Remove handicap type Club?"} : Texts{});
        QCOMPARE(club->db.Count("HandicapType"), static_cast<long long>(removal.typesLeft));
        QCOMPARE(Types()->count(), removal.typesLeft);
        QCOMPARE(Types()->currentIndex(), 0);
    }

    void listsWhatUsesATypeOrSaysThatNothingDoes() {
        const int irc = AddType("IRC");
        AddBoatsRatedIn(irc, 25);
        AddSeriesUsing(irc, "Spring Cup", "2026-04-12");
        AddSeriesUsing(irc, "Autumn Series", "2025-10-05");
        AddType("Unused");
        Open();
        Choose(Types(), "IRC");
        FollowLink("ListModels");
        FollowLink("ListSeries");
        Choose(Types(), "Unused");
        FollowLink("ListModels");
        FollowLink("ListSeries");
        c.Press("AddHCs");
        c.Press("cmdRemove");
        FollowLink("ListModels");
        FollowLink("ListSeries");

        QCOMPARE(club->messages.shown[0].title, std::string("Handicap type: IRC"));
        std::string boats = "I-This handicap type is used by 25 boats: (first 20 shown)";
        for (int n = 1; n <= 20; ++n)
            boats += "\r\nBoat " + QString::number(n).rightJustified(2, '0').toStdString();
        const QString none = "I-No handicap type is selected";
        QCOMPARE(Shown(club->messages),
                 QStringList({QString::fromStdString(boats),
                              "I-This handicap type is used in 2 series:\r\nAutumn Series (2025)"
                              "\r\nSpring Cup (2026)",
                              "I-This handicap type is not used by any boats",
                              "I-This handicap type is not used in any series", none, none, none}));
        QCOMPARE(club->db.Count("HandicapType"), 2LL);
    }
};

QTEST_MAIN(OptionsWindowTest)
#include "test_frmOptions.moc"
