// The start times window as a race officer uses it: one class at a time, typed four-digit times,
// Enter to move on, wrapping back to the first class, copying the last comment and footnote.

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "data/clResults.h"
#include "support/RaceDay.h"
#include "support/RecordingMessages.h"
#include "ui/frmStartTimes.h"

using tb::test::RaceDay;
using tb::test::RecordingMessages;

class StartTimesWindowTest : public QObject {
    Q_OBJECT

private:
    struct Window {
        RaceDay day;
        tb::clResults results;
        RecordingMessages messages;
        std::unique_ptr<tb::frmStartTimes> window;

        Window() {
            window = std::make_unique<tb::frmStartTimes>(results, RaceDay::kSeries, RaceDay::kRace);
            Show();
        }
        void Show() {
            window->show();
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window.get()));
        }
        template <typename T>
        T* Find(const char* name) {
            return window->findChild<T*>(name);
        }
        QString Text(const char* name) { return Find<QLineEdit>(name)->text(); }
        QString ClassShown() { return Find<QLabel>("lClass")->text(); }
        // Types into the field after clearing it, as a user selecting the text would.
        void Type(const char* name, const QString& text) {
            QLineEdit* field = Find<QLineEdit>(name);
            field->setFocus();
            field->selectAll();
            QTest::keyClick(field, Qt::Key_Delete);
            QTest::keyClicks(field, text);
        }
        // Types the time, Enter to reach OK, Enter to save.
        void EnterTime(const QString& hhmm) {
            Type("tTime", hhmm);
            QTest::keyClick(Find<QLineEdit>("tTime"), Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), Find<QPushButton>("cmdOK"));
            QTest::keyClick(Find<QPushButton>("cmdOK"), Qt::Key_Return);
        }
        std::string Stored(int classId) {
            return day.db.Text("SELECT StartTime FROM Start WHERE Schedule=10 AND Class=" +
                               std::to_string(classId));
        }
    };

private slots:
    void opensOnTheFirstClassWithTheRaceDate() {
        Window w;
        QCOMPARE(w.Find<QLabel>("lSeries")->text(), QString("Summer Series"));
        QCOMPARE(w.Find<QLabel>("lRace")->text(), QString("Race 1 - 12/06/2005"));
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(w.Text("tTime"), QString());
        QCOMPARE(w.Text("tDate"), QString("12/06/2005"));
        QCOMPARE(w.window->windowTitle(), QString("Start times"));
        QVERIFY(!w.Find<QPushButton>("cmdCopy")->isEnabled());
        QCOMPARE(w.day.db.Count("Start"), 2LL);
        tb::test::Screenshot(*w.window, "frmStartTimes");
    }

    void storesATypedStartAndStepsToTheNextClass() {
        Window w;
        w.EnterTime("1405");
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string("2005-06-12 14:05:00"));
        QCOMPARE(w.ClassShown(), QString("Class 2"));
        QVERIFY(w.messages.shown.empty());
    }

    void refusesTimesThatAreNotFourDigitsOfADay_data() {
        QTest::addColumn<QString>("time");
        QTest::newRow("hour 24") << "2400";
        QTest::newRow("minute 60") << "1260";
        QTest::newRow("three digits") << "930";
        QTest::newRow("a letter") << "14a5";
    }
    void refusesTimesThatAreNotFourDigitsOfADay() {
        QFETCH(QString, time);
        Window w;
        w.EnterTime(time);
        QCOMPARE(w.messages.Texts(), std::vector<std::string>{"E-Please enter a valid start time"});
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(QApplication::focusWidget(), w.Find<QLineEdit>("tTime"));
    }

    void refusesAnImpossibleDate() {
        Window w;
        w.Type("tDate", "31/06/2005");
        w.EnterTime("1405");
        QCOMPARE(w.messages.Texts(), std::vector<std::string>{"E-Please enter a valid start date"});
        QCOMPARE(QApplication::focusWidget(), w.Find<QLineEdit>("tDate"));
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
    }

    void clearingTheTimeClearsTheStart() {
        Window w;
        w.day.Start(RaceDay::kClass1, "1405");
        w.window = std::make_unique<tb::frmStartTimes>(w.results, RaceDay::kSeries, RaceDay::kRace);
        w.Show();
        QCOMPARE(w.Text("tTime"), QString("1405"));
        w.Type("tTime", "");
        QTest::mouseClick(w.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
    }

    void savingTheLastClassWrapsToTheFirstShowingWhatWasStored() {
        Window w;
        w.EnterTime("1405");
        w.Type("tDate", "13/06/2005");
        w.EnterTime("1410");
        QCOMPARE(w.ClassShown(), QString("Class 1"));
        QCOMPARE(w.Text("tTime"), QString("1405"));
        QCOMPARE(w.Text("tDate"), QString("12/06/2005"));
        QCOMPARE(w.Stored(RaceDay::kClass2), std::string("2005-06-13 14:10:00"));
    }

    void copyPutsTheLastSavedTextsIntoTheNextClass() {
        Window w;
        w.Type("tComment", "  Wind SW 3  ");
        w.Type("tFootnote", "Protests by 21:00");
        w.EnterTime("1405");
        QCOMPARE(w.day.db.Text("SELECT TopNote FROM Start WHERE Class=1"),
                 std::string("Wind SW 3"));
        QVERIFY(w.Find<QPushButton>("cmdCopy")->isEnabled());
        QCOMPARE(w.Text("tComment"), QString());
        QTest::mouseClick(w.Find<QPushButton>("cmdCopy"), Qt::LeftButton);
        QCOMPARE(w.Text("tComment"), QString("Wind SW 3"));
        QCOMPARE(w.Text("tFootnote"), QString("Protests by 21:00"));
    }

    void cancelClosesWithoutSaving() {
        Window w;
        w.Type("tTime", "1405");
        QTest::mouseClick(w.Find<QPushButton>("cmdCancel"), Qt::LeftButton);
        QVERIFY(!w.window->isVisible());
        QCOMPARE(w.Stored(RaceDay::kClass1), std::string());
    }
};

QTEST_MAIN(StartTimesWindowTest)
#include "test_frmStartTimes.moc"
