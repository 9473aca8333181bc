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

namespace {

struct BadBox {
    QString box, text, message;
};

}  // namespace

class ScoringEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Club> club;
    std::unique_ptr<frmScoring> w;
    Controls c{nullptr};

    QString Box(const char* name, int index) const {
        return c.Text(QString("%1_%2").arg(name).arg(index).toLatin1());
    }
    QStringList Values() const {
        QStringList values;
        for (int k = 0; k < 13; ++k)
            values << Box("tValue", k);
        return values;
    }
    void Type(const QString& box, const QString& text) const {
        c.Type(box.toLatin1().constData(), text);
    }
    // A choice the user makes in a list of systems.
    void Pick(const char* list, const QString& text) const {
        auto* systems = c.Get<QComboBox>(list);
        systems->setCurrentIndex(systems->findText(text));
        emit systems->activated(systems->currentIndex());
    }
    void FollowLink(const char* label) const { emit c.Get<QLabel>(label)->linkActivated({}); }

private slots:
    void init() {
        club = std::make_unique<Club>();
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
        w = std::make_unique<frmScoring>(club->results);
        c.window = w.get();
    }
    void cleanup() {
        w.reset();
        club.reset();
    }

    void showsTheFirstSystemOfEachKind() {
        QCOMPARE(c.Current("SelScoring"), QString("Average"));
        QCOMPARE(Values(), QStringList({"2", "4", "6", "8", "10", "12", "14", "10.5", "2", "2", "",
                                        "5", ""}));
        QCOMPARE(c.Current("SelBase"), QString("No of entrants"));
        QCOMPARE(c.Current("SelBaseDSQ"), QString("No of starters"));
        QCOMPARE(c.Current("SelDiscards"), QString("None"));

        Pick("SelScoring", "Low points");
        QCOMPARE(Values(),
                 QStringList({"1", "2", "3", "4", "5", "6", "7", "1", "1", "1", "", "", ""}));
        QCOMPARE(c.Get<QComboBox>("SelBaseDSQ")->currentIndex(), 0);
        Pick("SelDiscards", "One after 4, two after 8");
        QCOMPARE(Box("tRun", 1), QString("8"));
        QCOMPARE(Box("tDiscards", 1), QString("2"));
        QCOMPARE(Box("tRun", 2), QString());
        QVERIFY(club->messages.shown.empty());
    }

    void blankMinimumAndBlankDiscardLineAreSaved() {
        Pick("SelDiscards", "One after 4, two after 8");
        Type("tValue_11", " ");
        Type("tRun_0", "3");
        c.Press("cmdOK");
        QVERIFY(club->messages.shown.empty());
        QCOMPARE(w->result(), int(QDialog::Accepted));
        QCOMPARE(club->db.Count("Points",
                                "Scoring = 2 AND Status IN (1, 3, 6) AND MinValue = 0 AND "
                                "Base = 1 AND Value = 2"),
                 3);
        QCOMPARE(club->db.Count("Points", "Scoring = 2"), 15);
        QCOMPARE(club->db.Count("Discards",
                                "DiscardSystem = 1 AND RacesRun IS NULL AND Discards IS NULL"),
                 3);
        QCOMPARE(club->db.Count("Discards", "DiscardSystem = 1 AND RacesRun = 3 AND Discards = 1"),
                 1);
    }

    void everyBoxIsCheckedInOrder_data() {
        QTest::addColumn<BadBox>("bad");
        const QString points = "E-Please specify a valid number of points";
        Row("empty place", BadBox{"tValue_0", "", points});
        Row("empty DNC value", BadBox{"tValue_9", " ", points});
        Row("text minimum", BadBox{"tValue_12", "min", points});
        Row("races run", BadBox{"tRun_4", "four", "E-Please specify a valid number of races"});
        Row("discards", BadBox{"tDiscards_3", "1x", "E-Please specify a valid number of dicards"});
    }
    void everyBoxIsCheckedInOrder() {
        QFETCH(BadBox, bad);
        ShowActive(*w);
        Type(bad.box, bad.text);
        Type("tValue_1", "two");
        if (!bad.box.startsWith("tValue"))
            Type("tValue_1", "2");
        c.Press("cmdOK");
        QCOMPARE(Shown(club->messages), QStringList{bad.message});
        const bool laterThanTheSecond = bad.box == "tValue_9" || bad.box == "tValue_12";
        QCOMPARE(QApplication::focusWidget()->objectName(),
                 laterThanTheSecond ? "tValue_1" : bad.box);
        QVERIFY(w->isVisible());
        QCOMPARE(club->db.Count("Points", "Scoring = 2 AND Value = 4"), 1);
    }

    void namesAreRequiredAndTheDiscardNameWins() {
        c.Press("cmdAddScoring");
        c.Press("cmdOK");
        c.Press("cmdAddDiscard");
        c.Press("cmdOK");
        QCOMPARE(club->messages.Texts(), (Texts{"E-Please specify a name for the scoring system",
                                                "E-Please specify a name for the discard system"}));
        QCOMPARE(club->db.Count("Scoring"), 2);
    }

    void aTakenNameKeepsTheWindowOpen() {
        w->show();
        auto* list = c.Get<QComboBox>("SelScoring");
        list->lineEdit()->clear();
        QTest::keyClicks(list->lineEdit(), "low POINTS");
        c.Press("cmdOK");
        QCOMPARE(club->messages.Texts(),
                 Texts{"E-Another scoring system named 'low POINTS' already exists"});
        QVERIFY(w->isVisible());
        QCOMPARE(club->db.Text("SELECT Description FROM Scoring WHERE Id = 2"),
                 std::string("Average"));
    }

    void addedSystemStartsFromTheOneShown() {
        c.Press("cmdAddScoring");
        QCOMPARE(c.Current("SelScoring"), QString());
        QCOMPARE(Values()[7], QString("10.5"));
        QTest::keyClicks(c.Get<QComboBox>("SelScoring")->lineEdit(), "  Club points ");
        c.Press("cmdOK");
        QVERIFY(club->messages.shown.empty());
        const std::string id =
            club->db.Text("SELECT Id FROM Scoring WHERE Description = 'Club points'");
        QCOMPARE(club->db.Count("Points", "Scoring = " + id), 15);
        QCOMPARE(club->db.Count("Points", "Scoring = " + id +
                                              " AND Status IN (1, 3, 6) AND Base = 1 "
                                              "AND Value = 2 AND MinValue = 5"),
                 3);
    }

    void systemsInUseAreListedAndKept() {
        Pick("SelScoring", "Low points");
        Pick("SelDiscards", "One after 4, two after 8");
        FollowLink("ListSeries");
        c.Press("cmdRemove");
        FollowLink("Label11");
        c.Press("cmdRemoveDis");
        QVERIFY(club->messages.questions.empty());
        QCOMPARE(club->messages.shown[0].title, std::string("Scoring system: Low points"));
        QCOMPARE(club->messages.shown[2].title,
                 std::string("Discard rule: One after 4, two after 8"));
        QCOMPARE(Shown(club->messages),
                 QStringList({"I-This scoring system is used in 2 series:\r\nAutumn Series "
                              "(2010)\r\nSpring Series (2009)",
                              "I-Delete is not allowed as scoring system Low points is in use",
                              "I-This discard rule is used in 2 series:\r\nAutumn Series "
                              "(2010)\r\nSpring Series (2009)",
                              "I-Delete is not allowed as discard rule One after 4, two after 8 "
                              "is in use"}));
        QCOMPARE(club->db.Count("Scoring"), 2);
        QCOMPARE(club->db.Count("DiscardSystem"), 2);
    }

    void unusedSystemsAreRemovedAfterAsking() {
        FollowLink("ListSeries");
        QCOMPARE(club->messages.shown[0].text,
                 std::string("This scoring system is not used in any series"));
        club->messages.answers = {false, true, true};
        c.Press("cmdRemove");
        QCOMPARE(club->db.Count("Scoring"), 2);
        c.Press("cmdRemove");
        c.Press("cmdRemoveDis");
        QCOMPARE(club->messages.questions,
                 (Texts{"Remove scoring system Average?", "Remove scoring system Average?",
                        "Remove discard rule None?"}));
        QCOMPARE(club->db.Count("Scoring"), 1);
        QCOMPARE(club->db.Count("DiscardSystem"), 1);
        QCOMPARE(c.Current("SelScoring"), QString("Low points"));
        QCOMPARE(Values()[0], QString("1"));
        QCOMPARE(Box("tRun", 0), QString("4"));
    }
};

QTEST_MAIN(ScoringEditorTest)
#include "test_frmScoring.moc"
