// The people editor typed into: every field lands in its own column, the member tick included,
// names are required, and Enter in the list finds by the start of the family name.

#include <QCheckBox>
#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmPeopleDetail.h"

using namespace tb;
using namespace tb::test;

class PeopleEditorTest : public QObject {
    Q_OBJECT

    static void Search(const Controls& c, const QString& typed) {
        c.Type("SelPerson", typed);
        Enter();
    }

private slots:
    void everyFieldIsSavedInItsOwnColumnAndShownAgain() {
        const QStringList fields = DataLines("people-fields.tsv");
        Register r;
        {
            Opened<frmPeopleDetail> c(r.results, 0);
            QVERIFY(c.Get<QCheckBox>("cMember")->isChecked());
            for (const QString& field : fields)
                c.Type(field.section('\t', 0, 0).toLatin1(), field.section('\t', 1));
            c.Press("cMember");
            c.Press("cmdOK");
        }
        Opened<frmPeopleDetail> c(r.results, 0);
        Search(c, "Firstname");
        QCOMPARE(r.db.Text("SELECT ClubMember FROM People WHERE Id = 1"), std::string("0"));
        QVERIFY(!c.Get<QCheckBox>("cMember")->isChecked());
        for (const QString& field : fields) {
            const QString column = field.section('\t', 1);
            QCOMPARE(r.db.Text("SELECT " + column.toStdString() + " FROM People WHERE Id = 1"),
                     column.toStdString());
            QCOMPARE(c.Text(field.section('\t', 0, 0).toLatin1()), column);
        }
    }

    void namesAreRequiredAndEnterFindsByTheFamilyName() {
        Register r;
        Opened<frmPeopleDetail> c(r.results, 0);
        Search(c, "smithe");
        QCOMPARE(c.Current("SelPerson"), QString("Smithers, Jim"));
        QCOMPARE(c.Text("tCity"), QString("Cowes"));
        Search(c, "xyz");
        QCOMPARE(c.Label("lInfo"), QString("The name starting with xyz was not found"));
        QCOMPARE(r.messages.beeps, 1);
        c.Press("cmdAdd");
        c.Type("tForename", "Kate");
        c.Press("cmdOK");
        QCOMPARE(Focused()->objectName(), QString("tSurname"));
        QCOMPARE(Shown(r.messages), QStringList{"E-Please specify the surname of the person"});
    }
};

QTEST_MAIN(PeopleEditorTest)
#include "test_frmPeopleDetail.moc"
