// The boat editor typed into: its lists keep their columns whatever the characters, a new boat
// is checked field by field, and nothing typed is lost on a refused save or on closing.

#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmBoatDetail.h"

using namespace tb;
using namespace tb::test;

class BoatEditorTest : public QObject {
    Q_OBJECT

private slots:
    void listsArePaddedByCharacters() {
        Register r;
        r.db.Exec("UPDATE BoatType SET Model='Sérénité 33' WHERE Id=1");
        Opened<frmBoatDetail> c(r.results, 1);
        c.Press("cSailNum");
        const QStringList boats = Items(c.Get<QComboBox>("SelBoat"));
        c.Press("cDraft");
        QCOMPARE(
            boats + QStringList{c.Current("SelModel")} + Lines(c.Get<QListWidget>("listHandicaps")),
            DataLines("boat-lists.txt"));
    }

    void aNewBoatIsCheckedAndATakenSailNumberKeepsWhatWasTyped() {
        Register r;
        Opened<frmBoatDetail> c(r.results, -1);
        const auto fields = [&c] {
            return QStringList{c.Text("tName"), c.Text("tSailNo"), c.Current("SelModel"),
                               c.Current("SelOwner")};
        };
        c.Press("cmdAddBoat");
        const QStringList filled[] = {
            {" ", "", "", "E-Please specify the boat name"},
            {"Copy Cat", " ", "", "E-Please specify the sail number"},
            {"Copy Cat", "K 77", "", "E-Please specify the model of boat"},
            {"Copy Cat", "K 77", "Laser", "E-Please specify the owner"}};
        for (const QStringList& f : filled) {
            r.messages.Clear();
            c.Type("tName", f[0]);
            c.Type("tSailNo", f[1]);
            if (!f[2].isEmpty())
                c.Choose("SelModel", f[2]);
            c.Press("cmdOK");
            QCOMPARE(Shown(r.messages), QStringList{f[3]});
        }
        c.Choose("SelOwner", "Adams, Ann");
        const QStringList typed = fields();
        r.messages.answers = {false};
        c.Press("cmdOK");
        QCOMPARE(r.messages.questions,
                 Texts{"A boat with this sail number already exists. Continue to save the "
                       "details?"});
        QCOMPARE(fields(), typed);
        QCOMPARE(Focused()->objectName(), QString("tSailNo"));
        QCOMPARE(c.Label("lInfo"), QString("Details not saved"));
        Keys("K 78");
        c.Press("cmdOK");
        QCOMPARE(r.db.Count("Boat", "BoatName='Copy Cat' AND SailNo=78 AND Owner=1"), 1);
        QCOMPARE(c.Label("lInfo"), QString("Boat details saved"));
    }
};

QTEST_MAIN(BoatEditorTest)
#include "test_frmBoatDetail.moc"
