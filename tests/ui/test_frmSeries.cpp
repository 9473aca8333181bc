#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "data/clResults.h"
#include "support/WindowTesting.h"
#include "ui/frmSeries.h"

using namespace tb::test;

namespace {

// A database with two handicap types besides the seeded scoring and discard systems, and with
// the series "Summer" unless told otherwise; the series window opens on it (or on a new one).
struct SeriesWindow {
    explicit SeriesWindow(bool withSeries = true) {
        db.Exec("INSERT INTO HandicapType (Description) VALUES ('IRC'), ('Club')");
        if (withSeries && !results.PutSeriesDetails(series, "Summer", "", 1, "1").empty())
            qFatal("cannot add a series");
    }
    Controls Open() {
        window = std::make_unique<tb::frmSeries>(results, series);
        window->show();
        return Controls{window.get()};
    }
    std::string Id() const { return std::to_string(series); }

    TestDatabase db;
    tb::clResults results;
    RecordingMessages messages;
    int series = 0;
    std::unique_ptr<tb::frmSeries> window;
};

}  // namespace

class TestSeriesEditor : public QObject {
    Q_OBJECT
private slots:
    void aNewSeriesIsCheckedSavedAndThenTakesRacesAndClasses() {
        SeriesWindow s(false);
        const Controls c = s.Open();
        QVERIFY(!c.Enabled("cmdOK"));
        c.Press("cmdAddSchedule");
        c.Type("tName", "   ");
        QVERIFY(!c.Enabled("cmdAddSeries"));
        c.Press("cmdOK");
        c.Type("tName", "  Bishop's Summer Series ");
        c.Press("cmdOK");
        c.Choose("SelScoring", "Low points");
        c.Press("cmdOK");
        QCOMPARE(
            Shown(s.messages),
            QStringList({"I-No series selected", "E-Please enter the series name",
                         "E-Please select a scoring system", "E-Please select a discard system"}));
        QCOMPARE(s.db.Count("Series"), 0LL);

        c.Choose("SelDiscards", "One after 4, two after 8");
        s.messages.Clear();
        c.Press("cmdOK");
        QVERIFY(s.messages.shown.empty());
        QCOMPARE(c.Label("lInfo"), QString("Series details saved"));
        QCOMPARE(c.Text("tName"), QString("Bishop's Summer Series"));
        QVERIFY(c.Enabled("cmdAddSeries"));
        QCOMPARE(s.db.Text("SELECT Title FROM Series WHERE Id = " +
                           std::to_string(s.window->SeriesId())),
                 std::string("Bishop's Summer Series"));

        {
            const NextModal race([](QDialog& dialog) {
                const Controls d{&dialog};
                QCOMPARE(d.Get<QLabel>("lSeries")->text(), QString("Bishop's Summer Series"));
                d.Type("tTitle", "Race 1");
                d.Type("tDate", "18/06/02");
                d.Get<QCheckBox>("cSubseries")->setChecked(true);
                d.Press("cmdOK");
            });
            c.Press("cmdAddSchedule");
        }
        QCOMPARE(Lines(c.Get<QListWidget>("listSchedule")), QStringList{"18/06/02*  Race 1"});

        const NextModal split([](QDialog& dialog) {
            const Controls d{&dialog};
            QCOMPARE(d.Get<QLineEdit>("tValue")->text(), QString("0.000"));
            QCOMPARE(d.Get<QComboBox>("SelHandicap")->currentIndex(), -1);
            d.Type("tTitle", "Class 1");
            d.Choose("SelHandicap", "IRC");
            d.Type("tValue", "0.95");
            d.Press("cmdOK");
        });
        c.Press("cmdAddClassSplit");
        QCOMPARE(Lines(c.Get<QListWidget>("listClassSplits")),
                 QStringList{QString("Class 1").leftJustified(32) +
                             QString("IRC").leftJustified(16) + "0.950"});
        QVERIFY(!c.Get<QPushButton>("cmdOK")->isEnabled());
    }

    void theRaceAndClassWindowsCheckTheirFieldsInOrder() {
        SeriesWindow s;
        const Controls c = s.Open();
        {
            const NextModal race([&](QDialog& dialog) {
                const Controls d{&dialog};
                d.Press("cmdOK");
                d.Type("tTitle", "Race 1");
                d.Type("tDate", "31/06/02");
                d.Press("cmdOK");
                QVERIFY(dialog.isVisible());
            });
            c.Press("cmdAddSchedule");
        }
        const NextModal split([&](QDialog& dialog) {
            const Controls d{&dialog};
            d.Type("tValue", "abc");
            d.Press("cmdOK");
            d.Type("tTitle", "Class 2");
            d.Press("cmdOK");
            d.Choose("SelHandicap", "Club");
            d.Press("cmdOK");
            d.Type("tValue", "  ");
            d.Press("cmdOK");
        });
        c.Press("cmdAddClassSplit");
        QCOMPARE(Shown(s.messages),
                 QStringList({"E-Please specify the name of the race",
                              "E-Please specify a valid date for the race",
                              "E-Please specify the name of this class",
                              "E-Please specify the handicap type for this class",
                              "E-Please enter a valid number for the mimumum TCF or leave blank"}));
        QCOMPARE(s.db.Count("Schedule"), 0LL);
        QCOMPARE(
            Lines(c.Get<QListWidget>("listClassSplits")),
            QStringList{QString("Class 2").leftJustified(32) + QString("Club").leftJustified(16)});
        QCOMPARE(s.db.Count("Class", "MinTCF IS NULL"), 1LL);
    }

