#include "ui/frmClassDetail.h"

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui_frmClassDetail.h"

namespace tb {

frmClassDetail::frmClassDetail(clResults& ResultsDb, int SeriesId, int ClassId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmClassDetail>()),
      ResultsDb(ResultsDb),
      SeriesId(SeriesId),
      ClassId(ClassId) {
    ui->setupUi(this);
    // Part of the series editor, so its help page.
    SetHelpOnActivation(this, "Series");
    // Room for a long name without scrolling.
    ui->tTitle->setMinimumWidth(fontMetrics().horizontalAdvance(QString(40, QChar('x'))));
    ui->SelHandicap->setFont(ColumnFont());
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("ClassDetail.cmdOK", [this] { OK(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RunTrapped("ClassDetail.Load", [this] { Load(); });
}

frmClassDetail::~frmClassDetail() = default;

// Messages of the load are not shown; a new class starts with minimum TCF 0.000 and no handicap
// type.
void frmClassDetail::Load() {
    RowSet series;
    std::string Msg = ResultsDb.GetSeriesDetails(SeriesId, series);
    if (Msg.empty())
        ui->lSeries->setText(FieldText(series(clResults::SeriesDetailCol::Title, 0)));
    ui->tValue->setText("0.000");
    int handicapType = 0;
    if (ClassId >= 1 && Msg.empty()) {
        RowSet detail;
        Msg = ResultsDb.GetClassDetails(ClassId, detail);
        if (Msg.empty() && !detail.IsEmpty()) {
            handicapType =
                static_cast<int>(detail(clResults::ClassDetailCol::HandicapType, 0).AsInt());
            ui->tTitle->setText(
                QString::fromStdString(detail(clResults::ClassDetailCol::ClassName, 0).ToText()));
            ui->tValue->setText(
                QString::fromStdString(detail(clResults::ClassDetailCol::MinTCF, 0).ToText()));
        }
    }
    ui->SelHandicap->clear();
    if (Msg.empty()) {
        RowSet types;
        Msg = ResultsDb.GetHandicapTypes(types);
        for (std::size_t r = 0; Msg.empty() && !types.IsEmpty() && r < types.Rows(); ++r) {
            ui->SelHandicap->addItem(
                QString::fromStdString(types(clResults::HandicapTypesCol::Description, r).ToText()),
                static_cast<int>(types(clResults::HandicapTypesCol::Id, r).AsInt()));
        }
    }
    ui->SelHandicap->setCurrentIndex(ui->SelHandicap->findData(handicapType));
}

void frmClassDetail::OK() {
    ui->tTitle->setText(ui->tTitle->text().trimmed());
    ui->tValue->setText(ui->tValue->text().trimmed());
    const std::string minTcf = ui->tValue->text().toStdString();
    std::string Msg;
    if (ui->tTitle->text().isEmpty()) {
        Msg = "E-Please specify the name of this class";
        ui->tTitle->setFocus();
    } else if (ui->SelHandicap->currentIndex() < 0) {
        Msg = "E-Please specify the handicap type for this class";
        ui->SelHandicap->setFocus();
    } else if (!minTcf.empty() && !IsNumeric(minTcf)) {
        Msg = "E-Please enter a valid number for the mimumum TCF or leave blank";
        ui->tValue->setFocus();
    }
    if (Msg.empty()) {
        Msg = ResultsDb.PutClassDetails(ClassId, SeriesId, ui->tTitle->text().toStdString(), minTcf,
                                        static_cast<short>(ui->SelHandicap->currentData().toInt()));
    }
    if (!Msg.empty()) {
        ShowMessage(Msg);
        return;
    }
    accept();
}

}  // namespace tb
