#include "ui/frmImportExport.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"

namespace tb {

namespace {

struct KindChoice {
    int kind;  // a CsvKind, or kSeriesFile
    const char* caption;
};

// Another scoring program's series file, brought across whole.
constexpr int kSeriesFile = -1;

constexpr int Of(CsvKind kind) {
    return static_cast<int>(kind);
}

constexpr KindChoice kKinds[] = {
    {Of(CsvKind::People), "People"},
    {Of(CsvKind::Models), "Boat models"},
    {Of(CsvKind::Boats), "Boats"},
    {Of(CsvKind::Handicaps), "Handicaps"},
    {kSeriesFile, "Series from another scoring program (.blw)"},
    {Of(CsvKind::Finishes), "Finishes of the race"},
    {Of(CsvKind::Results), "Results of the race"},
    {Of(CsvKind::Standings), "Standings of the series up to the race"},
};

bool Readable(int kind) {
    return kind == kSeriesFile || IsRegisterKind(static_cast<CsvKind>(kind)) ||
           kind == Of(CsvKind::Finishes);
}

bool OfTheRace(int kind) {
    return kind == Of(CsvKind::Finishes) || kind == Of(CsvKind::Results) ||
           kind == Of(CsvKind::Standings);
}

}  // namespace

frmImportExport::frmImportExport(clResults& ResultsDb, int RaceId, QWidget* parent)
    : QDialog(parent), ResultsDb(ResultsDb), RaceId(RaceId) {
    setWindowTitle("Import and export");
    // The program's own help page: the exchange of files has none of its own.
    SetHelpOnActivation(this, "Tallyboard help");
    SelKind = new QComboBox(this);
    SelKind->setObjectName("SelKind");
    for (const KindChoice& choice : kKinds) {
        if (!OfTheRace(choice.kind) || RaceId > 0)
            SelKind->addItem(choice.caption, choice.kind);
    }
    SelKind->setToolTip("What the file holds");
    tFile = new QLineEdit(this);
    tFile->setObjectName("tFile");
    tFile->setToolTip("The CSV file to import; press Enter to look at it");
    tFile->setMinimumWidth(fontMetrics().horizontalAdvance(QString(50, QChar('x'))));
    cmdBrowse = new QPushButton("&Choose file...", this);
    cmdBrowse->setObjectName("cmdBrowse");
    cUpdate = new QCheckBox("&Update records that exist already", this);
    cUpdate->setObjectName("cUpdate");
    cUpdate->setToolTip("Otherwise records already in the register are skipped");
    listPreview = new QTableWidget(this);
    listPreview->setObjectName("listPreview");
    listPreview->setEditTriggers(QAbstractItemView::NoEditTriggers);
    listPreview->setToolTip(
        "The first rows of the file, each column headed by the column it is "
        "read as");
    listProblems = new QListWidget(this);
    listProblems->setObjectName("listProblems");
    listProblems->setWordWrap(true);
    lInfo = new QLabel(this);
    lInfo->setObjectName("lInfo");
    lInfo->setWordWrap(true);
    cmdImport = new QPushButton("&Import", this);
    cmdImport->setObjectName("cmdImport");
    cmdImport->setEnabled(false);
    cmdExport = new QPushButton("&Export...", this);
    cmdExport->setObjectName("cmdExport");
    cmdClose = new QPushButton("Close", this);
    cmdClose->setObjectName("cmdClose");
    for (QPushButton* button : {cmdBrowse, cmdImport, cmdExport, cmdClose})
        button->setAutoDefault(false);

    auto* form = new QFormLayout;
    form->addRow("&What", SelKind);
    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(tFile);
    fileRow->addWidget(cmdBrowse);
    auto* fileLabel = new QLabel("&File", this);
    fileLabel->setBuddy(tFile);
    form->addRow(fileLabel, fileRow);
    form->addRow("", cUpdate);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lInfo, 1);
    buttons->addWidget(cmdImport);
    buttons->addWidget(cmdExport);
    buttons->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    lPreview = new QLabel("First rows, with the column each field is read as:", this);
    layout->addWidget(lPreview);
    layout->addWidget(listPreview, 3);
    lProblems = new QLabel(this);
    layout->addWidget(lProblems);
    layout->addWidget(listProblems, 1);
    layout->addLayout(buttons);
    resize(900, 560);

    const auto trapped = [this](const char* location, std::string (frmImportExport::*step)()) {
        return [this, location, step] { RunTrapped(location, [&] { return (this->*step)(); }); };
    };
    connect(SelKind, &QComboBox::currentIndexChanged, this,
            [this] { RunTrapped("ImportExport.SelKind", [this] { KindChosen(); }); });
    connect(tFile, &QLineEdit::returnPressed, this,
            trapped("ImportExport.Preview", &frmImportExport::Preview));
    connect(cUpdate, &QCheckBox::toggled, this,
            trapped("ImportExport.Preview", &frmImportExport::Preview));
    connect(cmdBrowse, &QPushButton::clicked, this,
            [this] { RunTrapped("ImportExport.cmdBrowse", [this] { Browse(); }); });
    connect(cmdImport, &QPushButton::clicked, this,
            trapped("ImportExport.Import", &frmImportExport::Import));
    connect(cmdExport, &QPushButton::clicked, this,
            trapped("ImportExport.Export", &frmImportExport::Export));
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    KindChosen();
}

