// The record editors typed into as a user types: the boat, people and entry editors, the series
// editor's race and class windows, and the names of the options' handicap types and of scoring
// systems. Fields are checked in order, nothing typed is lost on a refused save or on closing,
// and a name another record holds is refused.

#include <QCheckBox>

#include "support/WindowTesting.h"
#include "ui/frmBoatDetail.h"
#include "ui/frmEntryDetail.h"
#include "ui/frmOptions.h"
#include "ui/frmPeopleDetail.h"
#include "ui/frmScoring.h"
#include "ui/frmSeries.h"

using namespace tb;
using namespace tb::test;

class EditorWindowsTest : public QObject {
    Q_OBJECT

    static void SearchPerson(const Controls& c, const QString& typed) {
        c.Type("SelPerson", typed);
        Enter();
    }

private slots:
    void boatListsArePaddedByCharacters() {
        Register r;
        r.db.Exec("UPDATE BoatType SET Model='Sérénité 33' WHERE Id=1");
        Opened<frmBoatDetail> c(r.results, 1);
        c.Press("cSailNum");
        const QStringList boats = c.Items("SelBoat");
        c.Press("cDraft");
        QCOMPARE(boats + QStringList{c.Current("SelModel")} + c.Items("listHandicaps"),
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
        for (const QString& line : DataLines("boat-refusals.tsv")) {
            const QStringList f = line.split('\t');
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

    void everyPersonFieldIsSavedInItsOwnColumnAndShownAgain() {
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
        SearchPerson(c, "Firstname");
        QCOMPARE(r.db.Text("SELECT ClubMember FROM People WHERE Id = 1"), std::string("0"));
        QVERIFY(!c.Get<QCheckBox>("cMember")->isChecked());
        for (const QString& field : fields) {
            const QString column = field.section('\t', 1);
            QCOMPARE(r.db.Text("SELECT " + column.toStdString() + " FROM People WHERE Id = 1"),
                     column.toStdString());
            QCOMPARE(c.Text(field.section('\t', 0, 0).toLatin1()), column);
        }
    }

    void personNamesAreRequiredAndEnterFindsByTheFamilyName() {
        Register r;
        Opened<frmPeopleDetail> c(r.results, 0);
        SearchPerson(c, "smithe");
        QCOMPARE(c.Current("SelPerson"), QString("Smithers, Jim"));
        QCOMPARE(c.Text("tCity"), QString("Cowes"));
        SearchPerson(c, "xyz");
        QCOMPARE(c.Label("lInfo"), QString("The name starting with xyz was not found"));
        QCOMPARE(r.messages.beeps, 1);
        c.Press("cmdAdd");
        c.Type("tForename", "Kate");
        c.Press("cmdOK");
        QCOMPARE(Focused()->objectName(), QString("tSurname"));
        QCOMPARE(Shown(r.messages), QStringList{"E-Please specify the surname of the person"});
    }

    // The entry editor over the June series of june-evenings.sql.
    void entriesOpenOnTheFirstEnteredBoatWithItsRacesAndHandicaps() {
        Club club;
        club.db.Exec(DataText("june-evenings.sql"));
        Opened<frmEntryDetail> c(club.results, 1);
        QCOMPARE(c.Current("SelEntrant"), QString("Smith, Bob"));
        QCOMPARE(c.Text("tEntryDate"), QString("01/06/2002"));
        QCOMPARE(c.Items("SelEntry") + c.Items("listSchedule").mid(0, 3),
                 DataLines("entry-lines.txt"));
        QVERIFY(club.messages.shown.empty());
    }

    void anEntryDateWithATimeIsRefusedAndTheCloseBoxOffersToSave() {
        Club club;
        club.db.Exec(DataText("june-evenings.sql"));
        Opened<frmEntryDetail> c(club.results, 1);
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

    void editingAnEntrysBoatWithoutABoatSaysSoAndOpensNothing() {
        Club club;
        club.db.Exec(DataText("june-evenings.sql") + "DELETE FROM Entrant;");
        Opened<frmEntryDetail> c(club.results, 1);
        const NextModal editor;
        c.Press("cmdEdit");
        QCOMPARE(Shown(club.messages), QStringList{"E-No boat is selected"});
        SettleEvents();
        QCOMPARE(editor.name, QString());
    }

    void theSeriesRaceAndClassWindowsCheckTheirFieldsInOrder() {
        Club s;
        s.db.Exec(
            "INSERT INTO HandicapType (Description) VALUES ('IRC'), ('Club');"
            "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1)");
        Opened<frmSeries> c(s.results, 1);
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
        QCOMPARE(c.Items("listSchedule").size(), 1);
        QCOMPARE(c.Items("listClassSplits"), QStringList{QString("Class 2").leftJustified(32) +
                                                         QString("Club").leftJustified(16)});
        QCOMPARE(s.db.Count("Class", "MinTCF IS NULL"), 1LL);
    }

    // What is typed is the handicap type's name, never completed to a longer one.
    void aTypedHandicapTypeNameIsNeitherCompletedNorAllowedToClash_data() {
        CasesFrom("options-type-names.tsv");
    }
    void aTypedHandicapTypeNameIsNeitherCompletedNorAllowedToClash() {
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

    // Leaving the scoring system's name box never loads the other system of that name.
    void anotherScoringSystemsNameIsRefusedWhetherTheBoxIsLeftByTabOrByAClick_data() {
        CasesFrom("scoring-name-clashes.tsv");
    }
    void anotherScoringSystemsNameIsRefusedWhetherTheBoxIsLeftByTabOrByAClick() {
        const QStringList clash = Case();
        Club club;
        club.db.Exec(DataText("scoring-systems.sql"));
        Opened<frmScoring> c(club.results);
        c.Type(clash[0].toLatin1(), clash[1]);
        if (clash[2] == "Tab")
            Key(Qt::Key_Tab);
        QCOMPARE(c.Text("tValue_7"), QString("10.5"));
        c.Press("cmdOK");
        QCOMPARE(Shown(club.messages), QStringList{clash[3]});
        QVERIFY(c.w.isVisible());
        QCOMPARE(club.db.Count("Points", "Scoring = 1 AND Value = 1"), 9);
        QCOMPARE(club.db.Text("SELECT Description FROM DiscardSystem WHERE Id = 2"),
                 std::string("None"));
    }
};

QTEST_MAIN(EditorWindowsTest)
#include "test_editorWindows.moc"
