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
#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/ListLines.h"
#include "ui/frmEntryDetail.h"

using tb::test::Find;
using tb::test::LastShown;
using tb::test::NextModal;

namespace {

constexpr int kSeries = 1;
constexpr int kKestrel = 1;
constexpr int kAvocet = 2;

// A June series: races on 10/06 and 24/06 in the main series only, 17/06 and 01/07 also in the
// sub-series; one IRC class; Avocet (Bob Smith's, IRC 0.950 from 15/06/02) is entered in 10/06
// and 24/06; Kestrel (Ann O'Hara's) is not entered.
struct Club {
    Club() {
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
    std::set<long long> EnteredRaces(int entrant) {
        std::set<long long> races;
        SQLite::Statement rows(
            db.raw(), "SELECT Schedule FROM EntryList WHERE Entrant=" + std::to_string(entrant));
        while (rows.executeStep())
            races.insert(rows.getColumn(0).getInt64());
        return races;
    }
    tb::frmEntryDetail& Open() {
        window = std::make_unique<tb::frmEntryDetail>(results, kSeries);
        window->show();
        return *window;
    }
    tb::test::TestDatabase db;
    tb::clResults results;
    tb::test::RecordingMessages messages;
    std::unique_ptr<tb::frmEntryDetail> window;
};

// Clicks near the left edge, where an option button's circle and caption are.
void Click(QWidget* window, const char* button) {
    auto* target = Find<QAbstractButton>(window, button);
    QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(6, target->height() / 2));
}

void Type(QWidget* window, const char* field, const QString& text) {
    tb::test::Type(Find<QLineEdit>(window, field), text);
}

void SelectBoat(QWidget* window, int boatId) {
    auto* boats = Find<QComboBox>(window, "SelEntry");
    boats->setCurrentIndex(boats->findData(boatId));
}

// The tick of each race line, as "x" or "-".
QString Ticks(QWidget* window) {
    QString ticks;
    auto* races = Find<QListWidget>(window, "listSchedule");
    for (int i = 0; i < races->count(); ++i)
        ticks += races->item(i)->checkState() == Qt::Checked ? "x" : "-";
    return ticks;
}

void Tick(QWidget* window, int row, bool ticked) {
    Find<QListWidget>(window, "listSchedule")
        ->item(row)
        ->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

int CheckedType(QWidget* window) {
    for (int k = 0; k < 4; ++k) {
        if (Find<QRadioButton>(window, "rEnter_" + QString::number(k))->isChecked())
            return k;
    }
    return -1;
}

}  // namespace

class TestEntryEditor : public QObject {
    Q_OBJECT
private slots:
    void opensOnTheFirstEnteredBoatWithItsRacesAndHandicaps() {
        Club club;
        auto& window = club.Open();
        QVERIFY(club.messages.shown.empty());
        QCOMPARE(Find<QLabel>(&window, "lSeries")->text(), QString("June Evenings"));
        auto* boats = Find<QComboBox>(&window, "SelEntry");
        QCOMPARE(boats->count(), 1);
        QCOMPARE(boats->itemText(0), QString("Avocet").leftJustified(34) + "IRL 7");
        QCOMPARE(Find<QComboBox>(&window, "SelEntrant")->currentText(), QString("Smith, Bob"));
        QCOMPARE(Find<QComboBox>(&window, "SelClass")->currentText(), QString("Class 1"));
        QCOMPARE(Find<QLineEdit>(&window, "tEntryDate")->text(), QString("01/06/2002"));
        QCOMPARE(CheckedType(&window), 3);
        QCOMPARE(Ticks(&window), QString("x-x-"));
        auto* races = Find<QListWidget>(&window, "listSchedule");
        QCOMPARE(races->item(0)->text(),
                 " 10/06/02 " + QString("Race 1").leftJustified(29) + "  **");
        QCOMPARE(races->item(1)->text(), "*17/06/02 " + QString("Race 2").leftJustified(29));
        QCOMPARE(races->item(2)->text(),
                 " 24/06/02 " + QString("Race 3").leftJustified(29) + "0.950");
        QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());
        QVERIFY(Find<QPushButton>(&window, "cmdAdd")->isEnabled());

        Click(&window, "Command1");
        QCOMPARE(LastShown(club.messages), QString("Not implemented yet"));
        QCOMPARE(club.messages.shown.back().icon, tb::MessageIcon::Information);
    }

