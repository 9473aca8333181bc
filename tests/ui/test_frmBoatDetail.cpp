#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "data/clResults.h"
#include "support/RecordingMessages.h"
#include "support/RegisterFixtures.h"
#include "ui/frmBoatDetail.h"

using namespace tb;
using namespace tb::test;

class BoatEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<clResults> results;
    std::unique_ptr<RecordingMessages> messages;

    std::unique_ptr<frmBoatDetail> Open(int selectedId = -1, frmBoatDetail::BoatSaved saved = {}) {
        return std::make_unique<frmBoatDetail>(*results, selectedId, std::move(saved));
    }
    static QStringList Items(const QComboBox* list) {
        QStringList items;
        for (int i = 0; i < list->count(); ++i)
            items << list->itemText(i);
        return items;
    }
    static void Choose(QComboBox* list, const QString& text) {
        list->setCurrentIndex(list->findText(text));
    }

private slots:
    void init() {
        db = std::make_unique<TestDatabase>();
        SeedRegister(*db);
        results = std::make_unique<clResults>();
        messages = std::make_unique<RecordingMessages>();
    }
    void cleanup() {
        messages.reset();
        results.reset();
        db.reset();
    }

    void listsArePaddedIntoColumns() {
        auto w = Open(1);
        auto* boats = Child<QComboBox>(*w, "SelBoat");
        QCOMPARE(Items(boats), QStringList({"Aquila", "Blue Moon", "Zephyr"}));
        Child<QCheckBox>(*w, "cSailNum")->setChecked(true);
        QCOMPARE(Items(boats), QStringList({"77     Blue Moon", "200    Zephyr", "1234   Aquila"}));
        QCOMPARE(boats->currentText(), QString("1234   Aquila"));

        auto* models = Child<QComboBox>(*w, "SelModel");
        QCOMPARE(models->currentText(), QString("Sigma 33"));
        Child<QCheckBox>(*w, "cDraft")->setChecked(true);
        QCOMPARE(models->currentText(), QString("Sigma 33").leftJustified(36) + "1.85m");
        QCOMPARE(models->itemText(0), QString("Laser").leftJustified(36) + "0m");

        auto* handicaps = Child<QListWidget>(*w, "listHandicaps");
        QCOMPARE(handicaps->count(), 2);
        QCOMPARE(handicaps->item(0)->text(),
                 QString("IRC").leftJustified(21) + "0.985  01/01/09  31/12/09");
        QCOMPARE(handicaps->item(1)->text(), QString("PY").leftJustified(21) + "1.020  01/01/10  ");
        QCOMPARE(handicaps->item(1)->data(Qt::UserRole).toInt(), 2);
        QVERIFY(messages->shown.empty());
    }

    void editingEnablesSaveAndBlocksAdding() {
        auto w = Open(1);
        auto* ok = Child<QPushButton>(*w, "cmdOK");
        auto* name = Child<QLineEdit>(*w, "tName");
        QVERIFY(!ok->isEnabled());
        Type(name, "Aquila II");
        QVERIFY(ok->isEnabled());
        for (const char* blocked : {"cmdAddBoat", "cmdAddHC", "cmdEditHC", "cmdReviseHC"})
            QVERIFY2(!Child<QPushButton>(*w, blocked)->isEnabled(), blocked);
        Type(name, "Aquila");
        QVERIFY(!ok->isEnabled());
        Child<QComboBox>(*w, "SelOwner")->setCurrentIndex(1);
        QVERIFY(ok->isEnabled());
    }

    void savingChecksFieldsInOrder_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sailNo");
        QTest::addColumn<bool>("withModel");
        QTest::addColumn<bool>("withOwner");
        QTest::addColumn<QString>("message");
        QTest::newRow("no name") << "  "
                                 << "" << false << false << "E-Please specify the boat name";
        QTest::newRow("no sail number")
            << "Wren"
            << " " << false << false << "E-Please specify the sail number";
        QTest::newRow("no model") << "Wren"
                                  << "GBR 9" << false << true
                                  << "E-Please specify the model of boat";
        QTest::newRow("no owner") << "Wren"
                                  << "GBR 9" << true << false << "E-Please specify the owner";
    }
    void savingChecksFieldsInOrder() {
        QFETCH(QString, name);
        QFETCH(QString, sailNo);
        QFETCH(bool, withModel);
        QFETCH(bool, withOwner);
        QFETCH(QString, message);
        auto w = Open();
        Child<QPushButton>(*w, "cmdAddBoat")->click();
        Type(Child<QLineEdit>(*w, "tName"), name);
        Type(Child<QLineEdit>(*w, "tSailNo"), sailNo);
        if (withModel)
            Choose(Child<QComboBox>(*w, "SelModel"), "Laser");
        if (withOwner)
            Choose(Child<QComboBox>(*w, "SelOwner"), "Adams, Ann");
        Child<QPushButton>(*w, "cmdOK")->click();
        QCOMPARE(messages->Texts(), std::vector<std::string>{message.toStdString()});
        QCOMPARE(db->Count("Boat"), 3);
    }

    void newBoatWithExistingSailNumberAsksFirst() {
        auto w = Open();
        Child<QPushButton>(*w, "cmdAddBoat")->click();
        QVERIFY(!Child<QComboBox>(*w, "SelBoat")->isEnabled());
        Type(Child<QLineEdit>(*w, "tName"), "Copy Cat");
        Type(Child<QLineEdit>(*w, "tSailNo"), "  K 77 ");
        Choose(Child<QComboBox>(*w, "SelModel"), "Laser");
        Choose(Child<QComboBox>(*w, "SelOwner"), "Adams, Ann");
        messages->answers = {false};
        Child<QPushButton>(*w, "cmdOK")->click();
        QCOMPARE(messages->questions,
                 std::vector<std::string>{"A boat with this sail number already exists. Continue "
                                          "to save the details?"});
        QCOMPARE(db->Count("Boat"), 3);
        QCOMPARE(Child<QLabel>(*w, "lInfo")->text(), QString("Details not saved"));
        QCOMPARE(Child<QLineEdit>(*w, "tName")->text(), QString());
        QCOMPARE(Child<QComboBox>(*w, "SelModel")->currentIndex(), -1);

        Type(Child<QLineEdit>(*w, "tName"), "Copy Cat");
        Type(Child<QLineEdit>(*w, "tSailNo"), "K 77");
        Choose(Child<QComboBox>(*w, "SelModel"), "Laser");
        Choose(Child<QComboBox>(*w, "SelOwner"), "Adams, Ann");
        messages->answers = {true};
        Child<QPushButton>(*w, "cmdOK")->click();
        QCOMPARE(db->Count("Boat", "FullSailNo = 'K 77' AND SailNo = 77"), 2);
        QCOMPARE(Child<QComboBox>(*w, "SelBoat")->currentText(), QString("Copy Cat"));
        QVERIFY(Child<QComboBox>(*w, "SelBoat")->isEnabled());
        QCOMPARE(Child<QLabel>(*w, "lInfo")->text(), QString("Boat details saved"));
        QVERIFY(!Child<QPushButton>(*w, "cmdOK")->isEnabled());
    }

    void entryEditorGetsTheBoatsItSaves() {
        std::vector<int> handedBack;
        auto w = Open(-1, [&](int id) { handedBack.push_back(id); });
        QVERIFY(!Child<QComboBox>(*w, "SelBoat")->isEnabled());
        QCOMPARE(Child<QLineEdit>(*w, "tName")->text(), QString());
        Type(Child<QLineEdit>(*w, "tName"), "Wren");
        Type(Child<QLineEdit>(*w, "tSailNo"), "GBR 4321");
        Choose(Child<QComboBox>(*w, "SelModel"), "Laser");
        Choose(Child<QComboBox>(*w, "SelOwner"), "Smith, John");
        Child<QPushButton>(*w, "cmdOK")->click();
        QCOMPARE(messages->questions.size(), std::size_t{0});
        const int newId = std::stoi(db->Text("SELECT Id FROM Boat WHERE BoatName = 'Wren'"));
        QCOMPARE(handedBack, std::vector<int>{newId});
    }

    void closingWithEditsOffersToSave() {
        auto w = Open(1);
        Type(Child<QLineEdit>(*w, "tName"), "Aquila II");
        messages->answers = {true};
        w->reject();
        QCOMPARE(messages->questions, std::vector<std::string>{"Do you want to save the changes?"});
        QCOMPARE(messages->questionTitles, std::vector<std::string>{"Tallyboard"});
        QCOMPARE(db->Text("SELECT BoatName FROM Boat WHERE Id = 1"), std::string("Aquila II"));
    }

    void removingABoatInSeriesIsRefused() {
        auto w = Open(2);
        Child<QPushButton>(*w, "cmdRemove")->click();
        QCOMPARE(messages->Texts(),
                 std::vector<std::string>{
                     "I-Delete is not allowed as Blue Moon is entered in 1 series."});
        QVERIFY(messages->questions.empty());
        QCOMPARE(db->Count("Boat"), 3);
    }

    void removingTheLastBoatSelectsTheOneBefore() {
        auto w = Open(3);
        messages->answers = {true};
        Child<QPushButton>(*w, "cmdRemove")->click();
        QCOMPARE(messages->questions, std::vector<std::string>{"Permanently delete boat Zephyr?"});
        QCOMPARE(db->Count("Boat"), 2);
        QCOMPARE(Child<QComboBox>(*w, "SelBoat")->currentText(), QString("Blue Moon"));
        QCOMPARE(Child<QLineEdit>(*w, "tSailNo")->text(), QString("K 77"));

        Child<QComboBox>(*w, "SelBoat")->setCurrentIndex(0);
        messages->answers = {true};
        Child<QPushButton>(*w, "cmdRemove")->click();
        QCOMPARE(db->Count("Handicap", "Boat = 1"), 0);
        QCOMPARE(Child<QComboBox>(*w, "SelBoat")->currentText(), QString("Blue Moon"));
    }

    void modelsInUseAreListedAndKept() {
        auto w = Open(1);
        Child<QPushButton>(*w, "ListModels")->click();
        QCOMPARE(messages->shown.size(), std::size_t{1});
        QCOMPARE(messages->shown[0].title, std::string("Boats of type Sigma 33"));
        QCOMPARE(messages->shown[0].text, std::string("Aquila GBR 1234\r\nBlue Moon K 77"));

        Child<QPushButton>(*w, "cmdRemoveModel")->click();
        QCOMPARE(messages->Texts().back(),
                 std::string("I-Delete is not allowed as 2 Sigma 33 boats exist."));
        QCOMPARE(db->Count("BoatType"), 3);

        Choose(Child<QComboBox>(*w, "SelModel"), "Unused");
        messages->Clear();
        Child<QPushButton>(*w, "ListModels")->click();
        QCOMPARE(messages->shown[0].text, std::string("No boats found"));
        messages->answers = {true};
        Child<QPushButton>(*w, "cmdRemoveModel")->click();
        QCOMPARE(messages->questions, std::vector<std::string>{"Permanently delete model Unused?"});
        QCOMPARE(db->Count("BoatType"), 2);
    }

    void seriesEnteredAreListedWithTheirYear() {
        auto w = Open(2);
        Child<QPushButton>(*w, "ListSeries")->click();
        QCOMPARE(messages->shown[0].title, std::string("Series entered by Blue Moon"));
        QCOMPARE(messages->shown[0].text, std::string("Spring Series (2010)"));
        Child<QComboBox>(*w, "SelBoat")->setCurrentIndex(0);
        Child<QPushButton>(*w, "ListSeries")->click();
        QCOMPARE(messages->shown[1].text, std::string("No entries found"));
    }

    void newModelIsListedAndSelected() {
        auto w = Open(3);
        AnswerNextModal([](QDialog& model) {
            Type(Child<QLineEdit>(model, "tModel"), "Dragon");
            Type(Child<QLineEdit>(model, "tLOA"), "8.9x");
            Child<QPushButton>(model, "cmdOK")->click();
            Type(Child<QLineEdit>(model, "tLOA"), "8.9");
            Child<QPushButton>(model, "cmdOK")->click();
        });
        Child<QPushButton>(*w, "cmdAddModel")->click();
        QCOMPARE(messages->Texts(), std::vector<std::string>{"E- The LOA is not a valid number"});
        QCOMPARE(db->Text("SELECT LOA || '/' || Draft FROM BoatType WHERE Model = 'Dragon'"),
                 std::string("8.9/0.0"));
        QCOMPARE(Child<QComboBox>(*w, "SelModel")->currentText(), QString("Dragon"));
        QVERIFY(Child<QPushButton>(*w, "cmdOK")->isEnabled());
    }

    void ownerAddedThroughThePeopleEditorIsSelected() {
        auto w = Open(3);
        AnswerNextModal([](QDialog& people) {
            QVERIFY(!Child<QComboBox>(people, "SelPerson")->isEnabled());
            Type(Child<QLineEdit>(people, "tForename"), "Kate");
            Type(Child<QLineEdit>(people, "tSurname"), "Baker");
            Child<QPushButton>(people, "cmdOK")->click();
            QVERIFY(!people.isVisible());
        });
        Child<QPushButton>(*w, "cmdAddOwner")->click();
        QCOMPARE(Child<QComboBox>(*w, "SelOwner")->currentText(), QString("Baker, Kate"));
        QVERIFY(Child<QPushButton>(*w, "cmdOK")->isEnabled());
    }

    void handicapValueMustLieBetweenZeroAndTen_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("zero") << "0" << false;
        QTest::newRow("ten") << "10" << false;
        QTest::newRow("text") << "fast" << false;
        QTest::newRow("lowest") << "0.999" << true;
        QTest::newRow("highest") << "9.999" << true;
    }
    void handicapValueMustLieBetweenZeroAndTen() {
        QFETCH(QString, value);
        QFETCH(bool, accepted);
        auto w = Open(3);
        AnswerNextModal([value](QDialog& handicap) {
            QCOMPARE(Child<QLabel>(handicap, "Heading")->text(),
                     QString("Create new handicap for "));
            QCOMPARE(Child<QLabel>(handicap, "lBoat")->text(), QString("Zephyr"));
            QVERIFY(Child<QLabel>(handicap, "lExpire")->isHidden());
            Child<QComboBox>(handicap, "SelHandicap")->setCurrentIndex(1);
            Type(Child<QLineEdit>(handicap, "tValue"), value);
            Type(Child<QLineEdit>(handicap, "tStart"), "01/01/10");
            Type(Child<QLineEdit>(handicap, "tExpire"), "");
            Child<QPushButton>(handicap, "cmdOK")->click();
        });
        Child<QPushButton>(*w, "cmdAddHC")->click();
        QCOMPARE(db->Count("Handicap", "Boat = 3 AND HandicapType = 2 AND Expires IS NULL"),
                 accepted ? 1 : 0);
        QCOMPARE(messages->Texts(),
                 accepted ? std::vector<std::string>{}
                          : std::vector<std::string>{"E-Please specify a valid handicap value"});
        QCOMPARE(Child<QListWidget>(*w, "listHandicaps")->count(), accepted ? 1 : 0);
    }

    void handicapDatesAreChecked_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("expires");
        QTest::addColumn<QString>("message");
        QTest::newRow("no start") << ""
                                  << ""
                                  << "E-Please specify a valid start date";
        QTest::newRow("impossible start") << "31/02/10"
                                          << ""
                                          << "E-Please specify a valid start date";
        QTest::newRow("bad expiry") << "01/04/10"
                                    << "soon"
                                    << "E-The expiration date is not a valid date";
        QTest::newRow("expiry on start")
            << "01/04/10"
            << "01/04/2010"
            << "E-The expiration date must be later than the start date";
    }
    void handicapDatesAreChecked() {
        QFETCH(QString, start);
        QFETCH(QString, expires);
        QFETCH(QString, message);
        auto w = Open(3);
        AnswerNextModal([=](QDialog& handicap) {
            Child<QComboBox>(handicap, "SelHandicap")->setCurrentIndex(0);
            Type(Child<QLineEdit>(handicap, "tValue"), "0.9");
            Type(Child<QLineEdit>(handicap, "tStart"), start);
            Type(Child<QLineEdit>(handicap, "tExpire"), expires);
            Child<QPushButton>(handicap, "cmdOK")->click();
        });
        Child<QPushButton>(*w, "cmdAddHC")->click();
        QCOMPARE(messages->Texts(), std::vector<std::string>{message.toStdString()});
        QCOMPARE(db->Count("Handicap", "Boat = 3"), 0);
    }

    void revisingAHandicapEndsTheOldOneTheDayBefore() {
        auto w = Open(1);
        auto* list = Child<QListWidget>(*w, "listHandicaps");
        Child<QPushButton>(*w, "cmdReviseHC")->click();
        QCOMPARE(messages->Texts(), std::vector<std::string>{"I-No handicap selected"});
        list->setCurrentRow(1);
        AnswerNextModal([](QDialog& handicap) {
            QCOMPARE(Child<QLabel>(handicap, "Heading")->text(),
                     QString("Revise PY handicap value for"));
            QVERIFY(!Child<QLabel>(handicap, "lExpire")->isHidden());
            QCOMPARE(Child<QLineEdit>(handicap, "tValue")->text(), QString("1.02"));
            Type(Child<QLineEdit>(handicap, "tValue"), "1.05");
            Type(Child<QLineEdit>(handicap, "tStart"), "01/04/2010");
            Type(Child<QLineEdit>(handicap, "tExpire"), "");
            Child<QPushButton>(handicap, "cmdOK")->click();
        });
        Child<QPushButton>(*w, "cmdReviseHC")->click();
        QCOMPARE(db->Text("SELECT Expires FROM Handicap WHERE Id = 2"),
                 std::string("2010-03-31 00:00:00"));
        QCOMPARE(db->Count("Handicap",
                           "Boat = 1 AND Handicap = 1.05 AND "
                           "EffectiveFrom = '2010-04-01 00:00:00' AND Expires IS NULL"),
                 1);
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->item(1)->text(), QString("PY").leftJustified(21) + "1.050  01/04/10  ");
    }

    void editingAHandicapShowsItsPeriod() {
        auto w = Open(1);
        Child<QListWidget>(*w, "listHandicaps")->setCurrentRow(0);
        AnswerNextModal([](QDialog& handicap) {
            QCOMPARE(Child<QLabel>(handicap, "Heading")->text(),
                     QString("Edit existing handicap for"));
            QCOMPARE(Child<QComboBox>(handicap, "SelHandicap")->currentText(), QString("IRC"));
            QCOMPARE(Child<QLineEdit>(handicap, "tStart")->text(), QString("01/01/2009"));
            QCOMPARE(Child<QLineEdit>(handicap, "tExpire")->text(), QString("31/12/2009"));
            Type(Child<QLineEdit>(handicap, "tExpire"), "30/06/09");
            Child<QPushButton>(handicap, "cmdOK")->click();
        });
        Child<QPushButton>(*w, "cmdEditHC")->click();
        QCOMPARE(db->Text("SELECT Expires FROM Handicap WHERE Id = 1"),
                 std::string("2009-06-30 00:00:00"));
        QCOMPARE(db->Count("Handicap"), 2);
    }
};

QTEST_MAIN(BoatEditorTest)
#include "test_frmBoatDetail.moc"
