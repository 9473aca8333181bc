// The series editor's race and class windows: their fields checked in order, and a saved race and
// class listed in the series editor, the class's blank minimum stored as Null.

#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmSeries.h"

using namespace tb::test;

class TestSeriesEditor : public QObject {
    Q_OBJECT
private slots:
    void theRaceAndClassWindowsCheckTheirFieldsInOrder() {
        Club s;
        s.db.Exec(
            "INSERT INTO HandicapType (Description) VALUES ('IRC'), ('Club');"
            "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1)");
        Opened<tb::frmSeries> c(s.results, 1);
        {
            const NextModal race([&](QDialog& dialog) {
                const Controls d{&dialog};
                QCOMPARE(SharedAccelerators(dialog), QString());
                d.Press("cmdOK");
                d.Type("tTitle", "Race 1");
                d.Type("tDate", "31/06/02");
                d.Press("cmdOK");
                d.Type("tDate", "30/06/02");
                d.Press("cmdOK");
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
        QCOMPARE(Shown(s.messages), DataLines("series-detail-refusals.txt"));
        QCOMPARE(Lines(c.Get<QListWidget>("listSchedule")).size(), 1);
        QCOMPARE(
            Lines(c.Get<QListWidget>("listClassSplits")),
            QStringList{QString("Class 2").leftJustified(32) + QString("Club").leftJustified(16)});
        QCOMPARE(s.db.Count("Class", "MinTCF IS NULL"), 1LL);
    }
};

QTEST_MAIN(TestSeriesEditor)
#include "test_frmSeries.moc"