void frmImportExport::KindChosen() {
    const int kind = SelKind->currentData().toInt();
    const bool readable = Readable(kind);
    for (QWidget* field : {static_cast<QWidget*>(tFile), static_cast<QWidget*>(cmdBrowse)})
        field->setEnabled(readable);
    cUpdate->setEnabled(kind != kSeriesFile && IsRegisterKind(static_cast<CsvKind>(kind)));
    cmdExport->setEnabled(kind != kSeriesFile && kind != Of(CsvKind::Finishes));
    // A series file has no rows to look at: its summary takes the room.
    lPreview->setVisible(kind != kSeriesFile);
    listPreview->setVisible(kind != kSeriesFile);
    lProblems->setText(kind == kSeriesFile ? "What the import brought across:" : "Problems:");
    listProblems->setToolTip(kind == kSeriesFile
                                 ? "What was added, reused and scored differently from the file"
                                 : "Every problem of the file; nothing is imported while there "
                                   "is one");
    RunTrapped("ImportExport.Preview", [this] { return Preview(); });
}

void frmImportExport::Browse() {
    const bool series = SelKind->currentData().toInt() == kSeriesFile;
    const QString file = QFileDialog::getOpenFileName(
        this, series ? "Import a series file" : "Import a CSV file", tFile->text(),
        series ? "Series files (*.blw);;All files (*)" : "CSV files (*.csv *.txt);;All files (*)");
    if (file.isEmpty())
        return;
    tFile->setText(file);
    RunTrapped("ImportExport.Preview", [this] { return Preview(); });
}

std::string frmImportExport::Preview() {
    listPreview->clear();
    listPreview->setRowCount(0);
    listPreview->setColumnCount(0);
    listProblems->clear();
    cmdImport->setEnabled(false);
    lInfo->clear();
    const int kind = SelKind->currentData().toInt();
    const std::string file = S(tFile->text().trimmed());
    if (!Readable(kind) || file.empty())
        return {};
    // A series file is checked whole as it is imported: nothing is written when it has a fault.
    if (kind == kSeriesFile) {
        cmdImport->setEnabled(true);
        lInfo->setText("Ready to import the series");
        return {};
    }
    ImportReport report;
    const std::string Msg = ResultsDb.PreviewImport(static_cast<CsvKind>(kind), file,
                                                    cUpdate->isChecked(), RaceId, report);
    listPreview->setColumnCount(static_cast<int>(report.Header.size()));
    QStringList headings;
    for (std::size_t c = 0; c < report.Header.size(); ++c) {
        const std::string& as = report.Recognised[c];
        headings << Q(report.Header[c]) + "\n" + (as.empty() ? QString("(ignored)") : "= " + Q(as));
    }
    listPreview->setHorizontalHeaderLabels(headings);
    listPreview->setRowCount(static_cast<int>(report.FirstRows.size()));
    QStringList rowNumbers;
    for (std::size_t r = 0; r < report.FirstRows.size(); ++r) {
        const CsvRow& row = report.FirstRows[r];
        rowNumbers << QString::number(row.Number);
        for (std::size_t c = 0; c < row.Fields.size(); ++c)
            listPreview->setItem(static_cast<int>(r), static_cast<int>(c),
                                 new QTableWidgetItem(Q(row.Fields[c])));
    }
    listPreview->setVerticalHeaderLabels(rowNumbers);
    listPreview->resizeColumnsToContents();
    for (const std::string& problem : report.Problems)
        listProblems->addItem(Q(problem));
    const bool fit = Msg.empty() && report.Problems.empty();
    cmdImport->setEnabled(fit);
    lInfo->setText(fit ? "Ready to import: " + Q(report.Summary).trimmed().replace("\n", "; ")
                       : QString::number(report.Problems.size()) +
                             " problems: nothing can be "
                             "imported");
    return Msg;
}

std::string frmImportExport::Import() {
    const int kind = SelKind->currentData().toInt();
    if (kind == kSeriesFile)
        return ImportSeries();
    ImportReport report;
    const std::string Msg =
        ResultsDb.ImportCsv(static_cast<CsvKind>(kind), S(tFile->text().trimmed()),
                            cUpdate->isChecked(), RaceId, report);
    if (!Msg.empty())
        return Msg;
    Summary = report.Summary;
    cmdImport->setEnabled(false);
    lInfo->setText("Imported: " + Q(Summary).trimmed().replace("\n", "; "));
    return {};
}

std::string frmImportExport::ImportSeries() {
    std::string summary;
    const std::string Msg = ResultsDb.ImportSeriesFile(S(tFile->text().trimmed()), summary);
    if (!Msg.empty())
        return Msg;
    Summary = summary;
    cmdImport->setEnabled(false);
    listProblems->clear();
    listProblems->addItems(Q(Summary).trimmed().split('\n'));
    lInfo->setText("Imported: " + listProblems->item(0)->text());
    return {};
}

std::string frmImportExport::Export() {
    const auto kind = static_cast<CsvKind>(SelKind->currentData().toInt());
    const QString file = QFileDialog::getSaveFileName(
        this, "Export as CSV", QString(CsvKindName(kind)) + ".csv", "CSV files (*.csv)");
    if (file.isEmpty())
        return {};
    std::string csv;
    const std::string Msg = ResultsDb.ExportCsv(kind, RaceId, csv);
    if (!Msg.empty())
        return Msg;
    if (const std::string written = WriteCsvFile(S(file), csv); !written.empty())
        return written;
    lInfo->setText("Written to " + file);
    return {};
}

}  // namespace tb
