#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "support/RegisterFixtures.h"
#include "ui/frmPeopleDetail.h"

using namespace tb;
using namespace tb::test;

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

    void everyFieldIsShownAndSavedInItsOwnColumn() {
        const char* fields[] = {"tTitle",   "tForename", "tSurname", "tAddr1",  "tAddr2", "tCity",
                                "tEvening", "tFax",      "tDay",     "tMobile", "tEmail"};
        const char* columns[] = {"Title",    "Firstname", "Lastname",    "Address1",
                                 "Address2", "City",      "TelNo",       "FaxNo",
                                 "DayTelNo", "MobileNo",  "EmailAddress"};
        Open();
        QVERIFY(c.Get<QCheckBox>("cMember")->isChecked());
        for (const char* field : fields)
            c.Type(field, QString(field).mid(1));
        c.Press("cmdOK");
        Open();
        List()->setCurrentIndex(List()->findData(1));
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            QCOMPARE(r->db.Text(std::string("SELECT ") + columns[i] + " FROM People WHERE Id = 1"),
                     std::string(fields[i] + 1));
            QCOMPARE(c.Text(fields[i]), QString(fields[i]).mid(1));
        }
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
        QCOMPARE(c.Text("tForename"), QString("john"));

        c.Press("cmdOK");
        QCOMPARE(r->db.Count("People", "Lastname = 'Smith' AND TelNo = '01202 700000'"), 1);
        QCOMPARE(List()->currentText(), QString("SMITH, john"));
        QVERIFY(List()->isEnabled());
        QCOMPARE(c.Label("lInfo"), QString("Details of person saved"));
    }

    void namesAreRequired() {
        Open();
        ShowActive(*w);
        AddPerson(" ", "");
        QCOMPARE(QApplication::focusWidget()->objectName(), QString("tForename"));
        AddPerson("Kate", "  ");
        QCOMPARE(QApplication::focusWidget()->objectName(), QString("tSurname"));
        QCOMPARE(Shown(r->messages), QStringList({"E-Please specify the forename of the person",
                                                  "E-Please specify the surname of the person"}));
        QCOMPARE(c.Text("tEvening"), QString("01202 700000"));
        QCOMPARE(r->db.Count("People"), 3);
    }

    void enterFindsByTheStartOfTheFamilyName() {
        Open();
        Search("smi");
        QCOMPARE(List()->currentText(), QString("Smith, John"));
        QCOMPARE(c.Text("tCity"), QString("Hamble"));
        Search("smithe");
        QCOMPARE(List()->currentText(), QString("Smithers, Jim"));
        Search("xyz");
        QCOMPARE(c.Label("lInfo"), QString("The name starting with xyz was not found"));
        QCOMPARE(r->messages.beeps, 1);
        QCOMPARE(c.Text("tCity"), QString("Cowes"));
        QVERIFY(r->messages.shown.empty());
    }

    void choosingAnotherPersonOffersToSaveEdits() {
        Open();
        c.Type("tCity", "Weymouth");
        List()->setCurrentIndex(2);
        QCOMPARE(r->messages.questions, Texts{"Do you want to save the changes?"});
        QCOMPARE(r->db.Text("SELECT City FROM People WHERE Id = 1"), std::string("Weymouth"));
        QCOMPARE(c.Text("tCity"), QString("Cowes"));
    }

    void aPersonInUseIsKeptWithTheReasonsAndOthersRemoved() {
        r->db.Exec(
            "INSERT INTO Series (Id, Title) VALUES (2, 'Autumn Series'), (3, 'Winter Series');"
            "INSERT INTO Schedule (Series, RaceDate) VALUES (2, '2010-09-01 00:00:00'), "
            "(3, '2010-12-01 00:00:00');"
            "INSERT INTO Entrant (Series, Boat, Entrant) VALUES (2, 2, 2), (3, 2, 2), (1, 3, 3), "
            "(2, 3, 3), (3, 3, 3);");
        Open();
        for (int person = 1; person <= 3; ++person) {
            List()->setCurrentIndex(List()->findData(person));
            c.Press("cmdRemove");
        }
        QCOMPARE(Shown(r->messages),
                 QStringList({"I-Delete is not allowed as Adams, Ann is a boat owner.",
                              "I-Delete is not allowed as Smith, John is entered in 3 series and "
                              "is a boat owner.",
                              "I-Delete is not allowed as Smithers, Jim is entered in 3 series."}));
        QVERIFY(r->messages.questions.empty());

        r->db.Exec("DELETE FROM Entrant WHERE Entrant = 3");
        c.Press("cmdRemove");
        QCOMPARE(r->messages.questions, Texts{"Permanently delete Smithers, Jim?"});
        QCOMPARE(r->db.Count("People"), 2);
        QCOMPARE(List()->count(), 2);
        QCOMPARE(List()->currentText(), QString("Smith, John"));
        QCOMPARE(c.Text("tForename"), QString("John"));
    }

    void usesAreListedInInformationBoxes() {
        Open();
        for (int row : {1, 2}) {
            List()->setCurrentIndex(row);
            c.Press("ListBoats");
            c.Press("ListSeries");
        }
        QCOMPARE(r->messages.shown[0].title, std::string("Boats owned by Smith, John"));
        QCOMPARE(r->messages.shown[1].title, std::string("Series entered by Smith, John"));
        QCOMPARE(Shown(r->messages),
                 QStringList({"I-Blue Moon K 77\r\nZephyr 200", "I-2010 Spring Series",
                              "I-No boats found", "I-No entries found"}));
    }
};

QTEST_MAIN(PeopleEditorTest)
#include "test_frmPeopleDetail.moc"
