#include "ui/frmBoatDetail.h"

#include "ui_frmBoatDetail.h"

#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <numeric>
#include <vector>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/UsageLists.h"
#include "ui/frmBoatModel.h"
#include "ui/frmHandicapDetail.h"
#include "ui/frmPeopleDetail.h"

namespace tb {

namespace {

constexpr const char* kSailNumberFormat = "@@@@@@@!";
constexpr const char* kModelFormat = "!@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@@";
constexpr const char* kHandicapTypeFormat = "!@@@@@@@@@@@@@@@@@@@@@";

int IdOf(const Value& value) {
    return static_cast<int>(value.AsInt());
}

}  // namespace

frmBoatDetail::frmBoatDetail(clResults& ResultsDb, int SelectedId, bool ForEntry, QWidget* parent)
    : QDialog(parent),
      ui(std::make_unique<Ui::frmBoatDetail>()),
      ResultsDb(ResultsDb),
      ForEntry(ForEntry) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Boats");
    for (QWidget* list :
         {static_cast<QWidget*>(ui->SelBoat), static_cast<QWidget*>(ui->SelModel),
          static_cast<QWidget*>(ui->listHandicaps), static_cast<QWidget*>(ui->lHandicapColumns)})
        list->setFont(ColumnFont());
    ui->lHandicapColumns->setText(
        Q(FormatText("Type", kHandicapTypeFormat) + "Value  Starts    Expires"));
    ui->listHandicaps->setMinimumWidth(
        QFontMetrics(ColumnFont()).horizontalAdvance(QString(50, 'M')));
    ui->SelBoat->installEventFilter(this);

