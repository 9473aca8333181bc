// The scoring editor's names typed as a user types them: a name another system holds is refused
// on OK, and leaving the name box never loads that other system.

#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmScoring.h"

using namespace tb;
using namespace tb::test;

class ScoringEditorTest : public QObject {
    Q_OBJECT

private slots:
    void anotherSystemsNameIsRefusedWhetherTheBoxIsLeftByTabOrByAClick_data() {
        CasesFrom("scoring-name-clashes.tsv");
    }
    void anotherSystemsNameIsRefusedWhetherTheBoxIsLeftByTabOrByAClick() {
        const QStringList clash = Case();
        Club club;
        club.db.Exec(DataText("scoring-systems.sql"));
        Opened<frmScoring> c(club.results);
        c.Type(clash[0].toLatin1(), clash[1]);
        if (clash[2] == "Tab")
            Key(Qt::Key_Tab);
        QCOMPARE(c.Text("tValue_7"), QString("10.5"));
        c.Press("cmdOK");
        QCOMPARE(Shown(club.messages), QStringList{clash[3]});
        QVERIFY(c.w.isVisible());
        QCOMPARE(club.db.Count("Points", "Scoring = 1 AND Value = 1"), 9);
        QCOMPARE(club.db.Text("SELECT Description FROM DiscardSystem WHERE Id = 2"),
                 std::string("None"));
    }
};

QTEST_MAIN(ScoringEditorTest)
#include "test_frmScoring.moc"
