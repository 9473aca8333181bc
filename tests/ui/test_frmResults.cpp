// The results window typed as a race officer types a finish sheet: the boat by sail number or
// name and Enter, six digits and Enter, with every refusal in the information line and a beep.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/RaceDay.h"
#include "support/RecordingMessages.h"
#include "ui/frmResults.h"

using tb::test::RaceDay;
using tb::test::RecordingMessages;

namespace {

struct Window {
    RaceDay day;
    tb::clResults results;
    RecordingMessages messages;
    std::unique_ptr<tb::frmResults> window;
    int alpha = day.AddBoat("Alpha", "GBR 1234", 1234, RaceDay::kClass1);
    int bravo = day.AddBoat("Bravo", "GBR 567", 567, RaceDay::kClass1);
    int charlie = day.AddBoat("Charlie", "IRL 99", 99, RaceDay::kClass2);

    // Class 1 started at 14:00 unless told otherwise; class 2 has not started.
    explicit Window(bool started = true) {
        if (started)
            day.Start(RaceDay::kClass1, "1400");
    }
    void Open() {
        window = std::make_unique<tb::frmResults>(results, RaceDay::kSeries, RaceDay::kRace);
        window->show();
        window->activateWindow();
        QTRY_VERIFY(window->isActiveWindow());
    }
    template <typename T>
    T* Find(const char* name) {
        return window->findChild<T*>(name);
    }
    QLineEdit* Field(const char* name) { return Find<QLineEdit>(name); }
    QComboBox* Entry() { return Find<QComboBox>("SelEntry"); }
    QString Info() { return Find<QLabel>("lInfo")->text(); }
    QWidget* Focus() { return QApplication::focusWidget(); }

    // Types into the boat list and presses Enter.
    void FindBoat(const QString& typed) {
        QLineEdit* edit = Entry()->lineEdit();
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, typed);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    void Type(const char* name, const QString& text) {
        QLineEdit* field = Field(name);
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
    }
    void TypeAndEnter(const char* name, const QString& text) {
        Type(name, text);
        QTest::keyClick(Field(name), Qt::Key_Return);
    }
    std::string Stored(int entrant, const std::string& column = "FinishTime") {
        return day.db.Text("SELECT " + column + " FROM Results WHERE Schedule=10 AND Entrant=" +
                           std::to_string(entrant));
    }
};

}  // namespace

class ResultsWindowTest : public QObject {
    Q_OBJECT

private slots:
    void opensWithTheRaceTheStatusesAndTheEntrants() {
        Window w;
        w.Open();
        QCOMPARE(w.Find<QLabel>("lSeries")->text(), QString("Summer Series"));
        QCOMPARE(w.Find<QLabel>("lRace")->text(), QString("Race 1 - 12/06/2005"));
        QCOMPARE(w.Entry()->count(), 3);
        QCOMPARE(w.Entry()->itemText(0), QString("Alpha").leftJustified(34) + "GBR 1234");
        QCOMPARE(w.Entry()->itemData(2).toInt(), w.charlie);
        auto* status = w.Find<QComboBox>("SelStatus");
        QCOMPARE(status->count(), 9);
        QVERIFY(status->itemText(7).startsWith("OK - "));
        QCOMPARE(status->itemData(7).toInt(), 9);
        QVERIFY(!w.Field("tTime")->isEnabled());
        QVERIFY(!w.Find<QPushButton>("cmdOK")->isEnabled());
        QVERIFY(w.messages.shown.empty());
        QCOMPARE(w.day.db.Count("Start"), 2LL);  // the missing start of class 2 was made
        QTest::keyClicks(w.Entry()->lineEdit(), "1234");
        QTest::keyClick(w.Entry()->lineEdit(), Qt::Key_Return);
        QTest::keyClicks(w.Field("tTime"), "143512");
        tb::test::Screenshot(*w.window, "frmResults");
    }