    void closingWithUnsavedEditsAndNoRaceAsksThenRefuses() {
        SeriesWindow s;
        const Controls c = s.Open();
        c.Type("tName", "Summer 2002");
        s.messages.answers = {false};
        s.window->close();
        QCOMPARE(s.messages.questions,
                 std::vector<std::string>{"Do you want to save the changes?"});
        QCOMPARE(s.messages.questionTitles, std::vector<std::string>{"Tallyboard"});
        QCOMPARE(LastShown(s.messages),
                 QString("There must be at least one race scheduled in the series"));
        QVERIFY(s.window->isVisible());
        QCOMPARE(s.db.Text("SELECT Title FROM Series"), std::string("Summer"));

        s.messages.Clear();
        c.Type("tName", "Summer 2002");
        c.Press("cmdCancel");
        QVERIFY(s.messages.questions.empty());
        QVERIFY(s.messages.shown.empty());
        QVERIFY(!s.window->isVisible());
    }

    void removalsAreRefusedWhileInUseAndConfirmedOtherwise() {
        SeriesWindow s;
        s.db.Exec("INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES (" +
                  s.Id() + ", 'Race 1', '2002-06-18 00:00:00', 0)");
        s.db.Exec("INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (" + s.Id() +
                  ", 'Class 1', 1, 1.0)");
        s.db.Exec("INSERT INTO Entrant (Series, Boat, Class, EntrantType) VALUES (" + s.Id() +
                  ", 1, 1, 0)");
        s.db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1)");
        const Controls c = s.Open();
        auto* races = c.Get<QListWidget>("listSchedule");
        auto* classes = c.Get<QListWidget>("listClassSplits");

        c.Press("cmdRemove");
        c.Press("cmdRemoveClass");
        races->setCurrentRow(0);
        c.Press("cmdRemove");
        classes->setCurrentRow(0);
        c.Press("cmdRemoveClass");
        c.Press("cmdRemoveSeries");
        QCOMPARE(s.messages.questions, (Texts{"Remove race: Race 1?", "Remove class: Class 1?"}));
        QCOMPARE(s.messages.questionTitles,
                 (Texts{"Remove race from schedule", "Remove class from series"}));
        QCOMPARE(Shown(s.messages),
                 QStringList(
                     {"I-No scheduled race selected", "I-No class selected",
                      "E-It is not possible to remove this scheduled race as there are boats "
                      "entered in it.",
                      "E-It is not possible to remove this class as there are boats entered in "
                      "it.",
                      "I-Before removing a series, first remove any scheduled races and classes"}));
        QCOMPARE(s.db.Count("Schedule") + s.db.Count("Class") + s.db.Count("Series"), 3LL);

        s.db.Exec("DELETE FROM EntryList");
        s.db.Exec("DELETE FROM Entrant");
        s.messages.Clear();
        s.messages.answers = {false, true, true};
        races->setCurrentRow(0);
        c.Press("cmdRemove");
        QCOMPARE(s.db.Count("Schedule"), 1LL);
        c.Press("cmdRemove");
        QCOMPARE(races->count(), 0);
        classes->setCurrentRow(0);
        c.Press("cmdRemoveClass");
        QCOMPARE(classes->count(), 0);
        c.Press("cmdRemoveSeries");
        QCOMPARE(s.messages.questions.back(), std::string("Remove series Summer?"));
        QCOMPARE(s.db.Count("Schedule") + s.db.Count("Class") + s.db.Count("Series"), 0LL);
        QCOMPARE(s.window->SeriesId(), 0);
        QVERIFY(c.Text("tName").isEmpty());
        c.Press("cmdRemoveSeries");
        QCOMPARE(Shown(s.messages), QStringList{"I-No series selected"});
    }

    void editingARaceShowsItAndSavesItInPlace() {
        SeriesWindow s;
        s.results.PutScheduleDetails(0, s.series, "Race 2", "25/06/02", false, "");
        s.results.PutScheduleDetails(0, s.series, "Race 1", "18/06/02", true, "R-1");
        const Controls c = s.Open();
        auto* races = c.Get<QListWidget>("listSchedule");
        QCOMPARE(Lines(races), (QStringList{"18/06/02*  Race 1", "25/06/02   Race 2"}));

        c.Press("cmdEditSchedule");
        QCOMPARE(LastShown(s.messages), QString("No scheduled race selected"));
        races->setCurrentRow(0);
        const NextModal race([](QDialog& dialog) {
            const Controls d{&dialog};
            QCOMPARE(d.Get<QLineEdit>("tTitle")->text(), QString("Race 1"));
            QCOMPARE(d.Get<QLineEdit>("tDate")->text(), QString("18/06/2002"));
            QVERIFY(d.Get<QCheckBox>("cSubseries")->isChecked());
            QCOMPARE(d.Get<QLineEdit>("tRaceId")->text(), QString("R-1"));
            d.Get<QCheckBox>("cSubseries")->setChecked(false);
            d.Type("tRaceId", "");
            d.Type("tDate", "2/7/02");
            QTest::keyClick(d.Get<QLineEdit>("tDate"), Qt::Key_Return);  // Enter confirms
        });
        c.Press("cmdEditSchedule");
        QCOMPARE(s.db.Count("Schedule"), 2LL);
        QCOMPARE(s.db.Count("Schedule", "Reference IS NULL AND InSubSeries=0"), 2LL);
        QCOMPARE(Lines(races), (QStringList{"25/06/02   Race 2", "02/07/02   Race 1"}));
    }
};

QTEST_MAIN(TestSeriesEditor)
#include "test_frmSeries.moc"
