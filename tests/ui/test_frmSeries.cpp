#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include "data/clResults.h"
#include "support/ModalWindows.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"
#include "ui/frmSeries.h"

using tb::test::Find;
using tb::test::WhenModalOpens;

namespace {

// A database with two handicap types besides the seeded scoring and discard systems.
struct Club {
    Club() { db.Exec("INSERT INTO HandicapType (Description) VALUES ('IRC'), ('Club')"); }
    int AddSeries(const std::string& title) {
        int id = 0;
        if (!results.PutSeriesDetails(id, title, "", 1, "1").empty())
            qFatal("cannot add a series");
        return id;
    }
    tb::test::TestDatabase db;
    tb::clResults results;
    tb::test::RecordingMessages messages;
};

void Type(QWidget* window, const char* field, const QString& text) {
    auto* edit = Find<QLineEdit>(window, field);
    edit->selectAll();
    QTest::keyClicks(edit, text.isEmpty() ? QString(" ") : text);
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Backspace);
}

void Click(QWidget* window, const char* button) {
    QTest::mouseClick(Find<QPushButton>(window, button), Qt::LeftButton);
}

void Choose(QWidget* window, const char* list, const QString& text) {
    auto* combo = Find<QComboBox>(window, list);
    combo->setCurrentIndex(combo->findText(text));
}

void Highlight(QWidget* window, const char* list, int row) {
    auto* lines = Find<QListWidget>(window, list);
    lines->setCurrentRow(row);
}

QStringList Lines(QWidget* window, const char* list) {
    QStringList texts;
    auto* lines = Find<QListWidget>(window, list);
    for (int i = 0; i < lines->count(); ++i)
        texts << lines->item(i)->text();
    return texts;
}

QString LastShown(const tb::test::RecordingMessages& messages) {
    return messages.shown.empty() ? QString() : QString::fromStdString(messages.shown.back().text);
}

}  // namespace

class TestSeriesEditor : public QObject {
    Q_OBJECT
private slots:
    void aNewSeriesIsCheckedSavedAndThenTakesRacesAndClasses();
    void raceAndClassWindowsCheckTheirFieldsInOrder();
    void closingWithUnsavedEditsAndNoRaceAsksThenRefuses();
    void removalsAreRefusedWhileInUseAndConfirmedOtherwise();
    void editingARaceShowsItAndSavesItInPlace();
};

void TestSeriesEditor::aNewSeriesIsCheckedSavedAndThenTakesRacesAndClasses() {
    Club club;
    tb::frmSeries window(club.results, 0);
    window.show();
    QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());
    QCOMPARE(Find<QComboBox>(&window, "SelScoring")->currentIndex(), -1);

    Click(&window, "cmdAddSchedule");
    QCOMPARE(LastShown(club.messages), QString("No series selected"));

    Type(&window, "tName", "   ");
    QVERIFY(Find<QPushButton>(&window, "cmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(&window, "cmdAddSeries")->isEnabled());
    Click(&window, "cmdOK");
    QCOMPARE(LastShown(club.messages), QString("Please enter the series name"));
    QCOMPARE(club.messages.shown.back().icon, tb::MessageIcon::Exclamation);
    Type(&window, "tName", "  Bishop's Summer Series ");
    Click(&window, "cmdOK");
    QCOMPARE(LastShown(club.messages), QString("Please select a scoring system"));
    Choose(&window, "SelScoring", "Low points");
    Click(&window, "cmdOK");
    QCOMPARE(LastShown(club.messages), QString("Please select a discard system"));
    QCOMPARE(club.db.Count("Series"), 0LL);

    Choose(&window, "SelDiscards", "One after 4, two after 8");
    club.messages.Clear();
    Click(&window, "cmdOK");
    QVERIFY(club.messages.shown.empty());
    QCOMPARE(Find<QLabel>(&window, "lInfo")->text(), QString("Series details saved"));
    QCOMPARE(Find<QLineEdit>(&window, "tName")->text(), QString("Bishop's Summer Series"));
    QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());
    QVERIFY(Find<QPushButton>(&window, "cmdAddSeries")->isEnabled());
    QVERIFY(window.SeriesId() > 0);
    QCOMPARE(club.db.Text("SELECT Title FROM Series"), std::string("Bishop's Summer Series"));

    WhenModalOpens([](QWidget* race) {
        QCOMPARE(race->windowTitle(), QString("Race details"));
        QCOMPARE(Find<QLabel>(race, "lSeries")->text(), QString("Bishop's Summer Series"));
        Type(race, "tTitle", "Race 1");
        Type(race, "tDate", "18/06/02");
        Find<QCheckBox>(race, "cSubseries")->setChecked(true);
        Click(race, "cmdOK");
    });
    Click(&window, "cmdAddSchedule");
    QCOMPARE(Lines(&window, "listSchedule"), QStringList{"18/06/02*  Race 1"});

    WhenModalOpens([](QWidget* split) {
        QCOMPARE(Find<QLineEdit>(split, "tValue")->text(), QString("0.000"));
        QCOMPARE(Find<QComboBox>(split, "SelHandicap")->currentIndex(), -1);
        Type(split, "tTitle", "Class 1");
        Choose(split, "SelHandicap", "IRC");
        Type(split, "tValue", "0.95");
        Click(split, "cmdOK");
    });
    Click(&window, "cmdAddClassSplit");
    QCOMPARE(Lines(&window, "listClassSplits"),
             QStringList{QString("Class 1").leftJustified(32) + QString("IRC").leftJustified(16) +
                         "0.950"});
    QVERIFY(!Find<QPushButton>(&window, "cmdOK")->isEnabled());
}