    void theEntrantTypeTicksRacesFromTheEntryDate() {
        Club club;
        auto& window = club.Open();
        Click(&window, "RShow_2");
        auto* boats = Find<QComboBox>(&window, "SelEntry");
        QCOMPARE(boats->count(), 2);
        QCOMPARE(boats->currentData().toInt(), kAvocet);
        // A boat not entered shows its owner and nothing else.
        SelectBoat(&window, kKestrel);
        QCOMPARE(Find<QComboBox>(&window, "SelEntrant")->currentText(), QString("O'Hara, Ann"));
        QCOMPARE(Find<QComboBox>(&window, "SelClass")->currentIndex(), -1);
        QVERIFY(Find<QLineEdit>(&window, "tEntryDate")->text().isEmpty());
        QVERIFY(Find<QLineEdit>(&window, "tDisplay")->text().isEmpty());
        QCOMPARE(CheckedType(&window), -1);
        QCOMPARE(Ticks(&window), QString("----"));
        QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());

        Type(&window, "tEntryDate", "17/06/02");
        const QList<QPair<const char*, QString>> choices = {
            {"rEnter_3", "-xxx"},  // series: every race from 17 June
            {"rEnter_1", "-x-x"},  // sub-series: its races from 17 June
            {"rEnter_2", "-x-x"},  // individual races: ticks stay
            {"rEnter_0", "-xxx"},
        };
        for (const auto& [option, ticks] : choices) {
            Click(&window, option);
            QCOMPARE(Ticks(&window), ticks);
        }
        QVERIFY(club.messages.shown.empty());
        QVERIFY(Find<QPushButton>(&window, "cmdOK")->isEnabled());
        QVERIFY(!Find<QPushButton>(&window, "cmdAdd")->isEnabled());

        // An empty date is today's, after every race of 2002.
        Type(&window, "tEntryDate", "");
        Click(&window, "rEnter_3");
        QCOMPARE(Find<QLineEdit>(&window, "tEntryDate")->text(),
                 QString::fromStdString(tb::FormatDate(tb::Today(), "dd/mm/yyyy")));
        QCOMPARE(Ticks(&window), QString("----"));

