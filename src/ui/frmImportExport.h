#pragma once

#include <QDialog>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace tb {

class clResults;

// Brings a club's register and a race's finishes in from CSV files and takes the register, the
// race's results and the series' standings out: choose what and the file, see the first rows
// with the column each field is read as and every problem by row, then Import; or Export
// through a save dialog. A series file of another scoring program is imported whole, and what
// it brought across is listed.
class frmImportExport : public QDialog {
    Q_OBJECT
public:
    frmImportExport(clResults& ResultsDb, int RaceId, QWidget* parent = nullptr);

    // What the last import added, updated and skipped (for a series file, the whole summary);
    // empty when nothing was imported.
    const std::string& ImportSummary() const { return Summary; }

private:
    void KindChosen();
    void Browse();
    std::string Preview();
    std::string Import();
    std::string ImportSeries();
    std::string Export();

    clResults& ResultsDb;
    const int RaceId;
    std::string Summary;

    QComboBox* SelKind;
    QLineEdit* tFile;
    QPushButton* cmdBrowse;
    QCheckBox* cUpdate;
    QLabel* lPreview;
    QTableWidget* listPreview;
    QLabel* lProblems;
    QListWidget* listProblems;
    QLabel* lInfo;
    QPushButton* cmdImport;
    QPushButton* cmdExport;
    QPushButton* cmdClose;
};

}  // namespace tb