    void aFinishIsStoredOnTheStartDayOrTheNextDay_data() {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("stored");
        QTest::newRow("start day") << "rFinish_0"
                                   << "2005-06-12 14:35:12";
        QTest::newRow("next day") << "rFinish_1"
                                  << "2005-06-13 14:35:12";
    }
    void aFinishIsStoredOnTheStartDayOrTheNextDay() {
        QFETCH(QString, option);
        QFETCH(QString, stored);
        Window w;
        w.Open();
        w.FindBoat("1234");
        QCOMPARE(w.Focus(), w.Field("tTime"));
        QTest::mouseClick(w.Find<QRadioButton>(option.toLatin1()), Qt::LeftButton);
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(w.Stored(w.alpha), stored.toStdString());
        QCOMPARE(w.Stored(w.alpha, "Status"), std::string("9"));  // chosen by the typed time
        QCOMPARE(w.Info(), QString("Result saved"));
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Entry()));
        QCOMPARE(w.messages.beeps, 0);
    }

    void aFinishOnAnotherDateIsTypedInTheDateField() {
        Window w;
        w.Open();
        w.FindBoat("GBR 567");
        QTest::mouseClick(w.Find<QRadioButton>("rFinish_2"), Qt::LeftButton);
        QVERIFY(w.Field("tDate")->isVisible());
        w.Type("tDate", "14 Jun 2005");
        w.TypeAndEnter("tTime", "091500");
        QCOMPARE(w.Stored(w.bravo), std::string("2005-06-14 09:15:00"));
        // Shown again, the finish two days on picks the other-date option.
        w.FindBoat("1234");
        w.FindBoat("567");
        QVERIFY(w.Find<QRadioButton>("rFinish_2")->isChecked());
        QCOMPARE(w.Field("tDate")->text(), QString("14 Jun 2005"));
        QCOMPARE(w.Field("tTime")->text(), QString("091500"));
    }

    void refusesWhatCannotBeAFinish_data() {
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("message");
        QTest::newRow("hour 24") << "246000"
                                 << "Finish time is invalid";
        QTest::newRow("five digits") << "12345"
                                     << "Finish time is invalid";
        QTest::newRow("a letter") << "12a456"
                                  << "Finish time is invalid";
        QTest::newRow("before the start") << "000000"
                                          << "Finish time must be after start time";
        QTest::newRow("at the start") << "140000"
                                      << "Finish time must be after start time";
    }
    void refusesWhatCannotBeAFinish() {
        QFETCH(QString, time);
        QFETCH(QString, message);
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        w.Find<QComboBox>("SelStatus")->setCurrentIndex(7);
        w.TypeAndEnter("tTime", time);
        QCOMPARE(w.Info(), message);
        QCOMPARE(w.messages.beeps, 1);
        QCOMPARE(w.Focus(), w.Field("tTime"));
        QCOMPARE(w.day.db.Count("Results"), 0LL);
    }

    void penaltyPlacesMustBeWholeButMinutesAndPercentNeedNot() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        w.Type("tTime", "143512");
        w.TypeAndEnter("tDate", "");
        w.TypeAndEnter("tMins", "1.5");
        w.TypeAndEnter("tPercent", "1.5");
        w.TypeAndEnter("tPoints", "1.5");
        QCOMPARE(w.Focus(), w.Field("tNote"));
        QTest::keyClick(w.Field("tNote"), Qt::Key_Return);
        QCOMPARE(w.Info(), QString("Penalty must be a whole number"));
        QCOMPARE(w.Focus(), w.Field("tPoints"));
        QCOMPARE(w.day.db.Count("Results"), 0LL);

        w.Type("tPoints", "x");
        QTest::mouseClick(w.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(w.Info(), QString("Penalty or redress value is invalid"));

        w.Type("tPoints", "-1");
        w.TypeAndEnter("tNote", " Redress for 12 ");
        QCOMPARE(w.Info(), QString("Result saved"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyMins"), std::string("1.5"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyPercent"), std::string("1.5"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyPoints"), std::string("-1.0"));
        QCOMPARE(w.Stored(w.alpha, "Notes"), std::string("Redress for 12"));
    }

    void aStatusMustBeChosen() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        QTest::mouseClick(w.Find<QPushButton>("cmdCancel"), Qt::LeftButton);  // nothing changed
        QVERIFY(!w.window->isVisible());
        w.Open();
        w.FindBoat("Alpha");
        w.TypeAndEnter("tTime", "");  // no time taken, and no status chosen
        QCOMPARE(w.Info(), QString("Please select the finish status"));
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Find<QComboBox>("SelStatus")));
    }

    void aBoatWhoseClassHasNotStartedCannotBeSaved() {
        Window w;
        w.Open();
        w.FindBoat("Charlie");
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(w.Info(), QString("Please enter the start time for Class 2"));
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Find<QPushButton>("cStart")));
        QCOMPARE(w.day.db.Count("Results"), 0LL);
    }

    void aBoatWithoutAClassIsToldSo() {
        Window w;
        w.day.db.Exec("UPDATE Entrant SET Class=NULL WHERE Id=" + std::to_string(w.bravo));
        w.Open();
        // The search finds only boats with a class; the list still offers it.
        w.FindBoat("Bravo");
        QCOMPARE(w.Info(), QString("Bravo is not entered in this race"));
        w.Entry()->setCurrentIndex(1);
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(
            w.Info(),
            QString("This boat has not been assigned a class.  Please check the entry details"));
    }

    void theHourOfTheLastFinishIsOfferedForTheNextBoat() {
        Window w;
        w.Open();
        w.FindBoat("1234");
        w.TypeAndEnter("tTime", "143512");
        w.FindBoat("567");
        QCOMPARE(w.Focus(), w.Field("tTime"));
        QCOMPARE(w.Field("tTime")->text(), QString("14"));
        QCOMPARE(w.Field("tTime")->cursorPosition(), 2);
        QTest::keyClicks(w.Field("tTime"), "3620");
        QCOMPARE(w.Field("tTime")->text(), QString("143620"));
        QTest::keyClick(w.Field("tTime"), Qt::Key_Return);
        QCOMPARE(w.Stored(w.bravo), std::string("2005-06-12 14:36:20"));
    }

    void aNonFinishingStatusDropsTheOfferedHour() {
        Window w;
        const int delta = w.day.AddBoat("Delta", "GBR 4", 4, RaceDay::kClass1);
        w.Open();
        w.FindBoat("1234");
        w.TypeAndEnter("tTime", "143512");
        w.FindBoat("Delta");
        QCOMPARE(w.Field("tTime")->text(), QString("14"));
        auto* status = w.Find<QComboBox>("SelStatus");
        const int dns = status->findData(5);
        status->setFocus();
        status->setCurrentIndex(dns);
        emit status->activated(dns);
        QCOMPARE(w.Field("tTime")->text(), QString());
        QTest::mouseClick(w.Find<QPushButton>("cmdOK"), Qt::LeftButton);
        QCOMPARE(w.Stored(delta), std::string());
        QCOMPARE(w.Stored(delta, "Status"), std::string("5"));
    }

    void aBoatNotInTheRaceIsReportedWithABeep() {
        Window w;
        w.Open();
        w.FindBoat("Zulu");
        QCOMPARE(w.Info(), QString("Zulu is not entered in this race"));
        QCOMPARE(w.messages.beeps, 1);
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Entry()));
        QVERIFY(!w.Field("tTime")->isEnabled());
    }

    void severalMatchesOpenThePickerAndItsChoiceIsShown() {
        Window w;
        const int second = w.day.AddBoat("Alpha", "GBR 567", 9567, RaceDay::kClass2);
        w.day.Start(RaceDay::kClass2, "1410");
        w.Open();
        QStringList listed;
        tb::test::OnNextModal([&](QDialog& picker) {
            auto* list = picker.findChild<QListWidget*>("SelBoat");
            for (int i = 0; i < list->count(); ++i)
                listed << list->item(i)->text();
            list->setCurrentRow(1);
            QTest::keyClick(list, Qt::Key_Return);
        });
        w.FindBoat("Alp");
        QCOMPARE(listed.size(), 2);
        QCOMPARE(w.messages.beeps, 1);
        QCOMPARE(w.Entry()->currentData().toInt(), second);
        QCOMPARE(w.window->focusWidget(), w.Field("tTime"));
        w.TypeAndEnter("tTime", "143000");
        QCOMPARE(w.Stored(second), std::string("2005-06-12 14:30:00"));
    }

    void unsavedChangesAreOfferedBeforeTheNextBoat() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        w.Type("tTime", "143512");
        w.messages.answers = {true};
        w.FindBoat("Bravo");
        QCOMPARE(w.messages.questions,
                 std::vector<std::string>{"Do you want to save the changes?"});
        QCOMPARE(w.messages.questionTitles, std::vector<std::string>{"Tallyboard"});
        QCOMPARE(w.Stored(w.alpha), std::string("2005-06-12 14:35:12"));
        QCOMPARE(w.Entry()->currentData().toInt(), w.bravo);

        w.Type("tTime", "143600");
        w.messages.answers = {false};
        w.FindBoat("Charlie");
        QCOMPARE(w.Stored(w.bravo), std::string("<no row>"));
        QCOMPARE(w.Entry()->currentData().toInt(), w.charlie);
    }

    void pickingAnotherBoatFromTheListOffersTheChangesToo() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        w.Type("tTime", "999999");
        w.messages.answers = {true};
        w.Entry()->setCurrentIndex(1);  // Bravo, picked from the list
        QCOMPARE(w.Info(), QString("Finish time is invalid"));
        QCOMPARE(w.Entry()->currentData().toInt(), w.alpha);
        QCOMPARE(w.Field("tTime")->text(), QString("999999"));

        w.Type("tTime", "143512");
        w.messages.answers = {true};
        w.Entry()->setCurrentIndex(1);
        QCOMPARE(w.Stored(w.alpha), std::string("2005-06-12 14:35:12"));
        QCOMPARE(w.Entry()->currentData().toInt(), w.bravo);
        QCOMPARE(w.Field("tTime")->text(), QString());
    }

    void closingWithAChangeThatCannotBeSavedKeepsTheWindowOpen() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        w.Type("tTime", "999999");
        w.messages.answers = {true};
        w.window->close();
        QVERIFY(w.window->isVisible());
        QCOMPARE(w.Info(), QString("Finish time is invalid"));
        w.messages.answers = {false};
        QTest::keyClick(w.window.get(), Qt::Key_Escape);
        QVERIFY(!w.window->isVisible());
        QCOMPARE(w.day.db.Count("Results"), 0LL);
    }

    void aRaceWithoutStartsOpensTheStartTimesWindowFirst() {
        Window w(false);
        bool opened = false;
        tb::test::OnNextModal([&](QDialog& startTimes) {
            opened = startTimes.objectName() == "frmStartTimes";
            startTimes.findChild<QLineEdit*>("tTime")->setText("1400");
            QTest::mouseClick(startTimes.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
            startTimes.reject();
        });
        w.window = std::make_unique<tb::frmResults>(w.results, RaceDay::kSeries, RaceDay::kRace);
        w.window->show();
        QTRY_VERIFY(opened);
        QCOMPARE(w.day.db.Text("SELECT StartTime FROM Start WHERE Class=1"),
                 std::string("2005-06-12 14:00:00"));
        w.window->activateWindow();
        QTRY_VERIFY(w.window->isActiveWindow());
        w.FindBoat("Alpha");
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(w.Info(), QString("Result saved"));
    }

    void aWholeRaceByKeyboardScoresInFinishingOrder() {
        RaceDay day;
        day.Start(RaceDay::kClass1, "1400");
        for (int i = 0; i < 20; ++i) {
            day.AddBoat("Boat " + std::to_string(i + 1), "GBR " + std::to_string(100 + i), 100 + i,
                        RaceDay::kClass1);
        }
        tb::clResults results;
        RecordingMessages messages;
        tb::frmResults window(results, RaceDay::kSeries, RaceDay::kRace);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        // Finishing order: the boats in reverse, one every 30 s from 15:00:00; the time field
        // offers the hour, so only minutes and seconds are typed after the first.
        QLineEdit* entry = window.findChild<QComboBox*>("SelEntry")->lineEdit();
        QLineEdit* time = window.findChild<QLineEdit*>("tTime");
        for (int place = 0; place < 20; ++place) {
            const int sailNo = 100 + 19 - place;
            QTest::keyClicks(entry, QString::number(sailNo));
            QTest::keyClick(entry, Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), time);
            const int seconds = place * 30;
            const QString mmss = QString("%1%2")
                                     .arg(seconds / 60, 2, 10, QChar('0'))
                                     .arg(seconds % 60, 2, 10, QChar('0'));
            QTest::keyClicks(time, place == 0 ? "15" + mmss : mmss);
            QTest::keyClick(time, Qt::Key_Return);
            QCOMPARE(window.findChild<QLabel*>("lInfo")->text(), QString("Result saved"));
        }
        QVERIFY(messages.questions.empty());

        tb::RowSet problems, classes, rows;
        QCOMPARE(results.ComputeResultTimes(RaceDay::kRace, problems), std::string());
        QCOMPARE(results.ComputePoints(RaceDay::kRace, 2), std::string());
        QCOMPARE(results.GetRaceResults(RaceDay::kRace, 2, classes, rows), std::string());
        QCOMPARE(rows.Rows(), std::size_t{20});
        for (std::size_t place = 0; place < 20; ++place) {
            QCOMPARE(rows(2, place).ToText(), "Boat " + std::to_string(20 - place));
            QCOMPARE(rows(9, place).AsDouble(), place + 1.0);
        }
    }
};

QTEST_MAIN(ResultsWindowTest)
#include "test_frmResults.moc"
