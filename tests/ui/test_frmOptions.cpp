#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <fstream>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/StartupSettings.h"
#include "ui/frmOptions.h"

using namespace tb;
using test::Row;

class OptionsWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<test::TemporarySettingsStore> store;
    std::unique_ptr<test::Club> club;
    std::unique_ptr<frmOptions> window;

    int AddType(const std::string& description) {
        return club->Add("INSERT INTO HandicapType (Description) VALUES ('" + description + "')");
    }
    void AddBoatsRatedIn(int type, int boats) {
        for (int n = 1; n <= boats; ++n) {
            club->db.Exec("INSERT INTO Boat (BoatName, FullSailNo) VALUES ('Boat " +
                          std::string(n < 10 ? "0" : "") + std::to_string(n) + "', 'GBR " +
                          std::to_string(n) + "')");
            club->db.Exec("INSERT INTO Handicap (Boat, HandicapType, Handicap) VALUES (" +
                          std::to_string(club->db.raw().getLastInsertRowid()) + ", " +
                          std::to_string(type) + ", 0.95)");
        }
    }
    void AddSeriesUsing(int type, const std::string& title, const std::string& firstRace) {
        const std::string series =
            std::to_string(club->Add("INSERT INTO Series (Title) VALUES ('" + title + "')"));
        club->db.Exec("INSERT INTO Class (Series, ClassName, HandicapType) VALUES (" + series +
                      ", 'Fleet', " + std::to_string(type) + ")");
        club->db.Exec("INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (" + series +
                      ", 'Race 1', '" + firstRace + " 00:00:00')");
    }

    void Open() {
        window = std::make_unique<frmOptions>(club->results);
        window->show();
        test::SettleEvents();
    }
    template <typename T>
    T* Control(const char* name) {
        return window->findChild<T*>(QString::fromLatin1(name));
    }
    QComboBox* Types() { return Control<QComboBox>("SelHCs"); }
    void Press(const char* button) { Control<QPushButton>(button)->click(); }
    void FollowLink(const char* label) { emit Control<QLabel>(label)->linkActivated({}); }
    QStringList Shown() { return test::Shown(club->messages); }

