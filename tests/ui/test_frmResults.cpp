// The results window typed as a race officer types a finish sheet: the boat by sail number or
// name and Enter, six digits and Enter, with every refusal in the information line and a beep.

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "data/clResults.h"
#include "support/RaceDay.h"
#include "support/WindowTesting.h"
#include "ui/frmResults.h"

using tb::test::Find;
using tb::test::RaceDay;
using tb::test::Row;

namespace {

struct Window {
    RaceDay day;
    tb::clResults results;
    tb::test::RecordingMessages messages;
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
        tb::test::ShowActive(*window);
    }
    template <typename T>
    T* Get(const char* name) {
        return Find<T>(window.get(), name);
    }
    QLineEdit* Field(const char* name) { return Get<QLineEdit>(name); }
    QComboBox* Entry() { return Get<QComboBox>("SelEntry"); }
    QString Info() { return Get<QLabel>("lInfo")->text(); }
    QWidget* Focus() { return QApplication::focusWidget(); }
    void Click(const char* button) {
        QTest::mouseClick(Get<QAbstractButton>(button), Qt::LeftButton);
    }

    // Types into the boat list and presses Enter.
    void FindBoat(const QString& typed) {
        Entry()->lineEdit()->setFocus();
        tb::test::Type(Entry()->lineEdit(), typed);
        QTest::keyClick(Entry()->lineEdit(), Qt::Key_Return);
    }
    void Type(const char* name, const QString& text) {
        Field(name)->setFocus();
        tb::test::Type(Field(name), text);
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

struct FinishDay {
    QString option, date, stored;
};

struct Refusal {
    QString boat;
    bool statusOk;
    QString time, message, focus;
};

}  // namespace

class ResultsWindowTest : public QObject {
    Q_OBJECT

private slots:
    void opensWithTheStatusesAndTheEntrantsAndMakesTheMissingStarts() {
        Window w;
        w.Open();
        QCOMPARE(w.Get<QLabel>("lSeries")->text(), QString("Summer Series"));
        QCOMPARE(w.Get<QLabel>("lRace")->text(), QString("Race 1 - 12/06/2005"));
        QCOMPARE(tb::test::Items(w.Entry()),
                 QStringList({QString("Alpha").leftJustified(34) + "GBR 1234",
                              QString("Bravo").leftJustified(34) + "GBR 567",
                              QString("Charlie").leftJustified(34) + "IRL 99"}));
        QCOMPARE(w.Entry()->itemData(2).toInt(), w.charlie);
        auto* status = w.Get<QComboBox>("SelStatus");
        QVERIFY(status->itemText(7).startsWith("OK - "));
        QCOMPARE(status->itemData(7).toInt(), 9);
        QVERIFY(!w.Field("tTime")->isEnabled());
        QVERIFY(w.messages.shown.empty());
        QCOMPARE(w.day.db.Count("Start"), 2LL);
        w.FindBoat("1234");
        QTest::keyClicks(w.Field("tTime"), "143512");
        tb::test::Screenshot(*w.window, "frmResults");
    }

