#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <set>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "support/WindowTesting.h"
#include "ui/frmEntryDetail.h"

using namespace tb::test;

namespace {

constexpr int kKestrel = 1;
constexpr int kAvocet = 2;

// A June series: races on 10/06 and 24/06 in the main series only, 17/06 and 01/07 also in the
// sub-series; one IRC class; Avocet (Bob Smith's, IRC 0.950 from 15/06/02) is entered in 10/06
// and 24/06; Kestrel (Ann O'Hara's) is not entered.
struct JuneEvenings : Club {
    JuneEvenings() {
        db.Exec(R"sql(
INSERT INTO HandicapType (Description) VALUES ('IRC');
INSERT INTO People (Firstname, Lastname) VALUES ('Ann', 'O''Hara'), ('Bob', 'Smith');
INSERT INTO Boat (BoatName, FullSailNo, Owner) VALUES ('Kestrel', 'GBR 1234', 1),
    ('Avocet', 'IRL 7', 2);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) VALUES
    (2, 1, 0.95, '2002-06-15 00:00:00');
INSERT INTO Series (Title, SubseriesTitle, Scoring, Discards) VALUES
    ('June Evenings', 'Wednesdays', 1, 1);
INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES
    (1, 'Race 1', '2002-06-10 00:00:00', 0), (1, 'Race 2', '2002-06-17 00:00:00', 1),
    (1, 'Race 3', '2002-06-24 00:00:00', 0), (1, 'Race 4', '2002-07-01 00:00:00', 1);
INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (1, 'Class 1', 1, NULL);
INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant, EntryDate) VALUES
    (1, 2, 1, 3, 2, '2002-06-01 00:00:00');
INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1), (1, 3);
)sql");
    }
};

// The entry editor open on the June series.
struct Entries : JuneEvenings {
    Entries() { window.show(); }
    std::set<long long> EnteredRaces(int entrant) {
        std::set<long long> races;
        SQLite::Statement rows(
            db.raw(), "SELECT Schedule FROM EntryList WHERE Entrant=" + std::to_string(entrant));
        while (rows.executeStep())
            races.insert(rows.getColumn(0).getInt64());
        return races;
    }
    // Clicks near the left edge, where an option button's circle and caption are.
    void Click(const char* button) {
        auto* target = c.Get<QAbstractButton>(button);
        QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(6, target->height() / 2));
    }
    void SelectBoat(int boatId) {
        auto* boats = c.Get<QComboBox>("SelEntry");
        boats->setCurrentIndex(boats->findData(boatId));
    }
    // The tick of each race line, as "x" or "-".
    QString Ticks() {
        QString ticks;
        for (int i = 0; i < Races()->count(); ++i)
            ticks += Races()->item(i)->checkState() == Qt::Checked ? "x" : "-";
        return ticks;
    }
    void Tick(int row, bool ticked) {
        Races()->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
    }
    QListWidget* Races() { return c.Get<QListWidget>("listSchedule"); }

    tb::frmEntryDetail window{results, 1};
    Controls c{&window};
};

}  // namespace

class TestEntryEditor : public QObject {
    Q_OBJECT
private slots:
    void opensOnTheFirstEnteredBoatWithItsRacesAndHandicaps() {
        Entries e;
        QCOMPARE(Items(e.c.Get<QComboBox>("SelEntry")),
                 QStringList{QString("Avocet").leftJustified(34) + "IRL 7"});
        QCOMPARE(e.c.Current("SelEntrant"), QString("Smith, Bob"));
        QCOMPARE(e.c.Current("SelClass"), QString("Class 1"));
        QCOMPARE(e.c.Text("tEntryDate"), QString("01/06/2002"));
        QVERIFY(e.c.Get<QRadioButton>("rEnter_3")->isChecked());
        QCOMPARE(e.Ticks(), QString("x-x-"));
        QCOMPARE(Lines(e.Races()).mid(0, 3),
                 QStringList({" 10/06/02 " + QString("Race 1").leftJustified(29) + "  **",
                              "*17/06/02 " + QString("Race 2").leftJustified(29),
                              " 24/06/02 " + QString("Race 3").leftJustified(29) + "0.950"}));
        QVERIFY(e.messages.shown.empty());
        e.Click("Command1");
        // Avocet's handicap starts after its entry date: it keeps its class and is listed.
        QCOMPARE(Shown(e.messages),
                 QStringList{"I-These boats have no handicap of their class's type on their entry "
                             "date and keep their class:\nAvocet  IRL 7"});
    }

