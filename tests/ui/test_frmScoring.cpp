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
        club->db.Exec(DataText("scoring-systems.sql"));
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