private slots:
    void init() {
        store = std::make_unique<test::TemporarySettingsStore>();
        club = std::make_unique<test::Club>();
        ReportPath = club->db.folder() + "/";
    }
    void cleanup() {
        window.reset();
        club.reset();
        store.reset();
    }

    void showsTheSettingsPathsTypesAndSchema() {
        club->db.Exec("UPDATE Settings SET Value='Harbour Sailing Club' WHERE Parameter='Header'");
        club->db.Exec("UPDATE Settings SET Value='2.3' WHERE Parameter='Version'");
        AddType("Portsmouth");
        const int irc = AddType("IRC");
        Open();
        QCOMPARE(Control<QLineEdit>("tHeading")->text(), QStringLiteral("Harbour Sailing Club"));
        QCOMPARE(Control<QLineEdit>("tComment")->text(), QString());
        QCOMPARE(Control<QLineEdit>("tDataFile")->text(), QString::fromStdString(club->db.path()));
        QCOMPARE(Control<QLineEdit>("tReportDir")->text(), QString::fromStdString(ReportPath));
        QCOMPARE(Types()->count(), 2);
        QCOMPARE(Types()->currentText(), QStringLiteral("IRC"));
        QCOMPARE(Types()->currentData().toInt(), irc);
        QCOMPARE(Control<QLabel>("lInfo")->text(),
                 QStringLiteral("Build 27b (05-Nov-09) Schema 2.3"));
        QVERIFY(club->messages.shown.empty());
    }

    void checksBothPathsBeforeStoringEither_data() {
        QTest::addColumn<QString>("dataFile");
        QTest::addColumn<QString>("reportDir");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("stored");
        Row("both exist", "<db>", "<folder>", QString(), true);
        Row("both left empty", "", " ", QString(), false);
        Row("missing data file", "/nowhere/Tallyboard.db", "<folder>",
            "E-The data file /nowhere/Tallyboard.db was not found", false);
        Row("missing report folder", "<db>", "/nowhere/Reports",
            "E-The report directory /nowhere/Reports was not found", false);
        Row("report folder that is a file", "<db>", "<db>",
            "E-The report directory <db> was not found", false);
    }
    void checksBothPathsBeforeStoringEither() {
        QFETCH(QString, dataFile);
        QFETCH(QString, reportDir);
        QFETCH(QString, message);
        QFETCH(bool, stored);
        const QString dbPath = QString::fromStdString(club->db.path());
        const QString folder = QString::fromStdString(club->db.folder());
        dataFile.replace("<db>", dbPath);
        reportDir.replace("<db>", dbPath).replace("<folder>", folder);
        message.replace("<db>", dbPath);
        AddType("IRC");
        Open();
        Control<QLineEdit>("tDataFile")->setText(" " + dataFile + " ");
        Control<QLineEdit>("tReportDir")->setText(reportDir);
        Press("cmdOK");

        QCOMPARE(Shown(), message.isEmpty() ? QStringList() : QStringList({message}));
        QCOMPARE(window->isVisible(), !message.isEmpty());
        QCOMPARE(ReadStartupSetting(kDataFileKey), stored ? dbPath : QString());
        QCOMPARE(ReadStartupSetting(kReportPathKey), stored ? folder : QString());
    }

    void savesTheReportTextsTrimmed() {
        AddType("IRC");
        Open();
        Control<QLineEdit>("tHeading")->setText("  Harbour SC ");
        Control<QLineEdit>("tFootnote")->setText("Protests within one hour");
        Press("cmdOK");
        QVERIFY(club->messages.shown.empty());
        QCOMPARE(club->Setting("Header"), std::string("Harbour SC"));
        QCOMPARE(club->Setting("Comment"), std::string());
        QCOMPARE(club->Setting("Footnote"), std::string("Protests within one hour"));
    }

    void addsRenamesAndKeepsHandicapTypes() {
        const int irc = AddType("IRC");
        Open();
        Press("cmdOK");
        QCOMPARE(club->db.Count("HandicapType"), 1LL);
        QCOMPARE(club->db.Text("SELECT Description FROM HandicapType"), std::string("IRC"));

        Open();
        QTest::keyClicks(Types()->lineEdit(), " 2026");
        Press("cmdOK");
        QCOMPARE(
            club->db.Text("SELECT Description FROM HandicapType WHERE Id=" + std::to_string(irc)),
            std::string("IRC 2026"));

        Open();
        Press("AddHCs");
        QCOMPARE(Types()->currentIndex(), -1);
        QVERIFY(Types()->currentText().isEmpty());
        QTest::keyClicks(Types()->lineEdit(), "Portsmouth");
        Press("cmdOK");
        QVERIFY(club->messages.shown.empty());
        QCOMPARE(club->db.Count("HandicapType"), 2LL);
        QCOMPARE(club->db.Count("HandicapType", "Description='Portsmouth'"), 1LL);
    }

    void refusesANewTypeWithoutNameOrWithATakenName() {
        AddType("IRC");
        Open();
        Press("AddHCs");
        Press("cmdOK");
        QCOMPARE(Shown(), QStringList({"E-Please specify a name for the handicap type"}));
        QVERIFY(window->isVisible());

        club->messages.Clear();
        Control<QLineEdit>("tHeading")->setText("Harbour SC");
        QApplication::setActiveWindow(window.get());
        Types()->setFocus();
        QTest::keyClicks(Types()->lineEdit(), "irc");
        Control<QLineEdit>("tHeading")->setFocus();
        QVERIFY(!Types()->hasFocus());
        Press("cmdOK");
        QCOMPARE(Shown(), QStringList({"E-Another handicap system named 'irc' already exists"}));
        QVERIFY(window->isVisible());
        QCOMPARE(club->Setting("Header"), std::string("Harbour SC"));
        QCOMPARE(club->db.Count("HandicapType"), 1LL);

        club->messages.Clear();
        Types()->setFocus();
        QTest::keyClick(Types()->lineEdit(), Qt::Key_Return);
        QCOMPARE(Shown(), QStringList({"E-Another handicap system named 'irc' already exists"}));
        QCOMPARE(club->db.Text("SELECT Description FROM HandicapType"), std::string("IRC"));
    }

    void removesOnlyATypeNothingUses_data() {
        QTest::addColumn<QString>("use");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("typesLeft");
        const QString inUse = QStringLiteral("I-Delete is not allowed as handicap type is in use");
        Row("used by a series", "series", true, inUse, 2);
        Row("used by a boat", "boat", true, inUse, 2);
        Row("unused, answered No", "", false, QString(), 2);
        Row("unused, answered Yes", "", true, QString(), 1);
    }
    void removesOnlyATypeNothingUses() {
        QFETCH(QString, use);
        QFETCH(bool, answer);
        QFETCH(QString, message);
        QFETCH(int, typesLeft);
        const int clubType = AddType("Club");
        AddType("IRC");
        if (use == "series")
            AddSeriesUsing(clubType, "Summer Series", "2026-06-07");
        if (use == "boat")
            AddBoatsRatedIn(clubType, 1);
        club->messages.answers.push_back(answer);
        Open();
        QCOMPARE(Types()->currentText(), QStringLiteral("Club"));
        Press("cmdRemove");

        QCOMPARE(Shown(), message.isEmpty() ? QStringList() : QStringList({message}));
        const bool asked = message.isEmpty();
        QCOMPARE(club->messages.questions.size(), std::size_t{asked ? 1u : 0u});
        if (asked) {
            QCOMPARE(club->messages.questions.front(), std::string("Remove handicap type Club?"));
            QCOMPARE(club->messages.questionTitles.front(), std::string("Tallyboard"));
        }
        QCOMPARE(club->db.Count("HandicapType"), static_cast<long long>(typesLeft));
        QCOMPARE(Types()->count(), typesLeft);
        QCOMPARE(Types()->currentIndex(), 0);
    }

    void actionsOnNoTypeOrAnUnusedTypeSaySo_data() {
        QTest::addColumn<bool>("newType");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("message");
        const QString none = "I-No handicap type is selected";
        Row("remove, no type", true, "cmdRemove", none);
        Row("list boats, no type", true, "ListModels", none);
        Row("list series, no type", true, "ListSeries", none);
        Row("list boats, unused", false, "ListModels",
            "I-This handicap type is not used by any boats");
        Row("list series, unused", false, "ListSeries",
            "I-This handicap type is not used in any series");
    }
    void actionsOnNoTypeOrAnUnusedTypeSaySo() {
        QFETCH(bool, newType);
        QFETCH(QString, action);
        QFETCH(QString, message);
        AddType("IRC");
        Open();
        if (newType)
            Press("AddHCs");
        if (action == "cmdRemove")
            Press("cmdRemove");
        else
            FollowLink(action.toLatin1().constData());
        QCOMPARE(Shown(), QStringList{message});
        QCOMPARE(club->db.Count("HandicapType"), 1LL);
    }

    void listsTheBoatsAndSeriesUsingAType() {
        const int irc = AddType("IRC");
        AddBoatsRatedIn(irc, 25);
        AddSeriesUsing(irc, "Spring Cup", "2026-04-12");
        AddSeriesUsing(irc, "Autumn Series", "2025-10-05");
        Open();

        FollowLink("ListModels");
        QCOMPARE(club->messages.shown.size(), std::size_t{1});
        QCOMPARE(club->messages.shown[0].title, std::string("Handicap type: IRC"));
        std::string boats = "This handicap type is used by 25 boats: (first 20 shown)";
        for (int n = 1; n <= 20; ++n)
            boats += "\r\nBoat " + std::string(n < 10 ? "0" : "") + std::to_string(n);
        QCOMPARE(club->messages.shown[0].text, boats);

        club->messages.Clear();
        FollowLink("ListSeries");
        QCOMPARE(club->messages.shown.size(), std::size_t{1});
        QCOMPARE(club->messages.shown[0].title, std::string("Handicap type: IRC"));
        QCOMPARE(club->messages.shown[0].text,
                 std::string("This handicap type is used in 2 series:\r\nAutumn Series (2025)"
                             "\r\nSpring Cup (2026)"));
    }
};

QTEST_MAIN(OptionsWindowTest)
#include "test_frmOptions.moc"
