// The start times window as a race officer uses it: one class at a time, typed four-digit times,
// Enter to move on, wrapping back to the first class, copying the last comment and footnote.

#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "data/clResults.h"
#include "support/RaceDay.h"
#include "support/WindowTesting.h"
#include "ui/frmStartTimes.h"

using tb::test::RaceDay;
using tb::test::Row;

namespace {

struct BadStart {
    QString date, time, message, focus;
};

}  // namespace

class StartTimesWindowTest : public QObject {
    Q_OBJECT

private:
    struct Window {
        RaceDay day;
        tb::clResults results;
        tb::test::RecordingMessages messages;
        std::unique_ptr<tb::frmStartTimes> window;

        void Open() {
            window = std::make_unique<tb::frmStartTimes>(results, RaceDay::kSeries, RaceDay::kRace);
            tb::test::ShowActive(*window);
        }
        template <typename T>
        T* Get(const char* name) {
            return tb::test::Find<T>(window.get(), name);
        }
        QString Text(const char* name) { return Get<QLineEdit>(name)->text(); }
        QString ClassShown() { return Get<QLabel>("lClass")->text(); }
        void Type(const char* name, const QString& text) {
            Get<QLineEdit>(name)->setFocus();
            tb::test::Type(Get<QLineEdit>(name), text);
        }
        // Types the time, Enter to reach OK, Enter to save.
        void EnterTime(const QString& hhmm) {
            Type("tTime", hhmm);
            QTest::keyClick(Get<QLineEdit>("tTime"), Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), Get<QPushButton>("cmdOK"));
            QTest::keyClick(Get<QPushButton>("cmdOK"), Qt::Key_Return);
        }
        std::string Stored(int classId) {
            return day.db.Text("SELECT StartTime FROM Start WHERE Schedule=10 AND Class=" +
                               std::to_string(classId));
        }
    };

private slots:
    void storesEachClassInTurnAndWrapsToTheFirst() {
        Window w;
        w.Open();
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(w.Text("tDate"), QString("12/06/2005"));
        QVERIFY(!w.Get<QPushButton>("cmdCopy")->isEnabled());
        QCOMPARE(w.day.db.Count("Start"), 2LL);
        tb::test::Screenshot(*w.window, "frmStartTimes");

        w.EnterTime("1405");
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string("2005-06-12 14:05:00"));
        QCOMPARE(w.ClassShown(), QString("Class 2"));
        w.Type("tDate", "13/06/2005");
        w.EnterTime("1410");
        QCOMPARE(w.Stored(RaceDay::kClass2), std::string("2005-06-13 14:10:00"));
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(w.Text("tTime"), QString("1405"));
        QCOMPARE(w.Text("tDate"), QString("12/06/2005"));
        QVERIFY(w.messages.shown.empty());
    }

    void refusesAnImpossibleTimeOrDate_data() {
        QTest::addColumn<BadStart>("bad");
        const QString badTime = "E-Please enter a valid start time";
        Row("hour 24", BadStart{"12/06/2005", "2400", badTime, "tTime"});
        Row("minute 60", BadStart{"12/06/2005", "1260", badTime, "tTime"});
        Row("three digits", BadStart{"12/06/2005", "930", badTime, "tTime"});
        Row("a letter", BadStart{"12/06/2005", "14a5", badTime, "tTime"});
        Row("31 June",
            BadStart{"31/06/2005", "1405", "E-Please enter a valid start date", "tDate"});
    }
    void refusesAnImpossibleTimeOrDate() {
        QFETCH(BadStart, bad);
        const auto& [date, time, message, focus] = bad;
        Window w;
        w.Open();
        w.Type("tDate", date);
        w.EnterTime(time);
        QCOMPARE(tb::test::Shown(w.messages), QStringList{message});
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(QApplication::focusWidget()->objectName(), focus);
    }

    void clearingTheTimeClearsTheStartAndCancelSavesNothing() {
        Window w;
        w.day.Start(RaceDay::kClass1, "1405");
        w.Open();
        QCOMPARE(w.Text("tTime"), QString("1405"));
        w.Type("tTime", "");
        QTest::mouseClick(w.Get<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
        w.Type("tTime", "1405");
        QTest::mouseClick(w.Get<QPushButton>("cmdCancel"), Qt::LeftButton);
        QVERIFY(!w.window->isVisible());
        QCOMPARE(w.Stored(RaceDay::kClass2), std::string());
    }

    void copyPutsTheLastSavedTextsIntoTheNextClass() {
        Window w;
        w.Open();
        w.Type("tComment", "  Wind SW 3  ");
        w.Type("tFootnote", "Protests by 21:00");
        w.EnterTime("1405");
        QCOMPARE(w.day.db.Text("SELECT TopNote FROM Start WHERE Class=1"),
                 std::string("Wind SW 3"));
        QVERIFY(w.Get<QPushButton>("cmdCopy")->isEnabled());
        QCOMPARE(w.Text("tComment"), QString());
        QTest::mouseClick(w.Get<QPushButton>("cmdCopy"), Qt::LeftButton);
        QCOMPARE(w.Text("tComment"), QString("Wind SW 3"));
        QCOMPARE(w.Text("tFootnote"), QString("Protests by 21:00"));
    }
};

QTEST_MAIN(StartTimesWindowTest)
#include "test_frmStartTimes.moc"
