// The options window's handicap types typed as a user types them: what is typed is the name,
// never completed to a longer one, and a name another type holds is refused.

#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmOptions.h"

using namespace tb;
using namespace tb::test;

class OptionsWindowTest : public QObject {
    Q_OBJECT

private slots:
    void aTypedTypeNameIsNeitherCompletedNorAllowedToClash_data() {
        CasesFrom("options-type-names.tsv");
    }
    void aTypedTypeNameIsNeitherCompletedNorAllowedToClash() {
        const QStringList typed = Case();
        const TemporarySettingsStore store;
        Club club;
        club.db.Exec("INSERT INTO HandicapType (Description) VALUES ('Club racing'), ('IRC')");
        Opened<frmOptions> c(club.results);
        if (typed[0].isEmpty())
            c.Press("AddHCs");
        else
            c.Choose("SelHCs", typed[0]);
        c.Type("SelHCs", typed[1]);
        c.Press("cmdOK");
        QCOMPARE(Shown(club.messages), typed[2].isEmpty() ? QStringList() : QStringList{typed[2]});
        QCOMPARE(c.w.isVisible(), !typed[2].isEmpty());
        QCOMPARE(club.db.Text("SELECT group_concat(Description, '|') FROM "
                              "(SELECT Description FROM HandicapType ORDER BY Description)"),
                 typed[3].toStdString());
    }
};

QTEST_MAIN(OptionsWindowTest)
#include "test_frmOptions.moc"