    void aFinishIsStoredOnTheDayItsOptionNames_data() {
        QTest::addColumn<FinishDay>("finish");
        Row("start day", FinishDay{"rFinish_0", "", "2005-06-12 14:35:12"});
        Row("next day", FinishDay{"rFinish_1", "", "2005-06-13 14:35:12"});
        Row("another date", FinishDay{"rFinish_2", "14 Jun 2005", "2005-06-14 14:35:12"});
    }
    void aFinishIsStoredOnTheDayItsOptionNames() {
        QFETCH(FinishDay, finish);
        const auto& [option, date, stored] = finish;
        Window w;
        w.Open();
        w.FindBoat("1234");
        QCOMPARE(w.Focus(), w.Field("tTime"));
        w.Click(option.toLatin1());
        QCOMPARE(w.Field("tDate")->isVisible(), !date.isEmpty());
        if (!date.isEmpty())
            w.Type("tDate", date);
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(w.Stored(w.alpha), stored.toStdString());
        QCOMPARE(w.Stored(w.alpha, "Status"), std::string("9"));  // chosen by the typed time
        QCOMPARE(w.Info(), QString("Result saved"));
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Entry()));
        QCOMPARE(w.messages.beeps, 0);
        // Shown again, the finish picks its option.
        w.FindBoat("567");
        w.FindBoat("1234");
        QVERIFY(w.Get<QRadioButton>(option.toLatin1())->isChecked());
        if (!date.isEmpty())
            QCOMPARE(w.Field("tDate")->text(), date);
        QCOMPARE(w.Field("tTime")->text(), QString("143512"));
    }

    void refusesWhatCannotBeSaved_data() {
        QTest::addColumn<Refusal>("refusal");
        const QString invalid = "Finish time is invalid";
        const QString early = "Finish time must be after start time";
        Row("hour 24", Refusal{"Alpha", true, "246000", invalid, "tTime"});
        Row("five digits", Refusal{"Alpha", true, "12345", invalid, "tTime"});
        Row("a letter", Refusal{"Alpha", true, "12a456", invalid, "tTime"});
        Row("before the start", Refusal{"Alpha", true, "000000", early, "tTime"});
        Row("at the start", Refusal{"Alpha", true, "140000", early, "tTime"});
        Row("no status",
            Refusal{"Alpha", false, "", "Please select the finish status", "SelStatus"});
        Row("class not started", Refusal{"Charlie", false, "143512",
                                         "Please enter the start time for Class 2", "cStart"});
    }
    void refusesWhatCannotBeSaved() {
        QFETCH(Refusal, refusal);
        const auto& [boat, statusOk, time, message, focus] = refusal;
        Window w;
        w.Open();
        w.FindBoat(boat);
        if (statusOk)
            w.Get<QComboBox>("SelStatus")->setCurrentIndex(7);
        w.TypeAndEnter("tTime", time);
        QCOMPARE(w.Info(), message);
        QCOMPARE(w.messages.beeps, 1);
        QCOMPARE(w.Focus()->objectName(), focus);
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
        w.Click("cmdOK");
        QCOMPARE(w.Info(), QString("Penalty or redress value is invalid"));

        w.Type("tPoints", "-1");
        w.TypeAndEnter("tNote", " Redress for 12 ");
        QCOMPARE(w.Info(), QString("Result saved"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyMins"), std::string("1.5"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyPercent"), std::string("1.5"));
        QCOMPARE(w.Stored(w.alpha, "PenaltyPoints"), std::string("-1.0"));
        QCOMPARE(w.Stored(w.alpha, "Notes"), std::string("Redress for 12"));
    }

    void theSearchFindsOnlyEnteredBoatsWithAClass() {
        Window w;
        w.day.db.Exec("UPDATE Entrant SET Class=NULL WHERE Id=" + std::to_string(w.bravo));
        w.Open();
        w.FindBoat("Zulu");
        QCOMPARE(w.Info(), QString("Zulu is not entered in this race"));
        QCOMPARE(w.messages.beeps, 1);
        QCOMPARE(w.Focus(), static_cast<QWidget*>(w.Entry()));
        QVERIFY(!w.Field("tTime")->isEnabled());
        // A boat without a class is not found, but the list still offers it.
        w.FindBoat("Bravo");
        QCOMPARE(w.Info(), QString("Bravo is not entered in this race"));
        w.Entry()->setCurrentIndex(1);
        w.TypeAndEnter("tTime", "143512");
        QCOMPARE(
            w.Info(),
            QString("This boat has not been assigned a class.  Please check the entry details"));
    }

    void theHourOfTheLastFinishIsOfferedUntilANonFinishingStatus() {
        Window w;
        w.Open();
        w.FindBoat("1234");
        w.TypeAndEnter("tTime", "143512");
        w.FindBoat("567");
        QCOMPARE(w.Focus(), w.Field("tTime"));
        QCOMPARE(w.Field("tTime")->text(), QString("14"));
        QCOMPARE(w.Field("tTime")->cursorPosition(), 2);
        auto* status = w.Get<QComboBox>("SelStatus");
        const int dns = status->findData(5);
        status->setFocus();
        status->setCurrentIndex(dns);
        emit status->activated(dns);
        QCOMPARE(w.Field("tTime")->text(), QString());
        w.Click("cmdOK");
        QCOMPARE(w.Stored(w.bravo), std::string());
        QCOMPARE(w.Stored(w.bravo, "Status"), std::string("5"));
    }

    void severalMatchesOpenThePickerAndItsChoiceIsShown() {
        Window w;
        const int second = w.day.AddBoat("Alpha", "GBR 567", 9567, RaceDay::kClass2);
        w.day.Start(RaceDay::kClass2, "1410");
        w.Open();
        int listed = 0;
        const tb::test::NextModal picker([&](QDialog& picker) {
            auto* list = Find<QListWidget>(&picker, "SelBoat");
            listed = list->count();
            list->setCurrentRow(1);
            QTest::keyClick(list, Qt::Key_Return);
        });
        w.FindBoat("Alp");
        QCOMPARE(listed, 2);
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

    void aChangeThatCannotBeSavedKeepsTheBoatAndTheWindow() {
        for (const bool closing : {false, true}) {
            const tb::test::CaseTrace trace(closing ? "closing the window"
                                                    : "picking another boat");
            Window w;
            w.Open();
            w.FindBoat("Alpha");
            w.Type("tTime", "999999");
            w.messages.answers = {true};
            if (closing)
                w.window->close();
            else
                w.Entry()->setCurrentIndex(1);
            QCOMPARE(w.Info(), QString("Finish time is invalid"));
            QVERIFY(w.window->isVisible());
            QCOMPARE(w.Entry()->currentData().toInt(), w.alpha);
            QCOMPARE(w.Field("tTime")->text(), QString("999999"));
            // Escape, answering not to save, leaves without a trace.
            w.messages.answers = {false};
            QTest::keyClick(w.window.get(), Qt::Key_Escape);
            QVERIFY(!w.window->isVisible());
            QCOMPARE(w.day.db.Count("Results"), 0LL);
        }
    }

    void aRaceWithoutStartsOpensTheStartTimesWindowFirst() {
        Window w(false);
        const tb::test::NextModal startTimes([](QDialog& startTimes) {
            Find<QLineEdit>(&startTimes, "tTime")->setText("1400");
            QTest::mouseClick(Find<QPushButton>(&startTimes, "cmdOK"), Qt::LeftButton);
        });
        w.window = std::make_unique<tb::frmResults>(w.results, RaceDay::kSeries, RaceDay::kRace);
        w.window->show();
        QTRY_COMPARE(startTimes.name, QString("frmStartTimes"));
        w.window->activateWindow();
        QTRY_VERIFY(w.window->isActiveWindow());
        QCOMPARE(w.day.db.Text("SELECT StartTime FROM Start WHERE Class=1"),
                 std::string("2005-06-12 14:00:00"));
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
        tb::test::RecordingMessages messages;
        tb::frmResults window(results, RaceDay::kSeries, RaceDay::kRace);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        // Finishing order: the boats in reverse, one every 30 s from 15:00:00; the time field
        // offers the hour, so only minutes and seconds are typed after the first.
        QLineEdit* entry = Find<QComboBox>(&window, "SelEntry")->lineEdit();
        QLineEdit* time = Find<QLineEdit>(&window, "tTime");
        for (int place = 0; place < 20; ++place) {
            QTest::keyClicks(entry, QString::number(119 - place));
            QTest::keyClick(entry, Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), time);
            const QString mmss = QString("%1%2")
                                     .arg(place / 2, 2, 10, QChar('0'))
                                     .arg(place % 2 * 30, 2, 10, QChar('0'));
            QTest::keyClicks(time, place == 0 ? "15" + mmss : mmss);
            QTest::keyClick(time, Qt::Key_Return);
            QCOMPARE(Find<QLabel>(&window, "lInfo")->text(), QString("Result saved"));
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
