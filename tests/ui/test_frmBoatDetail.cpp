#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "support/RegisterFixtures.h"
#include "ui/frmBoatDetail.h"

using namespace tb;
using namespace tb::test;

using Texts = std::vector<std::string>;

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

        auto* models = c.Get<QComboBox>("SelModel");
        QCOMPARE(models->currentText(), QString("Sigma 33"));
        c.Get<QCheckBox>("cDraft")->setChecked(true);
        QCOMPARE(models->currentText(), QString("Sigma 33").leftJustified(36) + "1.85m");
        QCOMPARE(models->itemText(0), QString("Laser").leftJustified(36) + "0m");

        auto* handicaps = c.Get<QListWidget>("listHandicaps");
        QCOMPARE(Lines(handicaps),
                 QStringList({QString("IRC").leftJustified(21) + "0.985  01/01/09  31/12/09",
                              QString("PY").leftJustified(21) + "1.020  01/01/10  "}));
        QCOMPARE(handicaps->item(1)->data(Qt::UserRole).toInt(), 2);
        QVERIFY(r->messages.shown.empty());
    }

    void editingEnablesSaveAndBlocksAdding() {
        Open(1);
        auto* ok = c.Get<QPushButton>("cmdOK");
        QVERIFY(!ok->isEnabled());
        c.Type("tName", "Aquila II");
        QVERIFY(ok->isEnabled());
        for (const char* blocked : {"cmdAddBoat", "cmdAddHC", "cmdEditHC", "cmdReviseHC"})
            QVERIFY2(!c.Get<QPushButton>(blocked)->isEnabled(), blocked);
        c.Type("tName", "Aquila");
        QVERIFY(!ok->isEnabled());
        c.Get<QComboBox>("SelOwner")->setCurrentIndex(1);
        QVERIFY(ok->isEnabled());
    }

    void savingChecksFieldsInOrder_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sailNo");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("owner");
        QTest::addColumn<QString>("message");
        Row("no name", " ", "", "", "", "E-Please specify the boat name");
        Row("no sail number", "Wren", " ", "", "", "E-Please specify the sail number");
        Row("no model", "Wren", "GBR 9", "", "Adams, Ann", "E-Please specify the model of boat");
        Row("no owner", "Wren", "GBR 9", "Laser", "", "E-Please specify the owner");
    }
    void savingChecksFieldsInOrder() {
        QFETCH(QString, name);
        QFETCH(QString, sailNo);
        QFETCH(QString, model);
        QFETCH(QString, owner);
        QFETCH(QString, message);
        Open();
        c.Press("cmdAddBoat");
        FillNewBoat(name, sailNo, model, owner);
        c.Press("cmdOK");
        QCOMPARE(Shown(r->messages), QStringList{message});
        QCOMPARE(r->db.Count("Boat"), 3);
    }

    void newBoatWithExistingSailNumberAsksFirst() {
        Open();
        c.Press("cmdAddBoat");
        QVERIFY(!c.Get<QComboBox>("SelBoat")->isEnabled());
        FillNewBoat("Copy Cat", "  K 77 ", "Laser", "Adams, Ann");
        r->messages.answers = {false};
        c.Press("cmdOK");
        QCOMPARE(r->messages.questions,
                 Texts{"A boat with this sail number already exists. Continue to save the "
                       "details?"});
        QCOMPARE(r->db.Count("Boat"), 3);
        QCOMPARE(c.Get<QLabel>("lInfo")->text(), QString("Details not saved"));
        QCOMPARE(c.Get<QLineEdit>("tName")->text(), QString());
        QCOMPARE(c.Get<QComboBox>("SelModel")->currentIndex(), -1);

        FillNewBoat("Copy Cat", "K 77", "Laser", "Adams, Ann");
        r->messages.answers = {true};
        c.Press("cmdOK");
        QCOMPARE(r->db.Count("Boat", "FullSailNo = 'K 77' AND SailNo = 77"), 2);
        QCOMPARE(c.Get<QComboBox>("SelBoat")->currentText(), QString("Copy Cat"));
        QVERIFY(c.Get<QComboBox>("SelBoat")->isEnabled());
        QCOMPARE(c.Get<QLabel>("lInfo")->text(), QString("Boat details saved"));
        QVERIFY(!c.Get<QPushButton>("cmdOK")->isEnabled());
    }

    void entryEditorGetsTheBoatsItSaves() {
        std::vector<int> handedBack;
        Open(-1, [&](int id) { handedBack.push_back(id); });
        QVERIFY(!c.Get<QComboBox>("SelBoat")->isEnabled());
        QCOMPARE(c.Get<QLineEdit>("tName")->text(), QString());
        FillNewBoat("Wren", "GBR 4321", "Laser", "Smith, John");
        c.Press("cmdOK");
        QVERIFY(r->messages.questions.empty());
        QCOMPARE(
            handedBack,
            std::vector<int>{std::stoi(r->db.Text("SELECT Id FROM Boat WHERE BoatName = 'Wren'"))});
    }

    void closingWithEditsOffersToSave() {
        Open(1);
        c.Type("tName", "Aquila II");
        r->messages.answers = {true};
        w->reject();
        QCOMPARE(r->messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(r->messages.questionTitles, Texts{"Tallyboard"});
        QCOMPARE(r->db.Text("SELECT BoatName FROM Boat WHERE Id = 1"), std::string("Aquila II"));
    }

    void removingABoatIsRefusedWhileEnteredAndSelectsTheOneBefore() {
        Open(2);
        c.Press("cmdRemove");
        QCOMPARE(Shown(r->messages),
                 QStringList{"I-Delete is not allowed as Blue Moon is entered in 1 series."});
        QVERIFY(r->messages.questions.empty());
        QCOMPARE(r->db.Count("Boat"), 3);

        c.Get<QComboBox>("SelBoat")->setCurrentIndex(2);
        r->messages.answers = {true};
        c.Press("cmdRemove");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete boat Zephyr?"});
        QCOMPARE(r->db.Count("Boat"), 2);
        QCOMPARE(c.Get<QComboBox>("SelBoat")->currentText(), QString("Blue Moon"));
        QCOMPARE(c.Get<QLineEdit>("tSailNo")->text(), QString("K 77"));

        c.Get<QComboBox>("SelBoat")->setCurrentIndex(0);
        c.Press("cmdRemove");
        QCOMPARE(r->db.Count("Handicap", "Boat = 1"), 0);
        QCOMPARE(c.Get<QComboBox>("SelBoat")->currentText(), QString("Blue Moon"));
    }

    void modelsAndSeriesInUseAreListedAndModelsKept() {
        Open(1);
        c.Press("ListModels");
        QCOMPARE(r->messages.shown.size(), std::size_t{1});
        QCOMPARE(r->messages.shown[0].title, std::string("Boats of type Sigma 33"));
        QCOMPARE(r->messages.shown[0].text, std::string("Aquila GBR 1234\r\nBlue Moon K 77"));
        c.Press("cmdRemoveModel");
        QCOMPARE(Shown(r->messages).back(),
                 QString("I-Delete is not allowed as 2 Sigma 33 boats exist."));
        QCOMPARE(r->db.Count("BoatType"), 3);
        c.Press("ListSeries");
        QCOMPARE(r->messages.shown.back().text, std::string("No entries found"));

        c.Choose("SelModel", "Unused");
        c.Press("ListModels");
        QCOMPARE(r->messages.shown.back().text, std::string("No boats found"));
        r->messages.answers = {true};
        c.Press("cmdRemoveModel");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete model Unused?"});
        QCOMPARE(r->db.Count("BoatType"), 2);

        c.Get<QComboBox>("SelBoat")->setCurrentIndex(1);
        c.Press("ListSeries");
        QCOMPARE(r->messages.shown.back().title, std::string("Series entered by Blue Moon"));
        QCOMPARE(r->messages.shown.back().text, std::string("Spring Series (2010)"));
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
        QCOMPARE(c.Get<QComboBox>("SelModel")->currentText(), QString("Dragon"));
        QVERIFY(c.Get<QPushButton>("cmdOK")->isEnabled());

        bool closedBySaving = false;
        const NextModal people([&](QDialog& dialog) {
            const Controls d{&dialog};
            QVERIFY(!d.Get<QComboBox>("SelPerson")->isEnabled());
            d.Type("tForename", "Kate");
            d.Type("tSurname", "Baker");
            d.Press("cmdOK");
            closedBySaving = !dialog.isVisible();
        });
        c.Press("cmdAddOwner");
        QVERIFY(closedBySaving);
        QCOMPARE(c.Get<QComboBox>("SelOwner")->currentText(), QString("Baker, Kate"));
    }

    void newHandicapsAreChecked_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("expires");
        QTest::addColumn<QString>("message");
        const QString badValue = "E-Please specify a valid handicap value";
        const QString badStart = "E-Please specify a valid start date";
        Row("zero", "0", "01/01/10", "", badValue);
        Row("ten", "10", "01/01/10", "", badValue);
        Row("text", "fast", "01/01/10", "", badValue);
        Row("lowest", "0.999", "01/01/10", "", "");
        Row("highest", "9.999", "01/01/10", "", "");
        Row("no start", "0.9", "", "", badStart);
        Row("impossible start", "0.9", "31/02/10", "", badStart);
        Row("bad expiry", "0.9", "01/04/10", "soon", "E-The expiration date is not a valid date");
        Row("expiry on start", "0.9", "01/04/10", "01/04/2010",
            "E-The expiration date must be later than the start date");
    }
    void newHandicapsAreChecked() {
        QFETCH(QString, value);
        QFETCH(QString, start);
        QFETCH(QString, expires);
        QFETCH(QString, message);
        Open(3);
        EditHandicap("cmdAddHC", [&](Controls d) {
            QCOMPARE(d.Get<QLabel>("Heading")->text(), QString("Create new handicap for "));
            QCOMPARE(d.Get<QLabel>("lBoat")->text(), QString("Zephyr"));
            QVERIFY(d.Get<QLabel>("lExpire")->isHidden());
            d.Get<QComboBox>("SelHandicap")->setCurrentIndex(1);
            d.Type("tValue", value);
            d.Type("tStart", start);
            d.Type("tExpire", expires);
            d.Press("cmdOK");
        });
        const bool accepted = message.isEmpty();
        QCOMPARE(Shown(r->messages), accepted ? QStringList() : QStringList{message});
        QCOMPARE(r->db.Count("Handicap", "Boat = 3 AND HandicapType = 2 AND Expires IS NULL"),
                 accepted ? 1 : 0);
        QCOMPARE(c.Get<QListWidget>("listHandicaps")->count(), accepted ? 1 : 0);
    }

    void revisingAHandicapEndsTheOldOneTheDayBefore() {
        Open(1);
        auto* list = c.Get<QListWidget>("listHandicaps");
        c.Press("cmdReviseHC");
        QCOMPARE(Shown(r->messages), QStringList{"I-No handicap selected"});
        list->setCurrentRow(1);
        EditHandicap("cmdReviseHC", [](Controls d) {
            QCOMPARE(d.Get<QLabel>("Heading")->text(), QString("Revise PY handicap value for"));
            QVERIFY(!d.Get<QLabel>("lExpire")->isHidden());
            QCOMPARE(d.Get<QLineEdit>("tValue")->text(), QString("1.02"));
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
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->item(1)->text(), QString("PY").leftJustified(21) + "1.050  01/04/10  ");
    }

    void editingAHandicapShowsItsPeriod() {
        Open(1);
        c.Get<QListWidget>("listHandicaps")->setCurrentRow(0);
        EditHandicap("cmdEditHC", [](Controls d) {
            QCOMPARE(d.Get<QLabel>("Heading")->text(), QString("Edit existing handicap for"));
            QCOMPARE(d.Get<QComboBox>("SelHandicap")->currentText(), QString("IRC"));
            QCOMPARE(d.Get<QLineEdit>("tStart")->text(), QString("01/01/2009"));
            QCOMPARE(d.Get<QLineEdit>("tExpire")->text(), QString("31/12/2009"));
            d.Type("tExpire", "30/06/09");
            d.Press("cmdOK");
        });
        QCOMPARE(r->db.Text("SELECT Expires FROM Handicap WHERE Id = 1"),
                 std::string("2009-06-30 00:00:00"));
        QCOMPARE(r->db.Count("Handicap"), 2);
    }
};

QTEST_MAIN(BoatEditorTest)
#include "test_frmBoatDetail.moc"
