#include "ui/frmOptions.h"

#include <QFileInfo>
#include <QLineEdit>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/StartupSettings.h"
#include "ui/UsageLists.h"
#include "ui_frmOptions.h"

namespace tb {

namespace {

constexpr const char* kNoTypeSelected = "I-No handicap type is selected";
constexpr std::size_t kBoatsListed = 20;

std::string Trimmed(const QString& text) {
    return text.trimmed().toStdString();
}

// A changed path goes to the settings store; an unchanged one is not written again.
void StoreIfChanged(const char* key, const std::string& path) {
    const QString value = QString::fromStdString(path);
    if (ReadStartupSetting(QString::fromLatin1(key)) != value)
        WriteStartupSetting(QString::fromLatin1(key), value);
}

}  // namespace

frmOptions::frmOptions(clResults& ResultsDb, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmOptions>()), ResultsDb(ResultsDb) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Options");
    KeepTypedName(ui->SelHCs);
    connect(ui->SelHCs, &QComboBox::currentIndexChanged, this,
            [this](int index) { RunTrapped("Options.SelHCs", [&] { SelHCs_Click(index); }); });
    connect(ui->AddHCs, &QPushButton::clicked, this,
            [this] { RunTrapped("Options.AddHCs", [this] { AddHCs_Click(); }); });
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("Options.cmdRemove", [this] { cmdRemove_Click(); }); });
    connect(ui->ListModels, &QLabel::linkActivated, this,
            [this] { RunTrapped("Options.ListModels", [this] { ListModels_Click(); }); });
    connect(ui->ListSeries, &QLabel::linkActivated, this,
            [this] { RunTrapped("Options.ListSeries", [this] { ListSeries_Click(); }); });
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("Options.cmdOK", [this] { cmdOK_Click(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    Load();
}

// The list's focus-out handling must not reach a window that is going away.
frmOptions::~frmOptions() {
    ui->SelHCs->disconnect(this);
}

void frmOptions::showEvent(QShowEvent* event) {
    std::string Version;
    const std::string Msg = ResultsDb.GetSetting("Version", Version);
    ui->lInfo->setText(QStringLiteral("Build 27b (05-Nov-09) Schema ") +
                       QString::fromStdString(Version));
    ShowMessage(Msg);
    QDialog::showEvent(event);
}

void frmOptions::Load() {
    RunTrapped("Options.Load", [this] {
        ui->tReportDir->setText(QString::fromStdString(ReportPath));
        ui->tDataFile->setText(QString::fromStdString(DataFile));
        std::string Heading;
        std::string Comment;
        std::string Footnote;
        std::string Msg = ResultsDb.GetSetting("Header", Heading);
        if (Msg.empty())
            Msg = ResultsDb.GetSetting("Comment", Comment);
        if (Msg.empty())
            Msg = ResultsDb.GetSetting("Footnote", Footnote);
        ui->tHeading->setText(QString::fromStdString(Heading));
        ui->tComment->setText(QString::fromStdString(Comment));
        ui->tFootnote->setText(QString::fromStdString(Footnote));
        if (Msg.empty())
            Msg = FillHandicapTypes();
        return Msg;
    });
}

std::string frmOptions::FillHandicapTypes() {
    RowSet Types;
    const std::string Msg = ResultsDb.GetHandicapTypes(Types);
    ui->SelHCs->blockSignals(true);
    ui->SelHCs->clear();
    for (std::size_t row = 0; Msg.empty() && !Types.IsEmpty() && row < Types.Rows(); ++row) {
        ui->SelHCs->addItem(
            QString::fromStdString(Types(clResults::HandicapTypesCol::Description, row).ToText()),
            static_cast<int>(Types(clResults::HandicapTypesCol::Id, row).AsInt()));
    }
    ui->SelHCs->setCurrentIndex(-1);
    ui->SelHCs->blockSignals(false);
    if (ui->SelHCs->count() > 0)
        ui->SelHCs->setCurrentIndex(0);
    return Msg;
}

void frmOptions::SelHCs_Click(int index) {
    if (index >= 0)
        HandicapTypeId = ui->SelHCs->itemData(index).toInt();
}

void frmOptions::AddHCs_Click() {
    ui->SelHCs->setCurrentIndex(-1);
    ui->SelHCs->setFocus();
    HandicapTypeId = 0;
}

bool frmOptions::HandicapTypeSelected() const {
    return ui->SelHCs->currentIndex() >= 0;
}

std::string frmOptions::SelectedTypeName() const {
    return ui->SelHCs->itemText(ui->SelHCs->currentIndex()).toStdString();
}

void frmOptions::cmdRemove_Click() {
    if (!HandicapTypeSelected()) {
        ShowMessage(kNoTypeSelected);
        return;
    }
    const int typeId = ui->SelHCs->currentData().toInt();
    RowSet Series;
    RowSet Boats;
    std::string Msg = ResultsDb.GetSeriesUsingHandicap(typeId, Series);
    if (Msg.empty() && Series.IsEmpty())
        Msg = ResultsDb.GetBoatsUsingHandicap(typeId, Boats);
    if (Msg.empty() && (!Series.IsEmpty() || !Boats.IsEmpty()))
        Msg = RemovalRefused("handicap type is in use");
    if (Msg.empty()) {
        if (!AskYesNo("Remove handicap type " + SelectedTypeName() + "?", "Tallyboard"))
            return;
        Msg = ResultsDb.RemoveHandicapType(typeId);
        if (Msg.empty())
            Msg = FillHandicapTypes();
    }
    ShowMessage(Msg);
}

void frmOptions::ListModels_Click() {
    if (!HandicapTypeSelected()) {
        ShowMessage(kNoTypeSelected);
        return;
    }
    RowSet Boats;
    const std::string Msg =
        ResultsDb.GetBoatsUsingHandicap(ui->SelHCs->currentData().toInt(), Boats);
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    ShowUsage(
        "Handicap type: " + SelectedTypeName(), "This handicap type is not used by any boats",
        Boats,
        [](const RowSet& rows, std::size_t row) {
            return ToText(rows(clResults::BoatsUsingCol::BoatName, row));
        },
        "This handicap type is used by " + std::to_string(Boats.Rows()) +
            " boats:" + (Boats.Rows() > kBoatsListed ? " (first 20 shown)" : ""),
        kBoatsListed);
}

void frmOptions::ListSeries_Click() {
    if (!HandicapTypeSelected()) {
        ShowMessage(kNoTypeSelected);
        return;
    }
    RowSet Series;
    const std::string Msg =
        ResultsDb.GetSeriesUsingHandicap(ui->SelHCs->currentData().toInt(), Series);
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    ShowUsage(
        "Handicap type: " + SelectedTypeName(), "This handicap type is not used in any series",
        Series,
        [](const RowSet& rows, std::size_t row) {
            return SeriesWithYear(rows(clResults::SeriesUsingCol::Title, row),
                                  rows(clResults::SeriesUsingCol::SeriesDate, row));
        },
        "This handicap type is used in " + std::to_string(Series.Rows()) + " series:");
}

// Both paths are checked before either is stored, so a refused path leaves the store as it was.
// The data file may be a server's URI, which is tried when the next operation connects.
std::string frmOptions::SavePaths() {
    const std::string dataFile = Trimmed(ui->tDataFile->text());
    const std::string reportDir = Trimmed(ui->tReportDir->text());
    if (!dataFile.empty()) {
        std::string Msg = clResults::CheckDataFile(dataFile);
        if (!Msg.empty())
            return Msg;
    }
    if (!reportDir.empty() && !QFileInfo(QString::fromStdString(reportDir)).isDir())
        return "E-The report directory " + reportDir + " was not found";
    if (!dataFile.empty())
        StoreIfChanged(kDataFileKey, dataFile);
    if (!reportDir.empty())
        StoreIfChanged(kReportPathKey, reportDir);
    return {};
}

void frmOptions::cmdOK_Click() {
    std::string Msg = SavePaths();
    const std::string typeName = Trimmed(ui->SelHCs->currentText());
    if (Msg.empty() && !HandicapTypeSelected() && typeName.empty())
        Msg = "E-Please specify a name for the handicap type";
    if (Msg.empty()) {
        Msg = ResultsDb.PutOptions(Trimmed(ui->tHeading->text()), Trimmed(ui->tComment->text()),
                                   Trimmed(ui->tFootnote->text()), HandicapTypeId, typeName);
    }
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    accept();
}

}  // namespace tb
