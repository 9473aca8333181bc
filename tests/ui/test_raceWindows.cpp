// The race evening's windows typed as a race officer types: the start times one class at a
// time, four digits, Enter to reach OK and Enter to save; the finish sheet in the results window,
// the boat by sail number or name and Enter, the time and Enter. Keys go only to the control
// that has the keyboard, and nothing typed is lost on closing.

#include <QRadioButton>

#include "support/WindowTesting.h"
#include "ui/frmResults.h"
#include "ui/frmStartTimes.h"

using namespace tb;
using namespace tb::test;

namespace {

const std::string kClass1StartsAt1400 =
    "INSERT INTO Start (Schedule, Class, StartTime) VALUES (10, 1, '2005-06-12 14:00:00')";

// The start times window over the race evening, no class started.
struct StartTimesWindow {
    RaceDay day;
    clResults results;
    RecordingMessages messages;
    Opened<frmStartTimes> c{results, RaceDay::kSeries, RaceDay::kRace};
    void EnterTime(const QString& hhmm) {
        c.Type("tTime", hhmm);
        Enter();
        Enter();
    }
    std::string Stored(int classId) {
        return day.db.Text("SELECT StartTime FROM Start WHERE Class=" + std::to_string(classId));
    }
};

struct Window : Controls {
    RaceDay day;
    clResults results;
    RecordingMessages messages;
    std::unique_ptr<frmResults> form;
    int alpha = day.AddBoat("Alpha", "GBR 1234", RaceDay::kClass1);
    int bravo = day.AddBoat("Bravo", "GBR 567", RaceDay::kClass1);
    int charlie = day.AddBoat("Charlie", "IRL 99", RaceDay::kClass2);

    // Class 1 starts at 14:00; class 2 has not started.
    Window() : Controls{nullptr} { day.db.Exec(kClass1StartsAt1400); }
    void Open() {
        form = std::make_unique<frmResults>(results, RaceDay::kSeries, RaceDay::kRace);
        window = form.get();
        ShowActive(*form);
    }
    QString Info() const { return Label("lInfo"); }
    // Types into the boat box, which has the keyboard after a save, and presses Enter.
    void FindBoat(const QString& typed) {
        Type("SelEntry", typed);
        Enter();
    }
    std::string Stored(int entrant, const std::string& column = "FinishTime") {
        return day.db.Text("SELECT " + column + " FROM Results WHERE Schedule=10 AND Entrant=" +
                           std::to_string(entrant));
    }
};

}  // namespace

class RaceWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void startTimesAreStoredForEachClassInTurnAndImpossibleOnesRefused() {
        StartTimesWindow w;
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

    void closingTheStartTimesWithATypedStartOffersToSaveIt() {
        for (const bool save : {true, false}) {
            StartTimesWindow w;
            w.c.Type("tTime", "1405");
            w.messages.answers = {save};
            w.c.Press("cmdCancel");
            QCOMPARE(w.messages.questions,
                     std::vector<std::string>{"Do you want to save the changes?"});
            QVERIFY(!w.c.w.isVisible());
            QCOMPARE(w.Stored(RaceDay::kClass1), save ? "2005-06-12 14:05:00" : "");
        }
    }

    void aRaceNightByKeyboardOnly() {
        Window w;
        for (int i = 1; i <= 20; ++i)
            w.day.AddBoat("Boat " + std::to_string(i), "GBR " + std::to_string(100 + i),
                          RaceDay::kClass1);
        w.day.AddBoat("Sea Breeze", "GBR 201", RaceDay::kClass1);
        w.day.AddBoat("Sea Spray", "GBR 202", RaceDay::kClass1);
        w.Open();
        const auto finish = [&](const QString& boat, const QString& time) {
            Keys(boat);
            Enter();
            QCOMPARE(Focused()->objectName(), QString("tTime"));
            Keys(time);
            Enter();
            QCOMPARE(w.Info(), QString("Result saved"));
        };
        for (const QString& line : DataLines("race-night-sheet.tsv"))
            finish(line.section('\t', 0, 0), line.section('\t', 1));
        // "Sea" is the start of two names: the picker offers both, the second is taken.
        int offered = 0;
        const NextModal picker([&](QDialog& dialog) {
            offered = Controls{&dialog}.Items("SelBoat").size();
            Key(Qt::Key_Down);
            Enter();
        });
        Keys("Sea");
        Enter();
        QCOMPARE(offered, 2);
        ShowActive(*w.form);  // as the window manager gives the opener the keyboard back
        QCOMPARE(Focused()->objectName(), QString("tTime"));
        Keys("1100");
        Enter();
        QCOMPARE(w.Info(), QString("Result saved"));
        // A boat that did not finish: Enter past the offered hour, the status, Enter.
        Keys("201");
        Enter();
        Enter();
        QCOMPARE(Focused()->objectName(), QString("SelStatus"));
        Keys("DNF");
        Enter();
        QCOMPARE(w.Info(), QString("Result saved"));
        // A sail number not entered: the line says so and the next number replaces it.
        Keys("999");
        Enter();
        QCOMPARE(w.Info(), QString("999 is not entered in this race"));
        QCOMPARE(Focused()->objectName(), QString("SelEntry"));
        // The first boat's time was misread: its stored time is replaced by the one typed.
        finish("120", "151200");
        QCOMPARE(w.messages.beeps, 2);
        QVERIFY(w.messages.shown.empty() && w.messages.questions.empty());

        RowSet problems, classes, rows;
        QCOMPARE(w.results.ComputeResultTimes(RaceDay::kRace, problems), std::string());
        QCOMPARE(w.results.ComputePoints(RaceDay::kRace, 2), std::string());
        QCOMPARE(w.results.GetRaceResults(RaceDay::kRace, 2, classes, rows), std::string());
        QStringList places;
        for (std::size_t r = 0; r < rows.Rows(); ++r)
            places << QString::number(rows(clResults::RaceBoatCol::Points, r).AsDouble()) + " " +
                          QString::fromStdString(
                              rows(clResults::RaceBoatCol::BoatName, r).ToText());
        QCOMPARE(places, DataLines("race-night-places.txt"));
    }