void TestSeriesEditor::raceAndClassWindowsCheckTheirFieldsInOrder() {
    Club club;
    const int series = club.AddSeries("Summer");
    tb::frmSeries window(club.results, series);
    window.show();

    bool stayedOpen = false;
    WhenModalOpens([&](QWidget* race) {
        Click(race, "cmdOK");
        QCOMPARE(LastShown(club.messages), QString("Please specify the name of the race"));
        Type(race, "tTitle", "Race 1");
        Type(race, "tDate", "31/06/02");
        Click(race, "cmdOK");
        QCOMPARE(LastShown(club.messages), QString("Please specify a valid date for the race"));
        stayedOpen = race->isVisible();
        Click(race, "cmdCancel");
    });
    Click(&window, "cmdAddSchedule");
    QVERIFY(stayedOpen);
    QCOMPARE(club.db.Count("Schedule"), 0LL);

    struct Case {
        QString title;
        QString handicapType;
        QString minTcf;
        QString message;  // empty: saved and closed
    };
    const QList<Case> cases = {
        {"", "", "abc", "Please specify the name of this class"},
        {"Class 2", "", "abc", "Please specify the handicap type for this class"},
        {"Class 2", "Club", "abc",
         "Please enter a valid number for the mimumum TCF or leave blank"},
        {"Class 2", "Club", "  ", ""},
    };
    for (const Case& c : cases) {
        club.messages.Clear();
        WhenModalOpens([&](QWidget* split) {
            Type(split, "tTitle", c.title);
            if (!c.handicapType.isEmpty())
                Choose(split, "SelHandicap", c.handicapType);
            Type(split, "tValue", c.minTcf);
            Click(split, "cmdOK");
            if (split->isVisible())
                Click(split, "cmdCancel");
        });
        Click(&window, "cmdAddClassSplit");
        QCOMPARE(LastShown(club.messages), c.message);
    }
    QCOMPARE(club.db.Count("Class", "MinTCF IS NULL"), 1LL);
    QCOMPARE(Lines(&window, "listClassSplits"),
             QStringList{QString("Class 2").leftJustified(32) + QString("Club").leftJustified(16)});
}

void TestSeriesEditor::closingWithUnsavedEditsAndNoRaceAsksThenRefuses() {
    Club club;
    const int series = club.AddSeries("Summer");
    tb::frmSeries window(club.results, series);
    window.show();
    Type(&window, "tName", "Summer 2002");
    club.messages.answers = {false};
    window.close();
    QCOMPARE(club.messages.questions, std::vector<std::string>{"Do you want to save the changes?"});
    QCOMPARE(club.messages.questionTitles, std::vector<std::string>{"Tallyboard"});
    QCOMPARE(LastShown(club.messages),
             QString("There must be at least one race scheduled in the series"));
    QVERIFY(window.isVisible());
    QCOMPARE(club.db.Text("SELECT Title FROM Series"), std::string("Summer"));

    club.messages.Clear();
    Type(&window, "tName", "Summer 2002");
    Click(&window, "cmdCancel");
    QVERIFY(club.messages.questions.empty());
    QVERIFY(club.messages.shown.empty());
    QVERIFY(!window.isVisible());
}

