#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmImportExport.h"

using namespace tb::test;

namespace {

const QString kCsv = QString(TALLYBOARD_TEST_FIXTURES) + "/csv/";

// Tabs from the kind to the file field, types the path and presses Enter.
void OpenFile(const QString& path) {
    Key(Qt::Key_Tab);
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys(path);
    Enter();
}

QStringList Headings(const QTableWidget* table) {
    QStringList headings;
    for (int c = 0; c < table->columnCount(); ++c)
        headings << table->horizontalHeaderItem(c)->text();
    return headings;
}

}  // namespace

class TestImportExport : public QObject {
    Q_OBJECT
private slots:
    // A file with a problem shows its rows and the problem, and offers no import; a good one
    // shows which column each field is read as and imports whole.
    void previewsThenImportsTheWholeFile() {
        Club club;
        Opened<tb::frmImportExport> c(club.results, 0);
        Key(Qt::Key_Down);
        Key(Qt::Key_Down);
        QCOMPARE(c.Current("SelKind"), QString("Boats"));

        OpenFile(kCsv + "bad/twice.csv");
        QCOMPARE(Lines(c.Get<QListWidget>("listProblems")),
                 QStringList{"twice.csv row 3, column Sail No: the sail number of row 2 again"});
        QCOMPARE(c.Get<QTableWidget>("listPreview")->rowCount(), 2);
        QVERIFY(!c.Get<QPushButton>("cmdImport")->isEnabled());

        Key(Qt::Key_Backtab);
        OpenFile(kCsv + "club/boats.csv");
        QCOMPARE(Headings(c.Get<QTableWidget>("listPreview")),
                 QStringList({"Yacht\n= Boat", "Sail #\n= Sail No", "Design\n= Model",
                              "Helm\n= Owner", "Colour\n(ignored)"}));
        QCOMPARE(c.Get<QTableWidget>("listPreview")->item(1, 0)->text(), QString("Tern, the"));
        QVERIFY(Lines(c.Get<QListWidget>("listProblems")).isEmpty());
        QCOMPARE(club.db.Count("Boat"), 0);

        c.Press("cmdImport");
        QCOMPARE(club.db.Count("Boat"), 4);
        QCOMPARE(club.db.Count("People"), 4);
        QCOMPARE(c.Label("lInfo"),
                 QString("Imported: people: 4 added, 0 updated, 0 skipped; models: 3 added, 0 "
                         "updated, 0 skipped; boats: 4 added, 0 updated, 0 skipped; ignored "
                         "columns: \"Colour\""));
        QVERIFY(!c.Get<QPushButton>("cmdImport")->isEnabled());
        QVERIFY(club.messages.shown.empty());
    }
};

QTEST_MAIN(TestImportExport)
#include "test_frmImportExport.moc"