    void aFinishIsStoredOnTheDayItsOptionNamesOrRefused_data() {
        CasesFrom("results-finishes.tsv");
    }
    void aFinishIsStoredOnTheDayItsOptionNamesOrRefused() {
        const QStringList f = Case();
        const QString &status = f[1], &option = f[2], &date = f[3], &time = f[4];
        const bool saved = f.size() > 7;
        Window w;
        w.Open();
        w.FindBoat(f[0]);
        if (!status.isEmpty())
            w.Choose("SelStatus", status);
        if (!option.isEmpty()) {
            w.Press(option.toLatin1());
            QCOMPARE(w.Get("tDate")->isVisible(), !date.isEmpty());
        }
        if (!date.isEmpty())
            w.Type("tDate", date);
        w.Type("tTime", time);
        w.Press("cmdOK");
        QCOMPARE(w.Info(), f[5]);
        QCOMPARE(Focused()->objectName(), f[6]);
        QCOMPARE(w.messages.beeps, saved ? 0 : 1);
        QCOMPARE(w.day.db.Count("Results"), saved ? 1LL : 0LL);
        if (!saved)
            return;
        QCOMPARE(w.Stored(w.alpha), f[7].toStdString());
        QCOMPARE(w.Stored(w.alpha, "Status"), f[8].toStdString());
        // Shown again, the finish picks its option and its time is ready to be typed over.
        w.FindBoat("567");
        w.FindBoat("1234");
        QVERIFY(w.Get<QRadioButton>(option.toLatin1())->isChecked());
        if (!date.isEmpty())
            QCOMPARE(w.Get<QLineEdit>("tDate")->text(), date);
        QCOMPARE(w.Get<QLineEdit>("tTime")->selectedText(), time);
    }

    // The boat shown, its text edited and the boat picked again, has its fields back; then a
    // second boat is offered the first one's hour, which a non-finishing status clears.
    void aBoatPickedAgainHasItsFieldsAndTheOfferedHourGivesWayToAStatus() {
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        FocusOn(w.Get("SelEntry"));
        Keys("x");
        QVERIFY(!w.Get("tTime")->isEnabled());
        Key(Qt::Key_F4);
        Enter();
        QVERIFY(w.Get("tTime")->isEnabled());
        w.FindBoat("1234");
        Keys("143512");
        Enter();
        w.FindBoat("567");
        QCOMPARE(w.Get<QLineEdit>("tTime")->text(), QString("14"));
        QCOMPARE(w.Get<QLineEdit>("tTime")->cursorPosition(), 2);
        Enter();
        QCOMPARE(Focused()->objectName(), QString("SelStatus"));
        QVERIFY(w.Info().isEmpty());
        Keys("DNS");
        QCOMPARE(w.Get<QLineEdit>("tTime")->text(), QString());
        Enter();
        QCOMPARE(w.Stored(w.bravo), std::string());
        QCOMPARE(w.Stored(w.bravo, "Status"), std::string("5"));
    }

    void aChangeThatCannotBeSavedKeepsTheBoatAndTheWindow_data() {
        QTest::addColumn<bool>("closing");
        QTest::newRow("finding another boat") << false;
        QTest::newRow("closing") << true;
    }
    void aChangeThatCannotBeSavedKeepsTheBoatAndTheWindow() {
        QFETCH(bool, closing);
        Window w;
        w.Open();
        w.FindBoat("Alpha");
        Keys("999999");
        w.messages.answers = {true};
        if (closing)
            Key(Qt::Key_Escape);
        else
            w.FindBoat("Bravo");
        QCOMPARE(w.Info(), QString("Finish time is invalid"));
        QVERIFY(w.form->isVisible());
        QCOMPARE(w.Get<QComboBox>("SelEntry")->currentData().toInt(), w.alpha);
        // Escape, answering not to save, leaves without a trace.
        w.messages.answers = {false};
        Key(Qt::Key_Escape);
        QVERIFY(!w.form->isVisible());
        QCOMPARE(w.day.db.Count("Results"), 0LL);
    }

    void startsComeFirstAndAFailureToReadThemLeavesNothingToSave() {
        Window w;
        w.day.db.Exec("DELETE FROM Start");
        const NextModal startTimes([](QDialog&) {
            Keys("1400");
            Enter();
            Enter();
        });
        w.form = std::make_unique<frmResults>(w.results, RaceDay::kSeries, RaceDay::kRace);
        w.form->show();
        QTRY_COMPARE(startTimes.name, QString("frmStartTimes"));
        ShowActive(*w.form);
        QCOMPARE(w.day.db.Text("SELECT StartTime FROM Start WHERE Class=1"),
                 std::string("2005-06-12 14:00:00"));

        Window broken;
        broken.day.db.Exec("DROP TABLE Start");
        broken.Open();
        QVERIFY(Shown(broken.messages).join("").startsWith("C-Error "));
        QVERIFY(!broken.Get("cStart")->isEnabled());
        QVERIFY(!broken.Get("cmdOK")->isEnabled());
    }
};

QTEST_MAIN(RaceWindowsTest)
#include "test_raceWindows.moc"
