#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "support/RegisterFixtures.h"
#include "ui/frmBoatDetail.h"

using namespace tb;
using namespace tb::test;

namespace {

struct NewHandicap {
    QString value, start, expires, message;
};

}  // namespace

class BoatEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Register> r;
    std::unique_ptr<frmBoatDetail> w;
    Controls c{nullptr};

    void Open(int selectedId = -1, frmBoatDetail::BoatSaved saved = {}) {
        w = std::make_unique<frmBoatDetail>(r->results, selectedId, std::move(saved));
        c.window = w.get();
    }
    void FillNewBoat(const QString& name, const QString& sailNo, const QString& model,
                     const QString& owner) {
        c.Type("tName", name);
        c.Type("tSailNo", sailNo);
        c.Choose("SelModel", model);
        c.Choose("SelOwner", owner);
    }
    // Opens the handicap window with the button and fills it in.
    void EditHandicap(const char* button, std::function<void(Controls)> fill) {
        const NextModal handicap([&](QDialog& dialog) { fill(Controls{&dialog}); });
        c.Press(button);
    }

private slots:
    void init() { r = std::make_unique<Register>(); }
    void cleanup() {
        w.reset();
        r.reset();
    }

    void listsArePaddedIntoColumns() {
        Open(1);
        auto* boats = c.Get<QComboBox>("SelBoat");
        QCOMPARE(Items(boats), QStringList({"Aquila", "Blue Moon", "Zephyr"}));
        c.Get<QCheckBox>("cSailNum")->setChecked(true);
        QCOMPARE(Items(boats), QStringList({"77     Blue Moon", "200    Zephyr", "1234   Aquila"}));
        QCOMPARE(boats->currentText(), QString("1234   Aquila"));
        c.Get<QCheckBox>("cDraft")->setChecked(true);
        QCOMPARE(c.Current("SelModel"), QString("Sigma 33").leftJustified(36) + "1.85m");
        QCOMPARE(c.Get<QComboBox>("SelModel")->itemText(0),
                 QString("Laser").leftJustified(36) + "0m");
        QCOMPARE(Lines(c.Get<QListWidget>("listHandicaps")),
                 QStringList({QString("IRC").leftJustified(21) + "0.985  01/01/09  31/12/09",
                              QString("PY").leftJustified(21) + "1.020  01/01/10  "}));
        QVERIFY(r->messages.shown.empty());
    }

    void editsEnableSaveBlockAddingAndAreOfferedOnClosing() {
        Open(1);
        QVERIFY(!c.Enabled("cmdOK"));
        c.Type("tName", "Aquila");
        QVERIFY(!c.Enabled("cmdOK"));
        c.Get<QComboBox>("SelOwner")->setCurrentIndex(1);
        QVERIFY(c.Enabled("cmdOK"));
        c.Type("tName", "Aquila II");
        for (const char* blocked : {"cmdAddBoat", "cmdAddHC", "cmdEditHC", "cmdReviseHC"})
            QVERIFY2(!c.Enabled(blocked), blocked);
        w->reject();
        QCOMPARE(r->messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(r->db.Text("SELECT BoatName FROM Boat WHERE Id = 1"), std::string("Aquila II"));
    }

    void aNewBoatIsCheckedFieldByFieldAndATakenSailNumberQuestioned() {
        Open();
        c.Press("cmdAddBoat");
        QVERIFY(!c.Enabled("SelBoat"));
        const QStringList filled[] = {
            {" ", "", "", "", "E-Please specify the boat name"},
            {"Copy Cat", " ", "", "Adams, Ann", "E-Please specify the sail number"},
            {"Copy Cat", "  K 77 ", "", "Adams, Ann", "E-Please specify the model of boat"},
            {"Copy Cat", "  K 77 ", "Laser", "", "E-Please specify the owner"}};
        for (const QStringList& f : filled) {
            r->messages.Clear();
            FillNewBoat(f[0], f[1], f[2], f[3]);
            c.Press("cmdOK");
            QCOMPARE(Shown(r->messages), QStringList{f[4]});
        }
        FillNewBoat("Copy Cat", "  K 77 ", "Laser", "Adams, Ann");
        r->messages.answers = {false};
        c.Press("cmdOK");
        QCOMPARE(r->messages.questions,
                 Texts{"A boat with this sail number already exists. Continue to save the "
                       "details?"});
        QCOMPARE(r->db.Count("Boat"), 3);
        QCOMPARE(c.Label("lInfo"), QString("Details not saved"));

        FillNewBoat("Copy Cat", "K 77", "Laser", "Adams, Ann");
        c.Press("cmdOK");
        QCOMPARE(r->db.Count("Boat", "FullSailNo = 'K 77' AND SailNo = 77"), 2);
        QCOMPARE(c.Current("SelBoat"), QString("Copy Cat"));
        QVERIFY(c.Enabled("SelBoat"));
        QCOMPARE(c.Label("lInfo"), QString("Boat details saved"));
    }

    void entryEditorGetsTheBoatsItSaves() {
        std::vector<int> handedBack;
        Open(-1, [&](int id) { handedBack.push_back(id); });
        FillNewBoat("Wren", "GBR 4321", "Laser", "Smith, John");
        c.Press("cmdOK");
        QCOMPARE(
            handedBack,
            std::vector<int>{std::stoi(r->db.Text("SELECT Id FROM Boat WHERE BoatName = 'Wren'"))});
    }

    void removingABoatIsRefusedWhileEnteredAndSelectsTheOneBefore() {
        Open(2);
        c.Press("cmdRemove");
        QCOMPARE(Shown(r->messages),
                 QStringList{"I-Delete is not allowed as Blue Moon is entered in 1 series."});
        QVERIFY(r->messages.questions.empty());

        c.Get<QComboBox>("SelBoat")->setCurrentIndex(2);
        c.Press("cmdRemove");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete boat Zephyr?"});
        QCOMPARE(r->db.Count("Boat"), 2);
        QCOMPARE(c.Current("SelBoat"), QString("Blue Moon"));
        QCOMPARE(c.Text("tSailNo"), QString("K 77"));

        c.Get<QComboBox>("SelBoat")->setCurrentIndex(0);
        c.Press("cmdRemove");
        QCOMPARE(r->db.Count("Handicap", "Boat = 1"), 0);
        QCOMPARE(c.Current("SelBoat"), QString("Blue Moon"));
    }

    void modelsAndSeriesInUseAreListedAndModelsKept() {
        Open(1);
        c.Press("ListModels");
        c.Press("cmdRemoveModel");
        QCOMPARE(r->db.Count("BoatType"), 3);
        c.Press("ListSeries");
        c.Choose("SelModel", "Unused");
        c.Press("ListModels");
        c.Press("cmdRemoveModel");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete model Unused?"});
        QCOMPARE(r->db.Count("BoatType"), 2);
        c.Get<QComboBox>("SelBoat")->setCurrentIndex(1);
        c.Press("ListSeries");
        QCOMPARE(Shown(r->messages),
                 QStringList({"I-Aquila GBR 1234\r\nBlue Moon K 77",
                              "I-Delete is not allowed as 2 Sigma 33 boats exist.",
                              "I-No entries found", "I-No boats found", "I-Spring Series (2010)"}));
        QCOMPARE(r->messages.shown[0].title, std::string("Boats of type Sigma 33"));
        QCOMPARE(r->messages.shown[4].title, std::string("Series entered by Blue Moon"));
    }

    void newModelAndNewOwnerAreListedAndSelected() {
        Open(3);
        {
            const NextModal model([](QDialog& dialog) {
                const Controls d{&dialog};
                d.Type("tModel", "Dragon");
                d.Type("tLOA", "8.9x");
                d.Press("cmdOK");
                d.Type("tLOA", "8.9");
                d.Press("cmdOK");
            });
            c.Press("cmdAddModel");
        }
        QCOMPARE(Shown(r->messages), QStringList{"E- The LOA is not a valid number"});
        QCOMPARE(r->db.Text("SELECT LOA || '/' || Draft FROM BoatType WHERE Model = 'Dragon'"),
                 std::string("8.9/0.0"));
        QCOMPARE(c.Current("SelModel"), QString("Dragon"));
        QVERIFY(c.Enabled("cmdOK"));

        const NextModal people([&](QDialog& dialog) {
            const Controls d{&dialog};
            d.Type("tForename", "Kate");
            d.Type("tSurname", "Baker");
            d.Press("cmdOK");
            QVERIFY(!dialog.isVisible());
        });
        c.Press("cmdAddOwner");
        QCOMPARE(c.Current("SelOwner"), QString("Baker, Kate"));
    }

    void newHandicapsAreChecked_data() {
        QTest::addColumn<NewHandicap>("handicap");
        const QString badValue = "E-Please specify a valid handicap value";
        const QString badStart = "E-Please specify a valid start date";
        Row("zero", NewHandicap{"0", "01/01/10", "", badValue});
        Row("ten", NewHandicap{"10", "01/01/10", "", badValue});
        Row("text", NewHandicap{"fast", "01/01/10", "", badValue});
        Row("lowest", NewHandicap{"0.999", "01/01/10", "", ""});
        Row("highest", NewHandicap{"9.999", "01/01/10", "", ""});
        Row("no start", NewHandicap{"0.9", "", "", badStart});
        Row("impossible start", NewHandicap{"0.9", "31/02/10", "", badStart});
        Row("bad expiry",
            NewHandicap{"0.9", "01/04/10", "soon", "E-The expiration date is not a valid date"});
        Row("expiry on start", NewHandicap{"0.9", "01/04/10", "01/04/2010",
                                           "E-The expiration date must be later than the start "
                                           "date"});
    }
    void newHandicapsAreChecked() {
        QFETCH(NewHandicap, handicap);
        Open(3);
        EditHandicap("cmdAddHC", [&](Controls d) {
            d.Get<QComboBox>("SelHandicap")->setCurrentIndex(1);
            d.Type("tValue", handicap.value);
            d.Type("tStart", handicap.start);
            d.Type("tExpire", handicap.expires);
            d.Press("cmdOK");
        });
        const bool accepted = handicap.message.isEmpty();
        QCOMPARE(Shown(r->messages), accepted ? QStringList() : QStringList{handicap.message});
        QCOMPARE(r->db.Count("Handicap", "Boat = 3 AND HandicapType = 2 AND Expires IS NULL"),
                 accepted ? 1 : 0);
        QCOMPARE(c.Get<QListWidget>("listHandicaps")->count(), accepted ? 1 : 0);
    }

    void revisingAHandicapEndsTheOldOneTheDayBeforeAndEditingKeepsOne() {
        Open(1);
        auto* list = c.Get<QListWidget>("listHandicaps");
        c.Press("cmdReviseHC");
        QCOMPARE(Shown(r->messages), QStringList{"I-No handicap selected"});
        list->setCurrentRow(1);
        EditHandicap("cmdReviseHC", [](Controls d) {
            QCOMPARE(d.Text("tValue"), QString("1.02"));
            d.Type("tValue", "1.05");
            d.Type("tStart", "01/04/2010");
            d.Type("tExpire", "");
            d.Press("cmdOK");
        });
        QCOMPARE(r->db.Text("SELECT Expires FROM Handicap WHERE Id = 2"),
                 std::string("2010-03-31 00:00:00"));
        QCOMPARE(r->db.Count("Handicap",
                             "Boat = 1 AND Handicap = 1.05 AND "
                             "EffectiveFrom = '2010-04-01 00:00:00' AND Expires IS NULL"),
                 1);
        QCOMPARE(list->item(1)->text(), QString("PY").leftJustified(21) + "1.050  01/04/10  ");

        list->setCurrentRow(0);
        EditHandicap("cmdEditHC", [](Controls d) {
            QCOMPARE(d.Current("SelHandicap"), QString("IRC"));
            QCOMPARE(d.Text("tStart"), QString("01/01/2009"));
            QCOMPARE(d.Text("tExpire"), QString("31/12/2009"));
            d.Type("tExpire", "30/06/09");
            d.Press("cmdOK");
        });
        QCOMPARE(r->db.Text("SELECT Expires FROM Handicap WHERE Id = 1"),
                 std::string("2009-06-30 00:00:00"));
        QCOMPARE(r->db.Count("Handicap"), 3);
    }
};

QTEST_MAIN(BoatEditorTest)
#include "test_frmBoatDetail.moc"
