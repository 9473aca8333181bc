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
        ShowActive(*w);
    }
    void cleanup() {
        w.reset();
        club.reset();
    }

    void anotherSystemsNameIsRefusedWhetherTheBoxIsLeftByTabOrByAClick() {
        const std::tuple<const char*, const char*, const char*> cases[] = {
            {"SelScoring", "Low points",
             "E-Another scoring system named 'Low points' already exists"},
            {"SelDiscards", "One after 4, two after 8",
             "E-Another discard system named 'One after 4, two after 8' already exists"}};
        for (const auto& [list, name, message] : cases) {
            for (const bool tab : {true, false}) {
                const CaseTrace trace(QString(list) + (tab ? " Tab" : " click"));
                cleanup();
                init();
                c.Type(list, name);
                if (tab)
                    Key(Qt::Key_Tab);
                QCOMPARE(Values()[7], QString("10.5"));
                c.Press("cmdOK");
                QCOMPARE(Shown(club->messages), QStringList{message});
                QVERIFY(w->isVisible());
                QCOMPARE(club->db.Count("Points", "Scoring = 1 AND Value = 1"), 9);
                QCOMPARE(club->db.Text("SELECT Description FROM DiscardSystem WHERE Id = 2"),
                         std::string("None"));
            }
        }
    }
};

QTEST_MAIN(ScoringEditorTest)
#include "test_frmScoring.moc"
