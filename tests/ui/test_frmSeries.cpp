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
        ShowActive(*window);
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
    void theRaceAndClassWindowsCheckTheirFieldsInOrder() {
        SeriesWindow s;
        const Controls c = s.Open();
        {
            const NextModal race([&](QDialog& dialog) {
                const Controls d{&dialog};
                QCOMPARE(SharedAccelerators(dialog), QString());
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
            QCOMPARE(SharedAccelerators(dialog), QString());
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
};

QTEST_MAIN(TestSeriesEditor)
#include "test_frmSeries.moc"
