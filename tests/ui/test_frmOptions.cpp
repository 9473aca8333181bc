// The options window's handicap types typed as a user types them: what is typed is the name,
// never completed to a longer one, and a name another type holds is refused.

#include <QtTest>
#include <memory>

#include "support/WindowTesting.h"
#include "ui/frmOptions.h"

using namespace tb;
using namespace tb::test;

class OptionsWindowTest : public QObject {
    Q_OBJECT

private slots:
    void aTypedTypeNameIsNeitherCompletedNorAllowedToClash() {
        struct Case {
            const char* pick;  // the type renamed, or nothing to add one
            const char* typed;
            const char* message;
            const char* kept;  // the types afterwards
        };
        const Case cases[] = {
            {"", "Club", "", "Club|Club racing|IRC"},
            {"IRC", "Club", "", "Club|Club racing"},
            {"IRC", "club racing", "E-Another handicap system named 'club racing' already exists",
             "Club racing|IRC"},
        };
        for (const auto& [pick, typed, message, kept] : cases) {
            const CaseTrace trace(QString(pick) + " " + typed);
            const TemporarySettingsStore store;
            Club club;
            club.db.Exec("INSERT INTO HandicapType (Description) VALUES ('Club racing'), ('IRC')");
            frmOptions window(club.results);
            const Controls c{&window};
            ShowActive(window);
            if (*pick == 0)
                c.Press("AddHCs");
            else
                c.Choose("SelHCs", pick);
            c.Type("SelHCs", typed);
            c.Press("cmdOK");
            QCOMPARE(Shown(club.messages), *message ? QStringList{message} : QStringList());
            QCOMPARE(window.isVisible(), *message != 0);
            QCOMPARE(club.db.Text("SELECT group_concat(Description, '|') FROM "
                                  "(SELECT Description FROM HandicapType ORDER BY Description)"),
                     std::string(kept));
        }
    }
};

QTEST_MAIN(OptionsWindowTest)
#include "test_frmOptions.moc"
