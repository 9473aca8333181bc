#include "ui/frmHandicapDetail.h"

#include "ui_frmHandicapDetail.h"

#include <QEvent>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"

namespace tb {

namespace {

// A date field shows the day/month/year form the user types.
QString DateField(const Value& date) {
    return Q(Format(date, "dd/mm/yyyy"));
}

}  // namespace

frmHandicapDetail::frmHandicapDetail(clResults& ResultsDb, int BoatId, int Request, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmHandicapDetail>()),
      ResultsDb(ResultsDb),
      BoatId(BoatId),
      Request(Request) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Boats");
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("HandicapDetail.cmdOK", [this] { return SaveHandicap(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RunTrapped("HandicapDetail.Load", [this] { return Load(); });
}

frmHandicapDetail::~frmHandicapDetail() = default;

std::string frmHandicapDetail::Load() {
    RowSet boat;
    std::string Msg = ResultsDb.GetBoatDetails(BoatId, boat);
    if (!Msg.empty())
        return Msg;
    ui->lBoat->setText(FieldText(boat(clResults::BoatDetailCol::BoatName, 0)));

    RowSet detail;
    Msg = ResultsDb.GetHandicapDetail(Request, detail);
    if (!Msg.empty())
        return Msg;
    ui->tValue->setText(FieldText(detail(clResults::HandicapDetailCol::Handicap, 0)));
    ui->tStart->setText(DateField(detail(clResults::HandicapDetailCol::EffectiveFrom, 0)));
    ui->tExpire->setText(DateField(detail(clResults::HandicapDetailCol::Expires, 0)));

    RowSet types;
    Msg = ResultsDb.GetHandicapTypes(types);
    if (!Msg.empty())
        return Msg;
    for (std::size_t row = 0; row < types.Rows(); ++row)
        ui->SelHandicap->addItem(
            FieldText(types(clResults::HandicapTypesCol::Description, row)),
            static_cast<int>(types(clResults::HandicapTypesCol::Id, row).AsInt()));
    ChooseById(ui->SelHandicap,
               static_cast<int>(detail(clResults::HandicapDetailCol::HandicapType, 0).AsInt()));

    ui->lExpire->setVisible(Request < 0);
    if (Request == 0)
        ui->Heading->setText("Create new handicap for ");
    else if (Request > 0)
        ui->Heading->setText("Edit existing handicap for");
    else
        ui->Heading->setText("Revise " + ui->SelHandicap->currentText() + " handicap value for");
    return Msg;
}

std::string frmHandicapDetail::SaveHandicap() {
    for (QLineEdit* field : {ui->tValue, ui->tStart, ui->tExpire})
        field->setText(field->text().trimmed());
    const std::string value = S(ui->tValue->text());
    const std::string start = S(ui->tStart->text());
    const std::string expires = S(ui->tExpire->text());
    const auto tcf = ParseNumber(value);
    const auto from = ParseTypedDate(start);
    const auto until = ParseTypedDate(expires);
    if (ui->SelHandicap->currentIndex() < 0) {
        ui->SelHandicap->setFocus();
        return "E-Please specify a handicap type";
    }
    if (!tcf || *tcf <= 0 || *tcf >= 10) {
        ui->tValue->setFocus();
        return "E-Please specify a valid handicap value";
    }
    if (!from) {
        ui->tStart->setFocus();
        return "E-Please specify a valid start date";
    }
    if (!expires.empty() && !until) {
        ui->tExpire->setFocus();
        return "E-The expiration date is not a valid date";
    }
    if (!expires.empty() && *until <= *from) {
        ui->tExpire->setFocus();
        return "E-The expiration date must be later than the start date";
    }
    const std::string Msg = ResultsDb.PutHandicapDetails(
        Request, BoatId, static_cast<short>(ChosenId(ui->SelHandicap)), value, start, expires);
    if (Msg.empty())
        accept();
    return Msg;
}

}  // namespace tb
