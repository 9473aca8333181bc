#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "support/RegisterFixtures.h"
#include "ui/frmPeopleDetail.h"

using namespace tb;
using namespace tb::test;

using Texts = std::vector<std::string>;

class PeopleEditorTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Register> r;
    std::unique_ptr<frmPeopleDetail> w;
    Controls c{nullptr};

    void Open() {
        w = std::make_unique<frmPeopleDetail>(r->results, 0);
        c.window = w.get();
    }
    QComboBox* List() const { return c.Get<QComboBox>("SelPerson"); }
    void Search(const QString& typed) {
        List()->lineEdit()->clear();
        QTest::keyClicks(List()->lineEdit(), typed);
        QTest::keyClick(List()->lineEdit(), Qt::Key_Return);
    }
    void AddPerson(const QString& forename, const QString& surname) {
        c.Press("cmdAdd");
        c.Type("tForename", forename);
        c.Type("tSurname", surname);
        c.Type("tEvening", "01202 700000");
        c.Press("cmdOK");
    }

private slots:
    void init() { r = std::make_unique<Register>(); }
    void cleanup() {
        w.reset();
        r.reset();
    }

    void showsTheFirstPersonWithEveryField() {
        r->db.Exec(
            "UPDATE People SET Title = 'Mrs', Address1 = '1 Quay St', TelNo = 'eve', "
            "FaxNo = 'fax', DayTelNo = 'day', MobileNo = 'mob', EmailAddress = 'ann@club' "
            "WHERE Id = 1");
        Open();
        QCOMPARE(List()->currentText(), QString("Adams, Ann"));
        const std::vector<std::pair<const char*, const char*>> fields = {
            {"tTitle", "Mrs"}, {"tForename", "Ann"}, {"tSurname", "Adams"}, {"tAddr1", "1 Quay St"},
            {"tAddr2", ""},    {"tCity", "Poole"},   {"tEvening", "eve"},   {"tFax", "fax"},
            {"tDay", "day"},   {"tMobile", "mob"},   {"tEmail", "ann@club"}};
        for (const auto& [name, text] : fields)
            QVERIFY2(c.Get<QLineEdit>(name)->text() == text, name);
        QVERIFY(c.Get<QCheckBox>("cMember")->isChecked());
        QVERIFY(!c.Get<QPushButton>("cmdOK")->isEnabled());
        QVERIFY(c.Get<QPushButton>("cmdAdd")->isEnabled());
    }

    void onlyANewPersonWithAnExistingNameIsQuestioned() {
        Open();
        // Renaming someone to another person's name is not questioned.
        c.Type("tForename", "John");
        c.Type("tSurname", "Smith");
        c.Press("cmdOK");
        QVERIFY(r->messages.questions.empty());
        QCOMPARE(r->db.Count("People", "Firstname = 'John' AND Lastname = 'Smith'"), 2);

        r->messages.answers = {false};
        AddPerson(" john ", "SMITH");
        QCOMPARE(r->messages.questions,
                 Texts{"A person with this name already exists. Continue to save the details?"});
        QCOMPARE(r->db.Count("People"), 3);
        QVERIFY(c.Get<QPushButton>("cmdOK")->isEnabled());
        QCOMPARE(c.Get<QLineEdit>("tForename")->text(), QString("john"));

        r->messages.answers = {true};
        c.Press("cmdOK");
        QCOMPARE(r->db.Count("People", "Lastname = 'Smith' AND TelNo = '01202 700000'"), 1);
        QCOMPARE(List()->currentText(), QString("SMITH, john"));
        QVERIFY(List()->isEnabled());
        QCOMPARE(c.Get<QLabel>("lInfo")->text(), QString("Details of person saved"));
    }

    void namesAreRequired_data() {
        QTest::addColumn<QString>("forename");
        QTest::addColumn<QString>("surname");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        Row("no forename", " ", "", "E-Please specify the forename of the person", "tForename");
        Row("no surname", "Kate", "  ", "E-Please specify the surname of the person", "tSurname");
    }
    void namesAreRequired() {
        QFETCH(QString, forename);
        QFETCH(QString, surname);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        Open();
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
        AddPerson(forename, surname);
        QCOMPARE(Shown(r->messages), QStringList{message});
        QCOMPARE(QApplication::focusWidget()->objectName(), focus);
        QCOMPARE(c.Get<QLineEdit>("tEvening")->text(), QString("01202 700000"));
        QCOMPARE(r->db.Count("People"), 3);
    }

    void enterFindsByTheStartOfTheFamilyName() {
        Open();
        Search("smi");
        QCOMPARE(List()->currentText(), QString("Smith, John"));
        QCOMPARE(c.Get<QLineEdit>("tCity")->text(), QString("Hamble"));
        Search("smithe");
        QCOMPARE(List()->currentText(), QString("Smithers, Jim"));
        Search("xyz");
        QCOMPARE(c.Get<QLabel>("lInfo")->text(),
                 QString("The name starting with xyz was not found"));
        QCOMPARE(r->messages.beeps, 1);
        QCOMPARE(c.Get<QLineEdit>("tCity")->text(), QString("Cowes"));
        QVERIFY(r->messages.shown.empty());
    }

    void choosingAnotherPersonOffersToSaveEdits() {
        Open();
        c.Type("tCity", "Weymouth");
        r->messages.answers = {true};
        List()->setCurrentIndex(2);
        QCOMPARE(r->messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(r->db.Text("SELECT City FROM People WHERE Id = 1"), std::string("Weymouth"));
        QCOMPARE(List()->currentText(), QString("Smithers, Jim"));
        QCOMPARE(c.Get<QLineEdit>("tCity")->text(), QString("Cowes"));
    }

    void removingTheLastPersonSelectsTheNewLast() {
        Open();
        List()->setCurrentIndex(2);
        r->messages.answers = {true};
        c.Press("cmdRemove");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete Smithers, Jim?"});
        QCOMPARE(r->db.Count("People"), 2);
        QCOMPARE(List()->count(), 2);
        QCOMPARE(List()->currentText(), QString("Smith, John"));
        QCOMPARE(c.Get<QLineEdit>("tForename")->text(), QString("John"));
    }

    void personInUseIsKeptWithTheReasons_data() {
        QTest::addColumn<int>("person");
        QTest::addColumn<QString>("message");
        Row("owner only", 1, "I-Delete is not allowed as Adams, Ann is a boat owner.");
        Row("entrant and owner", 2,
            "I-Delete is not allowed as Smith, John is entered in 3 series and is a boat owner.");
        Row("entrant only", 3, "I-Delete is not allowed as Smithers, Jim is entered in 3 series.");
    }
    void personInUseIsKeptWithTheReasons() {
        QFETCH(int, person);
        QFETCH(QString, message);
        r->db.Exec(
            "INSERT INTO Series (Id, Title) VALUES (2, 'Autumn Series'), (3, 'Winter Series');"
            "INSERT INTO Schedule (Series, RaceDate) VALUES (2, '2010-09-01 00:00:00'), "
            "(3, '2010-12-01 00:00:00');"
            "INSERT INTO Entrant (Series, Boat, Entrant) VALUES (2, 2, 2), (3, 2, 2), (1, 3, 3), "
            "(2, 3, 3), (3, 3, 3);");
        Open();
        List()->setCurrentIndex(List()->findData(person));
        c.Press("cmdRemove");
        QCOMPARE(Shown(r->messages), QStringList{message});
        QVERIFY(r->messages.questions.empty());
        QCOMPARE(r->db.Count("People"), 3);
    }

    void usesAreListedInInformationBoxes() {
        Open();
        for (int row : {1, 2}) {
            List()->setCurrentIndex(row);
            c.Press("ListBoats");
            c.Press("ListSeries");
        }
        QCOMPARE(r->messages.shown.size(), std::size_t{4});
        QCOMPARE(r->messages.shown[0].title, std::string("Boats owned by Smith, John"));
        QCOMPARE(r->messages.shown[0].text, std::string("Blue Moon K 77\r\nZephyr 200"));
        QCOMPARE(r->messages.shown[1].title, std::string("Series entered by Smith, John"));
        QCOMPARE(r->messages.shown[1].text, std::string("2010 Spring Series"));
        QCOMPARE(r->messages.shown[2].text, std::string("No boats found"));
        QCOMPARE(r->messages.shown[3].text, std::string("No entries found"));
    }
};

QTEST_MAIN(PeopleEditorTest)
#include "test_frmPeopleDetail.moc"