    void theEntrantTypeTicksRacesFromTheEntryDate() {
        Entries e;
        e.Click("RShow_2");
        QCOMPARE(e.c.Get<QComboBox>("SelEntry")->count(), 2);
        // A boat not entered shows its owner and nothing else.
        e.SelectBoat(kKestrel);
        QCOMPARE(e.c.Current("SelEntrant"), QString("O'Hara, Ann"));
        QCOMPARE(e.c.Get<QComboBox>("SelClass")->currentIndex(), -1);
        QVERIFY(e.c.Text("tEntryDate").isEmpty());
        QCOMPARE(e.Ticks(), QString("----"));

        e.c.Type("tEntryDate", "17/06/02");
        const std::pair<const char*, QString> choices[] = {
            {"rEnter_3", "-xxx"},  // series: every race from 17 June
            {"rEnter_1", "-x-x"},  // sub-series: its races from 17 June
            {"rEnter_2", "-x-x"},  // individual races: ticks stay
            {"rEnter_0", "-xxx"},
        };
        for (const auto& [option, ticks] : choices) {
            e.Click(option);
            QCOMPARE(e.Ticks(), ticks);
        }
        QVERIFY(e.messages.shown.empty());
        QVERIFY(e.c.Enabled("cmdOK"));
        QVERIFY(!e.c.Enabled("cmdAdd"));

        // An empty date is today's, after every race of 2002.
        e.c.Type("tEntryDate", "");
        e.Click("rEnter_3");
        QCOMPARE(e.c.Text("tEntryDate"),
                 QString::fromStdString(tb::FormatDate(tb::Today(), "dd/mm/yyyy")));
        QCOMPARE(e.Ticks(), QString("----"));

        e.c.Type("tEntryDate", "1/6/02");
        e.Click("rEnter_0");
        QCOMPARE(e.Ticks(), QString("xxxx"));
        e.c.Type("tEntryDate", "next week");
        e.Click("rEnter_1");
        QCOMPARE(LastShown(e.messages), QString("Please specify a valid entry date"));
        QCOMPARE(e.Ticks(), QString("xxxx"));
    }

    void okChecksInOrderThenSavesExactlyTheTickedRaces() {
        Entries e;
        e.Click("RShow_2");
        e.SelectBoat(kKestrel);
        e.c.Get<QComboBox>("SelEntrant")->setCurrentIndex(-1);
        e.c.Type("tEntryDate", "");
        const std::pair<std::function<void()>, QString> steps[] = {
            {[] {}, "Please specify the entrant name"},
            {[&] { e.c.Get<QComboBox>("SelEntrant")->setCurrentIndex(0); },
             "Please specify a valid entry date"},
            {[&] { e.c.Type("tEntryDate", "17/06/02"); }, "Please specify the class"},
            {[&] { e.c.Get<QComboBox>("SelClass")->setCurrentIndex(0); },
             "Please specify whether the boat is entered in the series"},
        };
        for (const auto& [fix, message] : steps) {
            fix();
            e.Click("cmdOK");
            QCOMPARE(LastShown(e.messages), message);
        }
        QCOMPARE(e.db.Count("Entrant"), 1LL);

        e.Click("rEnter_3");
        e.Tick(0, true);
        e.messages.Clear();
        e.Click("cmdOK");
        QVERIFY(e.messages.shown.empty());
        QCOMPARE(e.c.Label("lInfo"), QString("Entry details saved"));
        QCOMPARE(e.EnteredRaces(2), (std::set<long long>{1, 2, 3, 4}));
        QCOMPARE(e.db.Text("SELECT Entrant FROM Entrant WHERE Boat=1"), std::string("1"));

        e.Tick(2, false);
        e.Tick(3, false);
        e.Click("cmdOK");
        QCOMPARE(e.EnteredRaces(2), (std::set<long long>{1, 2}));
        QCOMPARE(e.Ticks(), QString("xx--"));
    }

