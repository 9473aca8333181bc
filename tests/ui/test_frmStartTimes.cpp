// The start times window as a race officer uses it: one class at a time, four digits, Enter to
// reach OK and Enter to save, wrapping back to the first class; nothing typed is lost on Close.

#include <QLabel>
#include <QtTest>

#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/frmStartTimes.h"

using namespace tb::test;

class StartTimesWindowTest : public QObject {
    Q_OBJECT

    struct Window {
        RaceDay day;
        tb::clResults results;
        RecordingMessages messages;
        Opened<tb::frmStartTimes> c{results, RaceDay::kSeries, RaceDay::kRace};
        void EnterTime(const QString& hhmm) {
            c.Type("tTime", hhmm);
            Enter();
            Enter();
        }
        std::string Stored(int classId) {
            return day.db.Text("SELECT StartTime FROM Start WHERE Class=" +
                               std::to_string(classId));
        }
    };

private slots:
    void storesEachClassInTurnAndRefusesImpossibleStarts() {
        Window w;
        w.EnterTime("2400");
        w.c.Type("tDate", "31/06/2005");
        w.EnterTime("1405");
        QCOMPARE(Shown(w.messages), QStringList({"E-Please enter a valid start time",
                                                 "E-Please enter a valid start date"}));
        QCOMPARE(Focused()->objectName(), QString("tDate"));
        w.c.Type("tDate", "12/06/2005");
        w.EnterTime("1405");
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string("2005-06-12 14:05:00"));
        QCOMPARE(w.c.Label("lClass"), QString("Class 2"));
        w.c.Type("tDate", "13/06/2005");
        w.EnterTime("1410");
        QCOMPARE(w.Stored(RaceDay::kClass2), std::string("2005-06-13 14:10:00"));
        QCOMPARE(w.c.Label("lClass"), QString("Class 1"));
        QCOMPARE(w.c.Text("tTime"), QString("1405"));
    }

    void closingWithATypedStartOffersToSaveIt() {
        for (const bool save : {true, false}) {
            Window w;
            w.c.Type("tTime", "1405");
            w.messages.answers = {save};
            w.c.Press("cmdCancel");
            QCOMPARE(w.messages.questions,
                     std::vector<std::string>{"Do you want to save the changes?"});
            QVERIFY(!w.c.w.isVisible());
            QCOMPARE(w.Stored(RaceDay::kClass1), save ? "2005-06-12 14:05:00" : "");
        }
    }
};

QTEST_MAIN(StartTimesWindowTest)
#include "test_frmStartTimes.moc"
