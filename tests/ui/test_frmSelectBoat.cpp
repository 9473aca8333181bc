// The picker for several boats matching one search: aligned lines, the first preselected, and
// the choice made the selection of the results window's boat list.

#include <QFontDatabase>
#include <QPushButton>
#include <QtTest>

#include "data/RowSet.h"
#include "support/WindowTesting.h"
#include "ui/frmSelectBoat.h"

using tb::test::Row;

namespace {

tb::RowSet TwoAlphas() {
    tb::RowSet matches;
    matches.AddRow({11, "Alpha", "1234", "Class 1"});
    matches.AddRow({12, "Alpha", "567", "Class 2"});
    return matches;
}

// The results window's boat list: Bravo, then both Alphas, then Charlie.
struct Entries : QComboBox {
    Entries() {
        addItem("Bravo", 10);
        addItem("Alpha 1234", 11);
        addItem("Alpha 567", 12);
        addItem("Charlie", 13);
        setCurrentIndex(0);
    }
};

}  // namespace

class SelectBoatWindowTest : public QObject {
    Q_OBJECT

private slots:
    void listsTheMatchesInAlignedColumnsWithTheFirstChosen() {
        Entries entries;
        tb::frmSelectBoat picker(TwoAlphas(), entries);
        picker.show();
        auto* list = picker.findChild<QListWidget*>("SelBoat");
        QCOMPARE(tb::test::Lines(list),
                 QStringList({QString("Alpha").leftJustified(32) + "      1234  Class 1",
                              QString("Alpha").leftJustified(32) + "       567  Class 2"}));
        QCOMPARE(list->currentRow(), 0);
        QCOMPARE(list->font().family(),
                 QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
        tb::test::Screenshot(picker, "frmSelectBoat");
    }

    void eachWayOfConfirmingSelectsTheChosenEntrant_data() {
        QTest::addColumn<int>("way");
        Row("OK button", 0);
        Row("double click", 1);
        Row("Enter in the list", 2);
        Row("OK on an entrant missing from the list", 3);
    }
    void eachWayOfConfirmingSelectsTheChosenEntrant() {
        QFETCH(int, way);
        Entries entries;
        tb::RowSet stranger;
        stranger.AddRow({99, "Zulu", "1", "Class 1"});
        tb::frmSelectBoat picker(way == 3 ? stranger : TwoAlphas(), entries);
        picker.show();
        auto* list = picker.findChild<QListWidget*>("SelBoat");
        list->setCurrentRow(way == 3 ? 0 : 1);
        if (way == 1) {
            emit list->itemDoubleClicked(list->item(1));
        } else if (way == 2) {
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Return);
        } else {
            QTest::mouseClick(picker.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        }
        QCOMPARE(entries.currentIndex(), way == 3 ? 0 : 2);
        QVERIFY(!picker.isVisible());
    }
};

QTEST_MAIN(SelectBoatWindowTest)
#include "test_frmSelectBoat.moc"