        Type(&window, "tEntryDate", "1/6/02");
        Click(&window, "rEnter_0");
        QCOMPARE(Ticks(&window), QString("xxxx"));
        Type(&window, "tEntryDate", "next week");
        Click(&window, "rEnter_1");
        QCOMPARE(LastShown(club.messages), QString("Please specify a valid entry date"));
        QCOMPARE(Ticks(&window), QString("xxxx"));
    }

    void okChecksInOrderThenSavesExactlyTheTickedRaces() {
        Club club;
        auto& window = club.Open();
        Click(&window, "RShow_2");
        SelectBoat(&window, kKestrel);
        Find<QComboBox>(&window, "SelEntrant")->setCurrentIndex(-1);
        Type(&window, "tEntryDate", "");

        struct Step {
            std::function<void()> fix;
            QString message;
        };
        const QList<Step> steps = {
            {[] {}, "Please specify the entrant name"},
            {[&] { Find<QComboBox>(&window, "SelEntrant")->setCurrentIndex(0); },
             "Please specify a valid entry date"},
            {[&] { Type(&window, "tEntryDate", "17/06/02"); }, "Please specify the class"},
            {[&] { Find<QComboBox>(&window, "SelClass")->setCurrentIndex(0); },
             "Please specify whether the boat is entered in the series"},
        };
        for (const Step& step : steps) {
            step.fix();
            Click(&window, "cmdOK");
            QCOMPARE(LastShown(club.messages), step.message);
        }
        QCOMPARE(club.db.Count("Entrant"), 1LL);

        Click(&window, "rEnter_3");
        Tick(&window, 0, true);
        club.messages.Clear();
        Click(&window, "cmdOK");
        QVERIFY(club.messages.shown.empty());
        QCOMPARE(Find<QLabel>(&window, "lInfo")->text(), QString("Entry details saved"));
        QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());
        QCOMPARE(club.db.Count("Entrant"), 2LL);
        QCOMPARE(club.EnteredRaces(2), (std::set<long long>{1, 2, 3, 4}));
        QCOMPARE(club.db.Text("SELECT Entrant FROM Entrant WHERE Boat=1"), std::string("1"));

        Tick(&window, 2, false);
        Tick(&window, 3, false);
        Click(&window, "cmdOK");
        QCOMPARE(club.EnteredRaces(2), (std::set<long long>{1, 2}));
        QCOMPARE(Ticks(&window), QString("xx--"));
        QVERIFY(Find<QListWidget>(&window, "listSchedule")->item(0)->text().endsWith("  **"));
    }

    void removalAsksTheLongerQuestionWhenThereAreResults() {
        Club club;
        club.db.Exec("INSERT INTO Results (Schedule, Entrant, Status) VALUES (1, 1, 9)");
        auto& window = club.Open();

        club.messages.answers = {false};
        Click(&window, "cmdRemove");
        QCOMPARE(club.messages.questions.back(),
                 std::string("There are results for this entry. Do you still want to remove it?"));
        QCOMPARE(club.messages.questionTitles.back(), std::string("Tallyboard"));
        QCOMPARE(club.db.Count("Entrant") + club.db.Count("Results"), 2LL);

        club.db.Exec("DELETE FROM Results");
        club.messages.answers = {true};
        Click(&window, "cmdRemove");
        QCOMPARE(club.messages.questions.back(), std::string("Remove this entry?"));
        QCOMPARE(club.db.Count("Entrant") + club.db.Count("EntryList"), 0LL);
        QCOMPARE(Find<QComboBox>(&window, "SelEntry")->count(), 0);
        Click(&window, "cmdRemove");
        QCOMPARE(LastShown(club.messages), QString("No boat is selected"));
        Type(&window, "tDisplay", "Nobody's boat");
        Click(&window, "cmdOK");
        QCOMPARE(LastShown(club.messages), QString("No boat is selected"));
        QCOMPARE(club.db.Count("Entrant"), 0LL);

        Click(&window, "RShow_2");
        SelectBoat(&window, kKestrel);
        Click(&window, "cmdRemove");
        QCOMPARE(LastShown(club.messages), QString("No entry was found for this boat"));
    }

    void pendingEditsAreOfferedOnlyWhenTheBoatChangesOrOnCancel() {
        Club club;
        auto& window = club.Open();
        Click(&window, "RShow_2");
        SelectBoat(&window, kAvocet);
        Type(&window, "tDisplay", "Bob's Avocet");
        club.messages.answers = {false};
        SelectBoat(&window, kKestrel);
        QCOMPARE(club.messages.questions,
                 std::vector<std::string>{"Do you want to save the changes?"});
        QCOMPARE(club.db.Text("SELECT NameOnResults FROM Entrant"), std::string());

        SelectBoat(&window, kAvocet);
        Type(&window, "tDisplay", "Bob's Avocet");
        club.messages.answers = {true};
        SelectBoat(&window, kKestrel);
        QCOMPARE(club.db.Text("SELECT NameOnResults FROM Entrant"), std::string("Bob's Avocet"));

        club.messages.Clear();
        Tick(&window, 0, true);
        window.close();
        QVERIFY(club.messages.questions.empty());
        QVERIFY(!window.isVisible());

        window.show();
        Tick(&window, 1, true);
        club.messages.answers = {false};
        Click(&window, "cmdCancel");
        QCOMPARE(club.messages.questions.size(), std::size_t{1});
        QVERIFY(!window.isVisible());
        QCOMPARE(club.db.Count("Entrant"), 1LL);
    }

    void boatEditorButtonsAndANewBoat() {
        Club club;
        auto& window = club.Open();

        {
            const NextModal editor;
            Click(&window, "cmdEdit");
            QCOMPARE(editor.name, QString("frmBoatDetail"));
            QCOMPARE(tb::SelectedId, kAvocet);
        }
        const NextModal editor;
        Click(&window, "cmdAdd");
        QCOMPARE(editor.name, QString("frmBoatDetail"));
        QCOMPARE(tb::SelectedId, -1);

        club.db.Exec("INSERT INTO People (Firstname, Lastname) VALUES ('Cy', 'Abbot')");
        club.db.Exec("INSERT INTO Boat (BoatName, FullSailNo, Owner) VALUES ('Zephyr', 'K 9', 3)");
        window.ShowNewBoat(3);
        QVERIFY(Find<QRadioButton>(&window, "RShow_2")->isChecked());
        QCOMPARE(Find<QComboBox>(&window, "SelEntry")->currentData().toInt(), 3);
        QCOMPARE(Find<QComboBox>(&window, "SelEntrant")->currentText(), QString("Abbot, Cy"));
        QVERIFY(club.messages.questions.empty());
    }
};

QTEST_MAIN(TestEntryEditor)
#include "test_frmEntryDetail.moc"
