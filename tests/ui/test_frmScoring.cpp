#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/frmScoring.h"

using namespace tb;
using namespace tb::test;

class ScoringEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<test::Club> club;

    static QLineEdit* Box(const QWidget& w, const char* name, int index) {
        return Find<QLineEdit>(&w, QString("%1_%2").arg(name).arg(index).toUtf8().constData());
    }
    static QStringList Values(const QWidget& w) {
        QStringList values;
        for (int k = 0; k < 13; ++k)
            values << Box(w, "tValue", k)->text();
        return values;
    }
    // A choice the user makes in a list of systems.
    static void Choose(QComboBox* list, const QString& text) {
        list->setCurrentIndex(list->findText(text));
        emit list->activated(list->currentIndex());
    }

private slots:
    void init() {
        club = std::make_unique<test::Club>();
        // "Average" sorts first: its DSQ group counts starters, scores 2 more with at least 5.
        club->db.Exec(
            "INSERT INTO Scoring (Id, Description) VALUES (2, 'Average');"
            "INSERT INTO Points (Scoring, Place, Status, Base, Value, MinValue) "
            "SELECT 2, Place, Status, Base, Value * 2, MinValue FROM Points WHERE Scoring = 1;"
            "UPDATE Points SET Base = 1, Value = 2, MinValue = 5 "
            "WHERE Scoring = 2 AND Status IN (1, 3, 6);"
            "UPDATE Points SET Value = 10.5 WHERE Scoring = 2 AND Status IN (4, 5, 7, 8);"
            "INSERT INTO DiscardSystem (Id, Description) VALUES (2, 'None');"
            "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES "
            "(1, 'Spring Series', 1, 1), (2, 'Autumn Series', 1, 1), (3, 'No races', 2, 2);"
            "INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2009-04-10 00:00:00'), "
            "(1, '2009-05-10 00:00:00'), (2, '2010-09-01 00:00:00');");
    }
    void cleanup() { club.reset(); }

    void showsTheFirstSystemOfEachKind() {
        frmScoring w(club->results);
        QCOMPARE(Find<QComboBox>(&w, "SelScoring")->currentText(), QString("Average"));
        QCOMPARE(Values(w), QStringList({"2", "4", "6", "8", "10", "12", "14", "10.5", "2", "2", "",
                                         "5", ""}));
        QCOMPARE(Find<QComboBox>(&w, "SelBase")->currentText(), QString("No of entrants"));
        QCOMPARE(Find<QComboBox>(&w, "SelBaseDSQ")->currentText(), QString("No of starters"));
        QCOMPARE(Find<QComboBox>(&w, "SelDiscards")->currentText(), QString("None"));

        Choose(Find<QComboBox>(&w, "SelScoring"), "Low points");
        QCOMPARE(Values(w),
                 QStringList({"1", "2", "3", "4", "5", "6", "7", "1", "1", "1", "", "", ""}));
        QCOMPARE(Find<QComboBox>(&w, "SelBaseDSQ")->currentIndex(), 0);
        Choose(Find<QComboBox>(&w, "SelDiscards"), "One after 4, two after 8");
        QCOMPARE(Box(w, "tRun", 1)->text(), QString("8"));
        QCOMPARE(Box(w, "tDiscards", 1)->text(), QString("2"));
        QCOMPARE(Box(w, "tRun", 2)->text(), QString());
        QVERIFY(club->messages.shown.empty());
    }

    void blankMinimumAndBlankDiscardLineAreSaved() {
        frmScoring w(club->results);
        Choose(Find<QComboBox>(&w, "SelDiscards"), "One after 4, two after 8");
        Type(Box(w, "tValue", 11), " ");
        Type(Box(w, "tRun", 0), "3");
        Find<QPushButton>(&w, "cmdOK")->click();
        QVERIFY(club->messages.shown.empty());
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(club->db.Count("Points",
                                "Scoring = 2 AND Status IN (1, 3, 6) AND MinValue = 0 AND "
                                "Base = 1 AND Value = 2"),
                 3);
        QCOMPARE(club->db.Count("Points", "Scoring = 2"), 15);
        QCOMPARE(club->db.Count("Discards",
                                "DiscardSystem = 1 AND RacesRun IS NULL AND "
                                "Discards IS NULL"),
                 3);
        QCOMPARE(club->db.Count("Discards", "DiscardSystem = 1 AND RacesRun = 3 AND Discards = 1"),
                 1);
    }

    void everyBoxIsCheckedInOrder_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        Row("empty place", "tValue_0", "", "E-Please specify a valid number of points");
        Row("empty DNC value", "tValue_9", " ", "E-Please specify a valid number of points");
        Row("text minimum", "tValue_12", "min", "E-Please specify a valid number of points");
        Row("races run", "tRun_4", "four", "E-Please specify a valid number of races");
        Row("discards", "tDiscards_3", "1x", "E-Please specify a valid number of dicards");
    }
    void everyBoxIsCheckedInOrder() {
        QFETCH(QString, box);
        QFETCH(QString, text);
        QFETCH(QString, message);
        frmScoring w(club->results);
        w.show();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        Type(Find<QLineEdit>(&w, box.toUtf8().constData()), text);
        Type(Box(w, "tValue", 1), "two");
        if (!box.startsWith("tValue"))
            Type(Box(w, "tValue", 1), "2");
        Find<QPushButton>(&w, "cmdOK")->click();
        QCOMPARE(Shown(club->messages), QStringList{message});
        const QString expectedFocus = box == "tValue_9" || box == "tValue_12" ? "tValue_1" : box;
        QCOMPARE(QApplication::focusWidget()->objectName(), expectedFocus);
        QVERIFY(w.isVisible());
        QCOMPARE(club->db.Count("Points", "Scoring = 2 AND Value = 4"), 1);
    }

    void namesAreRequiredAndTheDiscardNameWins() {
        frmScoring w(club->results);
        Find<QPushButton>(&w, "cmdAddScoring")->click();
        Find<QPushButton>(&w, "cmdOK")->click();
        Find<QPushButton>(&w, "cmdAddDiscard")->click();
        Find<QPushButton>(&w, "cmdOK")->click();
        QCOMPARE(club->messages.Texts(),
                 (std::vector<std::string>{"E-Please specify a name for the scoring system",
                                           "E-Please specify a name for the discard system"}));
        QCOMPARE(club->db.Count("Scoring"), 2);
    }

    void addedSystemStartsFromTheOneShown() {
        frmScoring w(club->results);
        Find<QPushButton>(&w, "cmdAddScoring")->click();
        QCOMPARE(Find<QComboBox>(&w, "SelScoring")->currentText(), QString());
        QCOMPARE(Values(w)[7], QString("10.5"));
        QCOMPARE(Values(w)[11], QString("5"));
        QTest::keyClicks(Find<QComboBox>(&w, "SelScoring")->lineEdit(), "  Club points ");
        Find<QPushButton>(&w, "cmdOK")->click();
        QVERIFY(club->messages.shown.empty());
        const std::string id =
            club->db.Text("SELECT Id FROM Scoring WHERE Description = 'Club points'");
        QCOMPARE(club->db.Count("Points", "Scoring = " + id), 15);
        QCOMPARE(club->db.Count("Points", "Scoring = " + id +
                                              " AND Status IN (1, 3, 6) AND Base = 1 "
                                              "AND Value = 2 AND MinValue = 5"),
                 3);
    }

    void duplicateNameKeepsTheWindowOpen() {
        frmScoring w(club->results);
        w.show();
        auto* list = Find<QComboBox>(&w, "SelScoring");
        list->lineEdit()->clear();
        QTest::keyClicks(list->lineEdit(), "low POINTS");
        Find<QPushButton>(&w, "cmdOK")->click();
        QCOMPARE(
            club->messages.Texts(),
            std::vector<std::string>{"E-Another scoring system named 'low POINTS' already exists"});
        QVERIFY(w.isVisible());
        QCOMPARE(club->db.Text("SELECT Description FROM Scoring WHERE Id = 2"),
                 std::string("Average"));
    }

    void systemsInUseAreListedAndKept() {
        frmScoring w(club->results);
        Choose(Find<QComboBox>(&w, "SelScoring"), "Low points");
        Choose(Find<QComboBox>(&w, "SelDiscards"), "One after 4, two after 8");
        emit Find<QLabel>(&w, "ListSeries")->linkActivated("series");
        Find<QPushButton>(&w, "cmdRemove")->click();
        emit Find<QLabel>(&w, "Label11")->linkActivated("series");
        Find<QPushButton>(&w, "cmdRemoveDis")->click();
        QVERIFY(club->messages.questions.empty());
        QCOMPARE(club->messages.shown.size(), std::size_t{4});
        QCOMPARE(club->messages.shown[0].title, std::string("Scoring system: Low points"));
        QCOMPARE(club->messages.shown[0].text,
                 std::string("This scoring system is used in 2 series:\r\nAutumn Series "
                             "(2010)\r\nSpring Series (2009)"));
        QCOMPARE(club->messages.Texts()[1],
                 std::string("I-Delete is not allowed as scoring system Low points is in use"));
        QCOMPARE(club->messages.shown[2].title,
                 std::string("Discard rule: One after 4, two after 8"));
        QCOMPARE(club->messages.Texts()[3],
                 std::string("I-Delete is not allowed as discard rule One "
                             "after 4, two after 8 is in use"));
        QCOMPARE(club->db.Count("Scoring"), 2);
        QCOMPARE(club->db.Count("DiscardSystem"), 2);
    }

    void unusedSystemsAreRemovedAfterAsking() {
        frmScoring w(club->results);
        emit Find<QLabel>(&w, "ListSeries")->linkActivated("series");
        QCOMPARE(club->messages.shown[0].text,
                 std::string("This scoring system is not used in any series"));
        club->messages.answers = {false, true, true};
        Find<QPushButton>(&w, "cmdRemove")->click();
        QCOMPARE(club->db.Count("Scoring"), 2);
        Find<QPushButton>(&w, "cmdRemove")->click();
        Find<QPushButton>(&w, "cmdRemoveDis")->click();
        QCOMPARE(club->messages.questions,
                 (std::vector<std::string>{"Remove scoring system Average?",
                                           "Remove scoring system Average?",
                                           "Remove discard rule None?"}));
        QCOMPARE(club->db.Count("Scoring"), 1);
        QCOMPARE(club->db.Count("DiscardSystem"), 1);
        QCOMPARE(Find<QComboBox>(&w, "SelScoring")->currentText(), QString("Low points"));
        QCOMPARE(Values(w)[0], QString("1"));
        QCOMPARE(Box(w, "tRun", 0)->text(), QString("4"));
    }
};

QTEST_MAIN(ScoringEditorTest)
#include "test_frmScoring.moc"
