// The picker for several boats matching one search: aligned lines, the first preselected, and
// the choice made the selection of the results window's boat list.

#include <QFontDatabase>
#include <QPushButton>
#include <QtTest>

#include "data/RowSet.h"
#include "support/WindowTesting.h"
#include "ui/frmSelectBoat.h"

using tb::test::Row;

class SelectBoatWindowTest : public QObject {
    Q_OBJECT

private:
    static tb::RowSet TwoAlphas() {
        tb::RowSet matches;
        matches.AddRow({11, "Alpha", "1234", "Class 1"});
        matches.AddRow({12, "Alpha", "567", "Class 2"});
        return matches;
    }
    // The results window's boat list: Bravo, then both Alphas, then Charlie.
    static void FillEntries(QComboBox& entries) {
        entries.addItem("Bravo", 10);
        entries.addItem("Alpha 1234", 11);
        entries.addItem("Alpha 567", 12);
        entries.addItem("Charlie", 13);
        entries.setCurrentIndex(0);
    }

private slots:
    void listsTheMatchesInAlignedColumnsWithTheFirstChosen() {
        QComboBox entries;
        FillEntries(entries);
        tb::frmSelectBoat picker(TwoAlphas(), entries);
        picker.show();
        auto* list = picker.findChild<QListWidget*>("SelBoat");
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->item(0)->text(),
                 QString("Alpha") + QString(26, ' ') + " " + "      1234" + "  Class 1");
        QCOMPARE(list->item(1)->text(),
                 QString("Alpha") + QString(26, ' ') + " " + "       567" + "  Class 2");
        QCOMPARE(list->item(1)->data(Qt::UserRole).toInt(), 12);
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
    }
    void eachWayOfConfirmingSelectsTheChosenEntrant() {
        QFETCH(int, way);
        QComboBox entries;
        FillEntries(entries);
        tb::frmSelectBoat picker(TwoAlphas(), entries);
        picker.show();
        auto* list = picker.findChild<QListWidget*>("SelBoat");
        list->setCurrentRow(1);
        if (way == 0) {
            QTest::mouseClick(picker.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        } else if (way == 1) {
            emit list->itemDoubleClicked(list->item(1));
        } else {
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Return);
        }
        QCOMPARE(entries.currentIndex(), 2);
        QVERIFY(!picker.isVisible());
        QCOMPARE(picker.result(), int(QDialog::Accepted));
    }

    void anEntrantMissingFromTheListChangesNothing() {
        QComboBox entries;
        FillEntries(entries);
        tb::RowSet stranger;
        stranger.AddRow({99, "Zulu", "1", "Class 1"});
        tb::frmSelectBoat picker(stranger, entries);
        picker.show();
        QTest::mouseClick(picker.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        QCOMPARE(entries.currentIndex(), 0);
        QVERIFY(!picker.isVisible());
    }
};

QTEST_MAIN(SelectBoatWindowTest)
#include "test_frmSelectBoat.moc"