void TestSeriesEditor::removalsAreRefusedWhileInUseAndConfirmedOtherwise() {
    Club club;
    const int series = club.AddSeries("Summer");
    club.db.Exec("INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES (" +
                 std::to_string(series) + ", 'Race 1', '2002-06-18 00:00:00', 0)");
    club.db.Exec("INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (" +
                 std::to_string(series) + ", 'Class 1', 1, 1.0)");
    club.db.Exec("INSERT INTO Entrant (Series, Boat, Class, EntrantType) VALUES (" +
                 std::to_string(series) + ", 1, 1, 0)");
    club.db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1)");
    tb::frmSeries window(club.results, series);
    window.show();

    Click(&window, "cmdRemove");
    QCOMPARE(LastShown(club.messages), QString("No scheduled race selected"));
    Click(&window, "cmdRemoveClass");
    QCOMPARE(LastShown(club.messages), QString("No class selected"));

    Highlight(&window, "listSchedule", 0);
    Click(&window, "cmdRemove");
    QCOMPARE(club.messages.questions.back(), std::string("Remove race: Race 1?"));
    QCOMPARE(club.messages.questionTitles.back(), std::string("Remove race from schedule"));
    QCOMPARE(LastShown(club.messages),
             QString("It is not possible to remove this scheduled race as there are boats "
                     "entered in it."));
    Highlight(&window, "listClassSplits", 0);
    Click(&window, "cmdRemoveClass");
    QCOMPARE(club.messages.questions.back(), std::string("Remove class: Class 1?"));
    QCOMPARE(club.messages.questionTitles.back(), std::string("Remove class from series"));
    QCOMPARE(LastShown(club.messages),
             QString("It is not possible to remove this class as there are boats entered in it."));
    Click(&window, "cmdRemoveSeries");
    QCOMPARE(LastShown(club.messages),
             QString("Before removing a series, first remove any scheduled races and classes"));
    QCOMPARE(club.db.Count("Schedule") + club.db.Count("Class") + club.db.Count("Series"), 3LL);

    club.db.Exec("DELETE FROM EntryList");
    club.db.Exec("DELETE FROM Entrant");
    club.messages.Clear();
    club.messages.answers = {false, true, true};
    Highlight(&window, "listSchedule", 0);
    Click(&window, "cmdRemove");
    QCOMPARE(club.db.Count("Schedule"), 1LL);
    Click(&window, "cmdRemove");
    QCOMPARE(club.db.Count("Schedule"), 0LL);
    QVERIFY(Lines(&window, "listSchedule").isEmpty());
    Highlight(&window, "listClassSplits", 0);
    Click(&window, "cmdRemoveClass");
    QVERIFY(Lines(&window, "listClassSplits").isEmpty());
    QVERIFY(club.messages.shown.empty());

    club.messages.answers = {true};
    Click(&window, "cmdRemoveSeries");
    QCOMPARE(club.messages.questions.back(), std::string("Remove series Summer?"));
    QCOMPARE(club.db.Count("Series"), 0LL);
    QCOMPARE(window.SeriesId(), 0);
    QVERIFY(Find<QLineEdit>(&window, "tName")->text().isEmpty());
    Click(&window, "cmdRemoveSeries");
    QCOMPARE(LastShown(club.messages), QString("No series selected"));
}

void TestSeriesEditor::editingARaceShowsItAndSavesItInPlace() {
    Club club;
    const int series = club.AddSeries("Summer");
    club.results.PutScheduleDetails(0, series, "Race 2", "25/06/02", false, "");
    club.results.PutScheduleDetails(0, series, "Race 1", "18/06/02", true, "R-1");
    tb::frmSeries window(club.results, series);
    window.show();
    QCOMPARE(Lines(&window, "listSchedule"),
             (QStringList{"18/06/02*  Race 1", "25/06/02   Race 2"}));

    Click(&window, "cmdEditSchedule");
    QCOMPARE(LastShown(club.messages), QString("No scheduled race selected"));
    Highlight(&window, "listSchedule", 0);
    WhenModalOpens([](QWidget* race) {
        QCOMPARE(Find<QLineEdit>(race, "tTitle")->text(), QString("Race 1"));
        QCOMPARE(Find<QLineEdit>(race, "tDate")->text(), QString("18/06/2002"));
        QVERIFY(Find<QCheckBox>(race, "cSubseries")->isChecked());
        QCOMPARE(Find<QLineEdit>(race, "tRaceId")->text(), QString("R-1"));
        Find<QCheckBox>(race, "cSubseries")->setChecked(false);
        Type(race, "tRaceId", "");
        Type(race, "tDate", "2/7/02");
        QTest::keyClick(Find<QLineEdit>(race, "tDate"), Qt::Key_Return);  // Enter confirms
    });
    Click(&window, "cmdEditSchedule");
    QCOMPARE(club.db.Count("Schedule"), 2LL);
    QCOMPARE(club.db.Count("Schedule", "Reference IS NULL AND InSubSeries=0"), 2LL);
    QCOMPARE(Lines(&window, "listSchedule"),
             (QStringList{"25/06/02   Race 2", "02/07/02   Race 1"}));
}

QTEST_MAIN(TestSeriesEditor)
#include "test_frmSeries.moc"
