#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "support/WindowTesting.h"
#include "ui/frmEntryDetail.h"

using namespace tb::test;

namespace {

// The June series of june-evenings.sql.
struct JuneEvenings : Club {
    JuneEvenings() { db.Exec(DataText("june-evenings.sql")); }
};

// The entry editor open on the June series.
struct Entries : JuneEvenings {
    Entries() { ShowActive(window); }
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
        QCOMPARE(e.c.Text("tEntryDate"), QString("01/06/2002"));
        QCOMPARE(Lines(e.c.Get<QListWidget>("listSchedule")).mid(0, 3),
                 QStringList({" 10/06/02 " + QString("Race 1").leftJustified(29) + "  **",
                              "*17/06/02 " + QString("Race 2").leftJustified(29),
                              " 24/06/02 " + QString("Race 3").leftJustified(29) + "0.950"}));
        QVERIFY(e.messages.shown.empty());
    }

    void anEntryDateWithATimeIsRefusedAndTheCloseBoxOffersToSave() {
        Entries e;
        e.c.Type("tEntryDate", "02/06/2002 10:00");
        e.c.Press("cmdOK");
        QCOMPARE(Shown(e.messages), QStringList{"E-Please specify a valid entry date"});
        e.c.Type("tEntryDate", "02/06/2002");
        e.messages.answers = {true};
        e.window.close();
        QCOMPARE(e.messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(e.db.Text("SELECT EntryDate FROM Entrant"), std::string("2002-06-02 00:00:00"));
        QVERIFY(!e.window.isVisible());
    }

    void editDetailsWithoutABoatSaysSoAndOpensNothing() {
        JuneEvenings club;
        club.db.Exec("DELETE FROM Entrant");
        tb::frmEntryDetail window{club.results, 1};
        ShowActive(window);
        const NextModal editor;
        Press(Find<QWidget>(&window, "cmdEdit"));
        QCOMPARE(Shown(club.messages), QStringList{"E-No boat is selected"});
        SettleEvents();
        QCOMPARE(editor.name, QString());
    }
};

QTEST_MAIN(TestEntryEditor)
#include "test_frmEntryDetail.moc"
