#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

#include "support/WindowTesting.h"
#include "ui/frmImportExport.h"

using namespace tb::test;

namespace {

const QString kCsv = QString(TALLYBOARD_TEST_FIXTURES) + "/csv/";
const QString kData = QString(TALLYBOARD_TEST_FIXTURES) + "/../data/";

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
        QCOMPARE(
            Headings(c.Get<QTableWidget>("listPreview")).join("|"),
            QString(
                "Yacht\n= Boat|Sail #\n= Sail No|Design\n= Model|Helm\n= Owner|Colour\n(ignored)"));
        QCOMPARE(c.Get<QTableWidget>("listPreview")->item(1, 0)->text(), QString("Tern, the"));
        QVERIFY(Lines(c.Get<QListWidget>("listProblems")).isEmpty());
        QCOMPARE(club.db.Count("Boat"), 0);

        c.Press("cmdImport");
        QCOMPARE(club.db.Count("Boat"), 4);
        QCOMPARE(club.db.Count("People"), 4);
        QCOMPARE(c.Label("lInfo") + "\n",
                 QString::fromStdString(DataText("boat-import-summary.txt")));
        QVERIFY(!c.Get<QPushButton>("cmdImport")->isEnabled());
        QVERIFY(club.messages.shown.empty());
    }

    // A series file of another scoring program: a fault is a message and nothing is written;
    // a good file is imported whole and the window lists the same summary as the command line.
    void importsASeriesFileAndListsWhatItBroughtAcross() {
        Club club;
        Opened<tb::frmImportExport> c(club.results, 0);
        for (int down = 0; down < 4; ++down)
            Key(Qt::Key_Down);
        QCOMPARE(c.Current("SelKind"), QString("Series from another scoring program (.blw)"));
        QVERIFY(!c.Get<QPushButton>("cmdExport")->isEnabled());

        OpenFile(kData + "blw/bad-time.blw");
        c.Press("cmdImport");
        QCOMPARE(
            Shown(club.messages),
            QStringList{"E-Line 15 (rft): the finish time '10:7x:00' does not read as a time"});
        QCOMPARE(club.db.Count("Series"), 0);

        c.Type("tFile", kData + "blw/season.blw");
        Enter();
        c.Press("cmdImport");
        // The command line's golden summary, beside the core tests' data.
        const QString summary = QString::fromStdString(DataText("../../data/golden/blw-season.txt"))
                                    .section("==\n", 0, 0);
        QCOMPARE(Lines(c.Get<QListWidget>("listProblems")), summary.trimmed().split('\n'));
        QCOMPARE(c.Label("lInfo"), QString("Imported: Series 1: Harbour Frostbite (classes: 4)"));
        QCOMPARE(club.db.Count("Series"), 2);
        QVERIFY(!c.Get<QPushButton>("cmdImport")->isEnabled());
    }
};

QTEST_MAIN(TestImportExport)
#include "test_frmImportExport.moc"
