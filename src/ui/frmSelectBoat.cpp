#include "ui/frmSelectBoat.h"

#include <QFontDatabase>
#include <QKeyEvent>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/EnterKey.h"
#include "ui/HelpFile.h"
#include "ui_frmSelectBoat.h"

namespace tb {

namespace {

// Boat name in 31 characters, a blank, the sail number right-aligned in 10, two blanks, class.
std::string BoatLine(const std::string& boat, const std::string& sailNo, const std::string& cls) {
    return FormatText(boat, "!" + std::string(31, '@')) + " " +
           FormatText(sailNo, std::string(10, '@')) + "  " + cls;
}

}  // namespace

frmSelectBoat::frmSelectBoat(const RowSet& Matches, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmSelectBoat>()) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Results");
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    ui->SelBoat->setFont(fixed);
    ui->lHeadings->setFont(fixed);
    ui->lHeadings->setText(QString::fromStdString(BoatLine("Boat", "Sail nr", "Class")));
    ui->lHeadings->setContentsMargins(ui->SelBoat->frameWidth() + 2, 0, 0, 0);
    ui->SelBoat->setMinimumWidth(QFontMetrics(fixed).horizontalAdvance(QString(64, 'M')));
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmSelectBoat::Confirm);
    connect(ui->SelBoat, &QListWidget::itemDoubleClicked, this, &frmSelectBoat::Confirm);
    RunTrapped("SelectBoat.Load", [&] { FillList(Matches); });
}

frmSelectBoat::~frmSelectBoat() = default;

void frmSelectBoat::keyPressEvent(QKeyEvent* e) {
    if (focusWidget() == ui->SelBoat && (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)) {
        Confirm();
        return;
    }
    if (!IsEnterKey(e))
        QDialog::keyPressEvent(e);
}

void frmSelectBoat::FillList(const RowSet& Matches) {
    ui->SelBoat->clear();
    for (std::size_t i = 0; !Matches.IsEmpty() && i < Matches.Rows(); ++i) {
        auto* item = new QListWidgetItem(QString::fromStdString(
            BoatLine(Matches(clResults::BoatInRaceCol::BoatName, i).ToText(),
                     Matches(clResults::BoatInRaceCol::FullSailNo, i).ToText(),
                     Matches(clResults::BoatInRaceCol::ClassName, i).ToText())));
        item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(
                                        Matches(clResults::BoatInRaceCol::EntrantId, i).AsInt()));
        ui->SelBoat->addItem(item);
    }
    ui->SelBoat->setCurrentRow(0);
    ui->SelBoat->setFocus();
}

void frmSelectBoat::Confirm() {
    if (const QListWidgetItem* chosen = ui->SelBoat->currentItem())
        EntrantId = chosen->data(Qt::UserRole).toInt();
    accept();
}

}  // namespace tb