    connect(ui->SelBoat, &QComboBox::currentIndexChanged, this, [this] { BoatChosen(); });
    connect(ui->cSailNum, &QCheckBox::toggled, this,
            [this] { RunTrapped("BoatDetail.cSailNum", [this] { return ListBoats(BoatId); }); });
    connect(ui->cDraft, &QCheckBox::toggled, this, [this] {
        RunTrapped("BoatDetail.cDraft", [this] { return ShowModels(ChosenId(ui->SelModel)); });
    });
    connect(ui->tName, &QLineEdit::textChanged, this, [this] { UpdateChangeState(); });
    connect(ui->tSailNo, &QLineEdit::textChanged, this, [this] { UpdateChangeState(); });
    connect(ui->SelModel, &QComboBox::currentIndexChanged, this, [this] { UpdateChangeState(); });
    connect(ui->SelOwner, &QComboBox::currentIndexChanged, this, [this] { UpdateChangeState(); });
    connect(ui->cmdAddBoat, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.cmdAddBoat", [this] { return AddBoat(); }); });
    connect(ui->cmdOK, &QPushButton::clicked, this, [this] {
        SaveBoat();
        UpdateChangeState();
    });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmBoatDetail::reject);
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.cmdRemove", [this] { return RemoveBoat(); }); });
    connect(ui->cmdAddModel, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.cmdAddModel", [this] { return EditModel(-1); }); });
    connect(ui->cmdEditModel, &QPushButton::clicked, this, [this] {
        RunTrapped("BoatDetail.cmdEditModel", [this] {
            if (ui->SelModel->currentIndex() < 0)
                return std::string("I-No model is selected");
            return EditModel(ChosenId(ui->SelModel));
        });
    });
    connect(ui->cmdRemoveModel, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.cmdRemoveModel", [this] { return RemoveModel(); }); });
    connect(ui->cmdAddOwner, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.cmdAddOwner", [this] { return AddOwner(); }); });
    connect(ui->cmdAddHC, &QPushButton::clicked, this, [this] {
        RunTrapped("BoatDetail.cmdAddHC", [this] { return OpenHandicap(false, 0); });
    });
    connect(ui->cmdEditHC, &QPushButton::clicked, this, [this] {
        RunTrapped("BoatDetail.cmdEditHC", [this] { return OpenHandicap(true, 1); });
    });
    connect(ui->cmdReviseHC, &QPushButton::clicked, this, [this] {
        RunTrapped("BoatDetail.cmdReviseHC", [this] { return OpenHandicap(true, -1); });
    });
    connect(ui->ListModels, &QPushButton::clicked, this,
            [this] { RunTrapped("BoatDetail.ListModels", [this] { return ListBoatsOfModel(); }); });
    connect(ui->ListSeries, &QPushButton::clicked, this, [this] {
        RunTrapped("BoatDetail.ListSeries", [this] { return ListSeriesEntered(); });
    });

    RunTrapped("BoatDetail.Load", [this, SelectedId] { return Load(SelectedId); });
}

frmBoatDetail::~frmBoatDetail() = default;

bool frmBoatDetail::eventFilter(QObject* watched, QEvent* e) {
    if (watched == ui->SelBoat && e->type() == QEvent::FocusOut)
        ui->lInfo->clear();
    return QDialog::eventFilter(watched, e);
}

// Every way of closing offers to save; a save that fails keeps the window open.
void frmBoatDetail::reject() {
    if (AskSave().empty())
        QDialog::reject();
}

std::string frmBoatDetail::Load(int SelectedId) {
    std::string Msg = ShowModels(0);
    if (Msg.empty())
        Msg = ShowPeople(0);
    if (Msg.empty())
        Msg = ListBoats(SelectedId);
    if (Msg.empty() && SelectedId == -1 && ForEntry)
        Msg = AddBoat();
    return Msg;
}

std::string frmBoatDetail::ListBoats(int SelectId) {
    return Trap("BoatDetail.ListBoats", [&] {
        RowSet boats;
        const std::string Msg = ResultsDb.GetBoats(boats);
        // While a new boat is being entered the list shows no boat, whichever way it is sorted.
        const bool addingBoat = SelectId <= 0 && !ui->SelBoat->isEnabledTo(this);
        {
            const QSignalBlocker block(ui->SelBoat);
            ui->SelBoat->clear();
            if (!Msg.empty())
                return Msg;
            const bool bySailNumber = ui->cSailNum->isChecked();
            std::vector<std::size_t> order(boats.Rows());
            std::iota(order.begin(), order.end(), 0);
            if (bySailNumber)
                std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
                    return boats(clResults::BoatsCol::SailNo, a).AsInt() <
                           boats(clResults::BoatsCol::SailNo, b).AsInt();
                });
            int select = -1;
            for (std::size_t row : order) {
                const int id = IdOf(boats(clResults::BoatsCol::Id, row));
                std::string text = ToText(boats(clResults::BoatsCol::BoatName, row));
                if (bySailNumber)
                    text = FormatText(ToText(boats(clResults::BoatsCol::SailNo, row)),
                                      kSailNumberFormat) +
                           text;
                ui->SelBoat->addItem(Q(text), id);
                if (id == SelectId || (select < 0 && SelectId <= 0 && !addingBoat))
                    select = ui->SelBoat->count() - 1;
            }
            ui->SelBoat->setCurrentIndex(select);
        }
        // A refill that keeps the boat being edited in view leaves its edits alone.
        if (!addingBoat && !(Changed && ChosenId(ui->SelBoat) == BoatId))
            BoatChosen();
        return Msg;
    });
}

std::string frmBoatDetail::ShowModels(int SelectId) {
    RowSet models;
    const std::string Msg = ResultsDb.GetModels(models);
    {
        const QSignalBlocker block(ui->SelModel);
        ui->SelModel->clear();
        const bool withDrafts = ui->cDraft->isChecked();
        for (std::size_t row = 0; Msg.empty() && row < models.Rows(); ++row) {
            std::string text = ToText(models(clResults::ModelsCol::Model, row));
            if (withDrafts && models(clResults::ModelsCol::Draft, row).IsNumber())
                text = FormatText(text, kModelFormat) +
                       ToText(models(clResults::ModelsCol::Draft, row)) + "m";
            ui->SelModel->addItem(Q(text), IdOf(models(clResults::ModelsCol::Id, row)));
        }
    }
    ChooseById(ui->SelModel, SelectId);
    UpdateChangeState();
    return Msg;
}

std::string frmBoatDetail::ShowPeople(int SelectId) {
    RowSet people;
    const std::string Msg = ResultsDb.GetPeople(people);
    {
        const QSignalBlocker block(ui->SelOwner);
        ui->SelOwner->clear();
        for (std::size_t row = 0; Msg.empty() && row < people.Rows(); ++row)
            ui->SelOwner->addItem(FieldText(people(clResults::PeopleCol::Person, row)),
                                  IdOf(people(clResults::PeopleCol::Id, row)));
    }
    ChooseById(ui->SelOwner, SelectId);
    UpdateChangeState();
    return Msg;
}

std::string frmBoatDetail::ShowHandicaps() {
    ui->listHandicaps->clear();
    RowSet handicaps;
    const std::string Msg = ResultsDb.GetHandicaps(BoatId, handicaps);
    for (std::size_t row = 0; Msg.empty() && row < handicaps.Rows(); ++row) {
        const std::string line =
            FormatText(ToText(handicaps(clResults::HandicapsCol::Description, row)) + " ",
                       kHandicapTypeFormat) +
            Format(handicaps(clResults::HandicapsCol::Handicap, row), "0.000") + "  " +
            Format(handicaps(clResults::HandicapsCol::EffectiveFrom, row), "dd/mm/yy") + "  " +
            Format(handicaps(clResults::HandicapsCol::Expires, row), "dd/mm/yy");
        auto* item = new QListWidgetItem(Q(line), ui->listHandicaps);
        item->setData(Qt::UserRole, IdOf(handicaps(clResults::HandicapsCol::Id, row)));
    }
    return Msg;
}

// The selection handling of the boat list: offer to save the boat shown until now, then show the
// chosen one (even when saving refilled the list).
void frmBoatDetail::BoatChosen() {
    ui->lInfo->clear();
    const int chosen = ChosenId(ui->SelBoat);
    AskSave();
    ChooseById(ui->SelBoat, chosen);
    RunTrapped("BoatDetail.ShowBoat", [this] { return ShowBoat(); });
}

std::string frmBoatDetail::ShowBoat() {
    ui->listHandicaps->clear();
    BoatId = ChosenId(ui->SelBoat);
    std::string Msg;
    QString name;
    QString sailNo;
    if (BoatId != 0) {
        RowSet detail;
        Msg = ResultsDb.GetBoatDetails(BoatId, detail);
        if (!Msg.empty())
            return Msg;
        name = FieldText(detail(clResults::BoatDetailCol::BoatName, 0));
        sailNo = FieldText(detail(clResults::BoatDetailCol::FullSailNo, 0));
        ChooseById(ui->SelModel, IdOf(detail(clResults::BoatDetailCol::BoatType, 0)));
        ChooseById(ui->SelOwner, IdOf(detail(clResults::BoatDetailCol::Owner, 0)));
        Msg = ShowHandicaps();
    } else {
        ChooseById(ui->SelModel, 0);
        ChooseById(ui->SelOwner, 0);
    }
    ShownName = name;
    ShownSailNo = sailNo;
    ShownModel = ChosenId(ui->SelModel);
    ShownOwner = ChosenId(ui->SelOwner);
    ui->tName->setText(name);
    ui->tSailNo->setText(sailNo);
    UpdateChangeState();
    return Msg;
}

void frmBoatDetail::UpdateChangeState() {
    Changed = ui->tName->text() != ShownName || ui->tSailNo->text() != ShownSailNo ||
              ChosenId(ui->SelOwner) != ShownOwner || ChosenId(ui->SelModel) != ShownModel;
    ui->cmdOK->setEnabled(Changed);
    for (QPushButton* button : {ui->cmdAddBoat, ui->cmdAddHC, ui->cmdEditHC, ui->cmdReviseHC})
        button->setEnabled(!Changed);
}

std::string frmBoatDetail::SaveBoat() {
    const std::string Msg = Trap("BoatDetail.SaveBoat", [this] {
        ui->tName->setText(ui->tName->text().trimmed());
        ui->tSailNo->setText(ui->tSailNo->text().trimmed());
        const std::string name = S(ui->tName->text());
        const std::string sailNo = S(ui->tSailNo->text());
        if (name.empty()) {
            ui->tName->setFocus();
            return std::string("E-Please specify the boat name");
        }
        if (sailNo.empty()) {
            ui->tSailNo->setFocus();
            return std::string("E-Please specify the sail number");
        }
        if (ui->SelModel->currentIndex() < 0) {
            ui->SelModel->setFocus();
            return std::string("E-Please specify the model of boat");
        }
        if (ui->SelOwner->currentIndex() < 0) {
            ui->SelOwner->setFocus();
            return std::string("E-Please specify the owner");
        }
        if (BoatId == 0) {
            RowSet found;
            if (ResultsDb.FindBoat(sailNo, found).empty() && !found.IsEmpty() &&
                found(clResults::FoundCol::Id, 0).AsInt() > 0 &&
                !AskYesNo("A boat with this sail number already exists. Continue to save the "
                          "details?")) {
                // Everything typed stays, so the officer can correct the number and save.
                ui->tSailNo->setFocus();
                ui->tSailNo->selectAll();
                ui->lInfo->setText("Details not saved");
                return std::string();
            }
        }
        int id = BoatId;
        std::string Msg = ResultsDb.PutBoatDetails(id, name, sailNo, ChosenId(ui->SelModel),
                                                   ChosenId(ui->SelOwner));
        if (Msg.empty()) {
            BoatId = id;
            Changed = false;
            ui->SelBoat->setEnabled(true);
            Msg = ListBoats(BoatId);
            ui->SelBoat->setFocus();
            ui->lInfo->setText("Boat details saved");
            SavedId = BoatId;
        }
        return Msg;
    });
    ShowMessage(Msg);
    return Msg;
}

std::string frmBoatDetail::AskSave() {
    if (!Changed || !AskYesNo("Do you want to save the changes?"))
        return {};
    return SaveBoat();
}

std::string frmBoatDetail::AddBoat() {
    {
        const QSignalBlocker block(ui->SelBoat);
        ui->SelBoat->setCurrentIndex(-1);
    }
    BoatChosen();
    ui->SelBoat->setEnabled(false);
    ui->tName->setFocus();
    return {};
}

std::string frmBoatDetail::RemoveBoat() {
    const int position = ui->SelBoat->currentIndex();
    if (position < 0)
        return "I-No boat is selected";
    const std::string boat = S(ui->SelBoat->currentText());
    RowSet series;
    std::string Msg = ResultsDb.GetSeriesForBoat(BoatId, series);
    if (!Msg.empty())
        return Msg;
    if (!series.IsEmpty())
        return RemovalRefused(boat + " is entered in " + std::to_string(series.Rows()) +
                              " series.");
    if (!AskYesNo("Permanently delete boat " + boat + "?"))
        return {};
    Msg = ResultsDb.RemoveBoat(BoatId);
    if (Msg.empty()) {
        // The boat is gone: its unsaved edits with it.
        Changed = false;
        RemoveAndChooseNeighbour(ui->SelBoat, position);
        BoatChosen();
    }
    return Msg;
}

std::string frmBoatDetail::EditModel(int ModelId) {
    tb::SelectedId = ModelId;
    frmBoatModel window(ResultsDb, tb::SelectedId, this);
    window.exec();
    return window.SavedModelId() == 0 ? std::string() : ShowModels(window.SavedModelId());
}

std::string frmBoatDetail::RemoveModel() {
    const int position = ui->SelModel->currentIndex();
    if (position < 0)
        return "I-No model is selected";
    const std::string model = S(ui->SelModel->currentText());
    RowSet boats;
    std::string Msg = ResultsDb.GetBoatsOfModel(ChosenId(ui->SelModel), boats);
    if (!Msg.empty())
        return Msg;
    if (!boats.IsEmpty())
        return RemovalRefused(std::to_string(boats.Rows()) + " " + model + " boats exist.");
    if (!AskYesNo("Permanently delete model " + model + "?"))
        return {};
    Msg = ResultsDb.RemoveModel(ChosenId(ui->SelModel));
    if (Msg.empty()) {
        RemoveAndChooseNeighbour(ui->SelModel, position);
        UpdateChangeState();
    }
    return Msg;
}

std::string frmBoatDetail::AddOwner() {
    tb::SelectedId = -1;
    frmPeopleDetail window(ResultsDb, tb::SelectedId, true, this);
    window.exec();
    return window.SavedPersonId() == 0 ? std::string() : ShowPeople(window.SavedPersonId());
}

// Hands the handicap window its request (0 a new handicap, an Id to edit, a negated Id to revise)
// through the hidden action label.
std::string frmBoatDetail::OpenHandicap(bool needsHandicap, int sign) {
    if (ui->SelBoat->currentIndex() < 0)
        return "I-No boat selected";
    const QListWidgetItem* highlighted = ui->listHandicaps->currentItem();
    if (needsHandicap && (highlighted == nullptr || !highlighted->isSelected()))
        return "I-No handicap selected";
    const int request = needsHandicap ? sign * highlighted->data(Qt::UserRole).toInt() : 0;
    ui->lAction->setText(QString::number(request));
    frmHandicapDetail window(ResultsDb, BoatId, ui->lAction->text().toInt(), this);
    window.exec();
    if (!window.Saved())
        return {};
    SavedId = BoatId;
    return ShowHandicaps();
}

std::string frmBoatDetail::ListBoatsOfModel() {
    if (ui->SelModel->currentIndex() < 0)
        return "I-No model of boat is selected";
    RowSet boats;
    const std::string Msg = ResultsDb.GetBoatsOfModel(ChosenId(ui->SelModel), boats);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Boats of type " + S(ui->SelModel->currentText()), "No boats found", boats,
              BoatWithSailNo);
    return Msg;
}

std::string frmBoatDetail::ListSeriesEntered() {
    if (ui->SelBoat->currentIndex() < 0)
        return "I-No boat is selected";
    RowSet series;
    const std::string Msg = ResultsDb.GetSeriesForBoat(BoatId, series);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Series entered by " + S(ui->SelBoat->currentText()), "No entries found", series,
              [](const RowSet& rows, std::size_t row) {
                  return SeriesWithYear(rows(clResults::SeriesEnteredCol::Title, row),
                                        rows(clResults::SeriesEnteredCol::FirstRaceDate, row));
              });
    return Msg;
}

}  // namespace tb
