#include "ui/frmBoatModel.h"

#include "ui_frmBoatModel.h"

#include <QEvent>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"

namespace tb {

frmBoatModel::frmBoatModel(clResults& ResultsDb, int SelectedId, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmBoatModel>()),
      ResultsDb(ResultsDb),
      ModelId(SelectedId) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Boats");
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatModel.cmdOK", [this] { return SaveModel(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RunTrapped("BoatModel.Load", [this] { return Load(); });
}

frmBoatModel::~frmBoatModel() = default;

std::string frmBoatModel::Load() {
    if (ModelId == -1)
        return {};
    RowSet detail;
    std::string Msg = ResultsDb.GetModelDetails(ModelId, detail);
    if (Msg.empty()) {
        ui->tModel->setText(FieldText(detail(clResults::ModelDetailCol::Model, 0)));
        ui->tLOA->setText(FieldText(detail(clResults::ModelDetailCol::LOA, 0)));
        ui->tDraft->setText(FieldText(detail(clResults::ModelDetailCol::Draft, 0)));
    }
    return Msg;
}

std::string frmBoatModel::SaveModel() {
    for (QLineEdit* field : {ui->tModel, ui->tLOA, ui->tDraft})
        field->setText(field->text().trimmed());
    const std::string model = S(ui->tModel->text());
    const std::string loa = S(ui->tLOA->text());
    const std::string draft = S(ui->tDraft->text());
    if (model.empty()) {
        ui->tModel->setFocus();
        return "E-Please specify a name for the model of boat";
    }
    if (!loa.empty() && !IsNumeric(loa)) {
        ui->tLOA->setFocus();
        return "E- The LOA is not a valid number";
    }
    if (!draft.empty() && !IsNumeric(draft)) {
        ui->tDraft->setFocus();
        return "E-The draft is not a valid number";
    }
    int id = ModelId;
    const std::string Msg = ResultsDb.PutModelDetails(id, model, ParseNumber(loa).value_or(0),
                                                      ParseNumber(draft).value_or(0));
    if (Msg.empty()) {
        SavedId = id;
        accept();
    }
    return Msg;
}

}  // namespace tb
