#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "data/clResults.h"
#include "support/RecordingMessages.h"
#include "support/RegisterFixtures.h"
#include "ui/frmPeopleDetail.h"

using namespace tb;
using namespace tb::test;

class PeopleEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestDatabase> db;
    std::unique_ptr<clResults> results;
    std::unique_ptr<RecordingMessages> messages;

    std::unique_ptr<frmPeopleDetail> Open(int selectedId = 0) {
        return std::make_unique<frmPeopleDetail>(*results, selectedId);
    }
    static QComboBox* List(const frmPeopleDetail& w) { return Child<QComboBox>(w, "SelPerson"); }
    static void Search(const frmPeopleDetail& w, const QString& typed) {
        QLineEdit* edit = List(w)->lineEdit();
        edit->clear();
        QTest::keyClicks(edit, typed);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    void AddPerson(const frmPeopleDetail& w, const QString& forename, const QString& surname) {
        Child<QPushButton>(w, "cmdAdd")->click();
        Type(Child<QLineEdit>(w, "tForename"), forename);
        Type(Child<QLineEdit>(w, "tSurname"), surname);
        Type(Child<QLineEdit>(w, "tEvening"), "01202 700000");
        Child<QPushButton>(w, "cmdOK")->click();
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

    void showsTheFirstPersonWithEveryField() {
        db->Exec(
            "UPDATE People SET Title = 'Mrs', Address1 = '1 Quay St', TelNo = 'eve', "
            "FaxNo = 'fax', DayTelNo = 'day', MobileNo = 'mob', EmailAddress = 'ann@club' "
            "WHERE Id = 1");
        auto w = Open();
        QCOMPARE(List(*w)->currentText(), QString("Adams, Ann"));
        const std::vector<std::pair<const char*, const char*>> fields = {
            {"tTitle", "Mrs"}, {"tForename", "Ann"}, {"tSurname", "Adams"}, {"tAddr1", "1 Quay St"},
            {"tAddr2", ""},    {"tCity", "Poole"},   {"tEvening", "eve"},   {"tFax", "fax"},
            {"tDay", "day"},   {"tMobile", "mob"},   {"tEmail", "ann@club"}};
        for (const auto& [name, text] : fields)
            QVERIFY2(Child<QLineEdit>(*w, name)->text() == text, name);
        QVERIFY(Child<QCheckBox>(*w, "cMember")->isChecked());
        QVERIFY(!Child<QPushButton>(*w, "cmdOK")->isEnabled());
        QVERIFY(Child<QPushButton>(*w, "cmdAdd")->isEnabled());
    }

    void newPersonWithAnExistingNameAsksFirst() {
        auto w = Open();
        messages->answers = {false};
        AddPerson(*w, " john ", "SMITH");
        QCOMPARE(messages->questions, std::vector<std::string>{"A person with this name already "
                                                               "exists. Continue to save the "
                                                               "details?"});
        QCOMPARE(db->Count("People"), 3);
        QVERIFY(Child<QPushButton>(*w, "cmdOK")->isEnabled());
        QCOMPARE(Child<QLineEdit>(*w, "tForename")->text(), QString("john"));

        messages->answers = {true};
        Child<QPushButton>(*w, "cmdOK")->click();
        QCOMPARE(db->Count("People", "Lastname = 'Smith' AND TelNo = '01202 700000'"), 1);
        QCOMPARE(List(*w)->currentText(), QString("SMITH, john"));
        QVERIFY(List(*w)->isEnabled());
        QCOMPARE(Child<QLabel>(*w, "lInfo")->text(), QString("Details of person saved"));
    }

    void renamingToAnotherPersonsNameIsNotQuestioned() {
        auto w = Open();
        Type(Child<QLineEdit>(*w, "tForename"), "John");
        Type(Child<QLineEdit>(*w, "tSurname"), "Smith");
        Child<QPushButton>(*w, "cmdOK")->click();
        QVERIFY(messages->questions.empty());
        QCOMPARE(db->Count("People", "Firstname = 'John' AND Lastname = 'Smith'"), 2);
    }

    void namesAreRequired_data() {
        QTest::addColumn<QString>("forename");
        QTest::addColumn<QString>("surname");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        QTest::newRow("no forename") << " "
                                     << ""
                                     << "E-Please specify the forename of the person"
                                     << "tForename";
        QTest::newRow("no surname") << "Kate"
                                    << "  "
                                    << "E-Please specify the surname of the person"
                                    << "tSurname";
    }
    void namesAreRequired() {
        QFETCH(QString, forename);
        QFETCH(QString, surname);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        auto w = Open();
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        AddPerson(*w, forename, surname);
        QCOMPARE(messages->Texts(), std::vector<std::string>{message.toStdString()});
        QCOMPARE(QApplication::focusWidget()->objectName(), focus);
        QCOMPARE(Child<QLineEdit>(*w, "tEvening")->text(), QString("01202 700000"));
        QCOMPARE(db->Count("People"), 3);
    }

    void enterFindsByTheStartOfTheFamilyName() {
        auto w = Open();
        Search(*w, "smi");
        QCOMPARE(List(*w)->currentText(), QString("Smith, John"));
        QCOMPARE(Child<QLineEdit>(*w, "tCity")->text(), QString("Hamble"));

        Search(*w, "smithe");
        QCOMPARE(List(*w)->currentText(), QString("Smithers, Jim"));

        Search(*w, "xyz");
        QCOMPARE(Child<QLabel>(*w, "lInfo")->text(),
                 QString("The name starting with xyz was not found"));
        QCOMPARE(messages->beeps, 1);
        QCOMPARE(Child<QLineEdit>(*w, "tCity")->text(), QString("Cowes"));
        QVERIFY(messages->shown.empty());
    }

    void choosingAnotherPersonOffersToSaveEdits() {
        auto w = Open();
        Type(Child<QLineEdit>(*w, "tCity"), "Weymouth");
        messages->answers = {true};
        List(*w)->setCurrentIndex(2);
        QCOMPARE(messages->questions, std::vector<std::string>{"Do you want to save the changes?"});
        QCOMPARE(db->Text("SELECT City FROM People WHERE Id = 1"), std::string("Weymouth"));
        QCOMPARE(List(*w)->currentText(), QString("Smithers, Jim"));
        QCOMPARE(Child<QLineEdit>(*w, "tCity")->text(), QString("Cowes"));
    }

    void removingTheLastPersonSelectsTheNewLast() {
        auto w = Open();
        List(*w)->setCurrentIndex(2);
        messages->answers = {true};
        Child<QPushButton>(*w, "cmdRemove")->click();
        QCOMPARE(messages->questions,
                 std::vector<std::string>{"Permanently delete Smithers, Jim?"});
        QCOMPARE(db->Count("People"), 2);
        QCOMPARE(List(*w)->count(), 2);
        QCOMPARE(List(*w)->currentText(), QString("Smith, John"));
        QCOMPARE(Child<QLineEdit>(*w, "tForename")->text(), QString("John"));
    }

    void personInUseIsKeptWithTheReasons_data() {
        QTest::addColumn<int>("person");
        QTest::addColumn<QString>("message");
        QTest::newRow("owner only")
            << 1 << "I-Delete is not allowed as Adams, Ann is a boat owner.";
        QTest::newRow("entrant and owner")
            << 2
            << "I-Delete is not allowed as Smith, John is entered in 3 series and is a boat owner.";
        QTest::newRow("entrant only")
            << 3 << "I-Delete is not allowed as Smithers, Jim is entered in 3 series.";
    }
    void personInUseIsKeptWithTheReasons() {
        QFETCH(int, person);
        QFETCH(QString, message);
        db->Exec(
            "INSERT INTO Series (Id, Title) VALUES (2, 'Autumn Series'), (3, 'Winter Series');"
            "INSERT INTO Schedule (Series, RaceDate) VALUES (2, '2010-09-01 00:00:00'), "
            "(3, '2010-12-01 00:00:00');"
            "INSERT INTO Entrant (Series, Boat, Entrant) VALUES (2, 2, 2), (3, 2, 2), (1, 3, 3), "
            "(2, 3, 3), (3, 3, 3);");
        auto w = Open();
        List(*w)->setCurrentIndex(List(*w)->findData(person));
        Child<QPushButton>(*w, "cmdRemove")->click();
        QCOMPARE(messages->Texts(), std::vector<std::string>{message.toStdString()});
        QVERIFY(messages->questions.empty());
        QCOMPARE(db->Count("People"), 3);
    }

    void usesAreListedInInformationBoxes() {
        auto w = Open();
        List(*w)->setCurrentIndex(1);
        Child<QPushButton>(*w, "ListBoats")->click();
        Child<QPushButton>(*w, "ListSeries")->click();
        List(*w)->setCurrentIndex(2);
        Child<QPushButton>(*w, "ListBoats")->click();
        Child<QPushButton>(*w, "ListSeries")->click();
        QCOMPARE(messages->shown.size(), std::size_t{4});
        QCOMPARE(messages->shown[0].title, std::string("Boats owned by Smith, John"));
        QCOMPARE(messages->shown[0].text, std::string("Blue Moon K 77\r\nZephyr 200"));
        QCOMPARE(messages->shown[1].title, std::string("Series entered by Smith, John"));
        QCOMPARE(messages->shown[1].text, std::string("2010 Spring Series"));
        QCOMPARE(messages->shown[2].text, std::string("No boats found"));
        QCOMPARE(messages->shown[3].text, std::string("No entries found"));
    }

    void openedToAddAnOwnerHandsThePersonBackAndCloses() {
        std::vector<int> handedBack;
        frmPeopleDetail w(*results, -1, [&](int id) { handedBack.push_back(id); });
        w.show();
        QVERIFY(!List(w)->isEnabled());
        QCOMPARE(Child<QLineEdit>(w, "tSurname")->text(), QString());
        AddPerson(w, "Kate", "Baker");
        const int newId = std::stoi(db->Text("SELECT Id FROM People WHERE Lastname = 'Baker'"));
        QCOMPARE(handedBack, std::vector<int>{newId});
        QVERIFY(!w.isVisible());
    }
};

QTEST_MAIN(PeopleEditorTest)
#include "test_frmPeopleDetail.moc"