    void removalAsksTheLongerQuestionWhenThereAreResults() {
        Entries e;
        e.db.Exec("INSERT INTO Results (Schedule, Entrant, Status) VALUES (1, 1, 9)");
        e.messages.answers = {false};
        e.Click("cmdRemove");
        QCOMPARE(e.messages.questions.back(),
                 std::string("There are results for this entry. Do you still want to remove it?"));
        QCOMPARE(e.db.Count("Entrant") + e.db.Count("Results"), 2LL);

        e.db.Exec("DELETE FROM Results");
        e.Click("cmdRemove");
        QCOMPARE(e.messages.questions.back(), std::string("Remove this entry?"));
        QCOMPARE(e.db.Count("Entrant") + e.db.Count("EntryList"), 0LL);
        QCOMPARE(e.c.Get<QComboBox>("SelEntry")->count(), 0);
        e.Click("cmdRemove");
        QCOMPARE(LastShown(e.messages), QString("No boat is selected"));
        e.c.Type("tDisplay", "Nobody's boat");
        e.Click("cmdOK");
        QCOMPARE(LastShown(e.messages), QString("No boat is selected"));
        QCOMPARE(e.db.Count("Entrant"), 0LL);

        e.Click("RShow_2");
        e.SelectBoat(kKestrel);
        e.Click("cmdRemove");
        QCOMPARE(LastShown(e.messages), QString("No entry was found for this boat"));
    }

    void pendingEditsAreOfferedOnlyWhenTheBoatChangesOrOnCancel() {
        Entries e;
        e.Click("RShow_2");
        e.SelectBoat(kAvocet);
        e.c.Type("tDisplay", "Bob's Avocet");
        e.messages.answers = {false};
        e.SelectBoat(kKestrel);
        QCOMPARE(e.messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(e.db.Text("SELECT NameOnResults FROM Entrant"), std::string());

        e.SelectBoat(kAvocet);
        e.c.Type("tDisplay", "Bob's Avocet");
        e.SelectBoat(kKestrel);
        QCOMPARE(e.db.Text("SELECT NameOnResults FROM Entrant"), std::string("Bob's Avocet"));

        e.messages.Clear();
        e.Tick(0, true);
        e.window.close();
        QVERIFY(e.messages.questions.empty());

        e.window.show();
        e.Tick(1, true);
        e.messages.answers = {false};
        e.Click("cmdCancel");
        QCOMPARE(e.messages.questions.size(), std::size_t{1});
        QVERIFY(!e.window.isVisible());
        QCOMPARE(e.db.Count("Entrant"), 1LL);
    }

    void theBoatEditorOpensOnTheBoatAndANewBoatIsShown() {
        Entries e;
        for (const auto& [button, selected] : {std::pair{"cmdEdit", kAvocet}, {"cmdAdd", -1}}) {
            const NextModal editor;
            e.Click(button);
            QCOMPARE(editor.name, QString("frmBoatDetail"));
            QCOMPARE(tb::SelectedId, selected);
        }
        e.db.Exec("INSERT INTO People (Firstname, Lastname) VALUES ('Cy', 'Abbot')");
        e.db.Exec("INSERT INTO Boat (BoatName, FullSailNo, Owner) VALUES ('Zephyr', 'K 9', 3)");
        e.window.ShowNewBoat(3);
        QVERIFY(e.c.Get<QRadioButton>("RShow_2")->isChecked());
        QCOMPARE(e.c.Get<QComboBox>("SelEntry")->currentData().toInt(), 3);
        QCOMPARE(e.c.Current("SelEntrant"), QString("Abbot, Cy"));
    }
};

QTEST_MAIN(TestEntryEditor)
#include "test_frmEntryDetail.moc"
