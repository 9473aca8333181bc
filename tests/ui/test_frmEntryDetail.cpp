// The entry editor: a boat's entry shown with its races and handicaps, a typed entry date that
// is a date only, and nothing typed lost on the close box.

#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmEntryDetail.h"

using namespace tb::test;

namespace {

// The entry editor open on the June series of june-evenings.sql.
struct Entries : Club {
    Entries() { db.Exec(DataText("june-evenings.sql")); }
};

}  // namespace

class TestEntryEditor : public QObject {
    Q_OBJECT
private slots:
    void opensOnTheFirstEnteredBoatWithItsRacesAndHandicaps() {
        Entries club;
        Opened<tb::frmEntryDetail> c(club.results, 1);
        QCOMPARE(c.Current("SelEntrant"), QString("Smith, Bob"));
        QCOMPARE(c.Text("tEntryDate"), QString("01/06/2002"));
        QCOMPARE(Items(c.Get<QComboBox>("SelEntry")) +
                     Lines(c.Get<QListWidget>("listSchedule")).mid(0, 3),
                 DataLines("entry-lines.txt"));
        QVERIFY(club.messages.shown.empty());
    }

    void anEntryDateWithATimeIsRefusedAndTheCloseBoxOffersToSave() {
        Entries club;
        Opened<tb::frmEntryDetail> c(club.results, 1);
        c.Type("tEntryDate", "02/06/2002 10:00");
        c.Press("cmdOK");
        QCOMPARE(Shown(club.messages), QStringList{"E-Please specify a valid entry date"});
        c.Type("tEntryDate", "02/06/2002");
        club.messages.answers = {true};
        c.w.close();
        QCOMPARE(club.messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(club.db.Text("SELECT EntryDate FROM Entrant"), std::string("2002-06-02 00:00:00"));
        QVERIFY(!c.w.isVisible());
    }

    void editDetailsWithoutABoatSaysSoAndOpensNothing() {
        Entries club;
        club.db.Exec("DELETE FROM Entrant");
        Opened<tb::frmEntryDetail> c(club.results, 1);
        const NextModal editor;
        c.Press("cmdEdit");
        QCOMPARE(Shown(club.messages), QStringList{"E-No boat is selected"});
        SettleEvents();
        QCOMPARE(editor.name, QString());
    }
};

QTEST_MAIN(TestEntryEditor)
#include "test_frmEntryDetail.moc"
