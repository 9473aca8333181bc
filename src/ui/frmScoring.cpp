#include "ui/frmScoring.h"

#include "ui_frmScoring.h"

#include <QEvent>
#include <QSignalBlocker>
#include <vector>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"
#include "ui/EditorControls.h"
#include "ui/HelpFile.h"
#include "ui/UsageLists.h"

namespace tb {

namespace {

// Rows of a scoring system's detail: the eight status rows by status code, then places 1 to 7.
constexpr std::size_t kFirstPlaceRow = 8;
constexpr std::size_t kDnfRow = 3;  // the DNF/DNS/OCS/RAF group, as status 4
constexpr std::size_t kDsqRow = 0;  // the BFD/DNE/DSQ group, as status 1
constexpr std::size_t kDncRow = 1;  // the DNC group, as status 2
constexpr int kFirstMinimumBox = 10;

// The cell of a detail row, Null when the system has fewer rows than the layout.
Value Cell(const RowSet& rows, std::size_t column, std::size_t row) {
    return row < rows.Rows() ? rows(column, row) : Value();
}

// Fills a list of systems and chooses the first, without running its selection handling.
void FillSystems(QComboBox* list, const RowSet& systems) {
    const QSignalBlocker block(list);
    list->clear();
    for (std::size_t row = 0; row < systems.Rows(); ++row)
        list->addItem(FieldText(systems(clResults::SystemsCol::Description, row)),
                      static_cast<int>(systems(clResults::SystemsCol::Id, row).AsInt()));
    list->setCurrentIndex(list->count() > 0 ? 0 : -1);
}

std::string SeriesLine(const RowSet& series, std::size_t row) {
    return SeriesWithYear(series(clResults::SeriesUsingCol::Title, row),
                          series(clResults::SeriesUsingCol::SeriesDate, row));
}

}  // namespace

frmScoring::frmScoring(clResults& ResultsDb, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmScoring>()), ResultsDb(ResultsDb) {
    ui->setupUi(this);
    SetHelpOnActivation(this, "Scoring");
    for (std::size_t k = 0; k < tValue.size(); ++k)
        tValue[k] = findChild<QLineEdit*>(QString("tValue_%1").arg(k));
    for (std::size_t i = 0; i < tRun.size(); ++i) {
        tRun[i] = findChild<QLineEdit*>(QString("tRun_%1").arg(i));
        tDiscards[i] = findChild<QLineEdit*>(QString("tDiscards_%1").arg(i));
    }
    KeepTypedName(ui->SelScoring);
    KeepTypedName(ui->SelDiscards);
    for (QComboBox* base : {ui->SelBase, ui->SelBaseDSQ, ui->SelbaseDNC}) {
        base->addItem("No of entrants", 0);
        base->addItem("No of starters", 1);
    }

    connect(ui->SelScoring, &QComboBox::activated, this,
            [this] { RunTrapped("Scoring.SelScoring", [this] { return ShowScoring(); }); });
    connect(ui->SelDiscards, &QComboBox::activated, this,
            [this] { RunTrapped("Scoring.SelDiscards", [this] { return ShowDiscards(); }); });
    connect(ui->cmdAddScoring, &QPushButton::clicked, this, [this] {
        ui->SelScoring->setCurrentIndex(-1);
        ui->SelScoring->setFocus();
        ScoringId = 0;
    });
    connect(ui->cmdAddDiscard, &QPushButton::clicked, this, [this] {
        ui->SelDiscards->setCurrentIndex(-1);
        ui->SelDiscards->setFocus();
        DiscardId = 0;
    });
    connect(ui->cmdOK, &QPushButton::clicked, this,
            [this] { RunTrapped("Scoring.cmdOK", [this] { return Save(); }); });
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->cmdRemove, &QPushButton::clicked, this,
            [this] { RunTrapped("Scoring.cmdRemove", [this] { return RemoveScoring(); }); });
    connect(ui->cmdRemoveDis, &QPushButton::clicked, this,
            [this] { RunTrapped("Scoring.cmdRemoveDis", [this] { return RemoveDiscardRule(); }); });
    connect(ui->ListSeries, &QLabel::linkActivated, this, [this] {
        RunTrapped("Scoring.ListSeries", [this] { return ListSeriesUsingScoring(); });
    });
    connect(ui->Label11, &QLabel::linkActivated, this, [this] {
        RunTrapped("Scoring.Label11", [this] { return ListSeriesUsingDiscardRule(); });
    });

    RunTrapped("Scoring.Load", [this] { return Load(); });
}

frmScoring::~frmScoring() = default;

std::string frmScoring::Load() {
    std::string Msg = ListScoring();
    if (Msg.empty())
        Msg = ListDiscards();
    return Msg;
}

std::string frmScoring::ListScoring() {
    RowSet systems;
    const std::string Msg = ResultsDb.GetScoring(systems);
    if (!Msg.empty())
        return Msg;
    FillSystems(ui->SelScoring, systems);
    return ShowScoring();
}

std::string frmScoring::ListDiscards() {
    RowSet systems;
    const std::string Msg = ResultsDb.GetDiscards(systems);
    if (!Msg.empty())
        return Msg;
    FillSystems(ui->SelDiscards, systems);
    return ShowDiscards();
}

// With no system chosen (a new one is being named) the boxes keep what they show, so the system
// shown last serves as the new one's template.
std::string frmScoring::ShowScoring() {
    if (ui->SelScoring->currentIndex() < 0)
        return {};
    ScoringId = ChosenId(ui->SelScoring);
    RowSet points;
    const std::string Msg = ResultsDb.GetScoringDetail(ScoringId, points);
    if (!Msg.empty())
        return Msg;
    for (std::size_t k = 0; k < 7; ++k)
        tValue[k]->setText(
            FieldText(Cell(points, clResults::ScoringDetailCol::Value, kFirstPlaceRow + k)));
    const std::array<std::size_t, 3> groupRows = {kDnfRow, kDsqRow, kDncRow};
    const std::array<QComboBox*, 3> bases = {ui->SelBase, ui->SelBaseDSQ, ui->SelbaseDNC};
    for (std::size_t g = 0; g < groupRows.size(); ++g) {
        const std::size_t row = groupRows[g];
        tValue[7 + g]->setText(FieldText(Cell(points, clResults::ScoringDetailCol::Value, row)));
        const Value minimum = Cell(points, clResults::ScoringDetailCol::MinValue, row);
        tValue[kFirstMinimumBox + g]->setText(minimum.AsDouble() == 0 ? QString()
                                                                      : FieldText(minimum));
        bases[g]->setCurrentIndex(
            static_cast<int>(Cell(points, clResults::ScoringDetailCol::Base, row).AsInt()));
    }
    return Msg;
}

std::string frmScoring::ShowDiscards() {
    if (ui->SelDiscards->currentIndex() < 0)
        return {};
    DiscardId = ChosenId(ui->SelDiscards);
    RowSet lines;
    const std::string Msg = ResultsDb.GetDiscardDetail(DiscardId, lines);
    if (!Msg.empty())
        return Msg;
    for (std::size_t i = 0; i < tRun.size(); ++i) {
        tRun[i]->setText(FieldText(Cell(lines, clResults::DiscardDetailCol::RacesRun, i)));
        tDiscards[i]->setText(FieldText(Cell(lines, clResults::DiscardDetailCol::Discards, i)));
    }
    return Msg;
}

std::string frmScoring::Save() {
    ui->SelScoring->setEditText(ui->SelScoring->currentText().trimmed());
    ui->SelDiscards->setEditText(ui->SelDiscards->currentText().trimmed());
    const std::string scoringName = S(ui->SelScoring->currentText());
    const std::string discardName = S(ui->SelDiscards->currentText());

    std::string Msg;
    QWidget* focus = nullptr;
    const auto fail = [&](const char* message, QWidget* field) {
        Msg = message;
        focus = field;
    };
    if (scoringName.empty() && !HasChosenItem(ui->SelScoring))
        fail("E-Please specify a name for the scoring system", ui->SelScoring);

    clResults::ScoringValues values;
    for (std::size_t k = 0; k < values.size(); ++k) {
        values[k] = S(tValue[k]->text().trimmed());
        if (k >= kFirstMinimumBox && values[k].empty())
            values[k] = "0";
        if (Msg.empty() && !IsNumeric(values[k]))
            fail("E-Please specify a valid number of points", tValue[k]);
    }
    if (discardName.empty() && !HasChosenItem(ui->SelDiscards))
        fail("E-Please specify a name for the discard system", ui->SelDiscards);

    clResults::DiscardLines discards;
    for (std::size_t i = 0; i < tRun.size(); ++i) {
        discards[0][i] = S(tRun[i]->text().trimmed());
        discards[1][i] = S(tDiscards[i]->text().trimmed());
        if (Msg.empty() && !discards[0][i].empty() && !IsNumeric(discards[0][i]))
            fail("E-Please specify a valid number of races", tRun[i]);
        if (Msg.empty() && !discards[1][i].empty() && !IsNumeric(discards[1][i]))
            fail("E-Please specify a valid number of dicards", tDiscards[i]);
    }
    if (focus != nullptr)
        focus->setFocus();
    if (Msg.empty())
        Msg = ResultsDb.PutScoring(ScoringId, scoringName, DiscardId, discardName,
                                   static_cast<short>(ChosenId(ui->SelBase)),
                                   static_cast<short>(ChosenId(ui->SelBaseDSQ)),
                                   static_cast<short>(ChosenId(ui->SelbaseDNC)), values, discards);
    if (Msg.empty())
        accept();
    return Msg;
}

std::string frmScoring::RemoveScoring() {
    if (ui->SelScoring->currentIndex() < 0)
        return "I-No scoring system is selected";
    const std::string name = S(ui->SelScoring->itemText(ui->SelScoring->currentIndex()));
    RowSet series;
    std::string Msg = ResultsDb.GetSeriesUsingScoring(ChosenId(ui->SelScoring), series);
    if (!Msg.empty())
        return Msg;
    if (!series.IsEmpty())
        return RemovalRefused("scoring system " + name + " is in use");
    if (!AskYesNo("Remove scoring system " + name + "?"))
        return {};
    Msg = ResultsDb.RemoveScoring(ChosenId(ui->SelScoring));
    if (Msg.empty())
        Msg = ListScoring();
    return Msg;
}

std::string frmScoring::RemoveDiscardRule() {
    if (ui->SelDiscards->currentIndex() < 0)
        return "I-No discard rule is selected";
    const std::string name = S(ui->SelDiscards->itemText(ui->SelDiscards->currentIndex()));
    RowSet series;
    std::string Msg = ResultsDb.GetSeriesUsingDiscard(ChosenId(ui->SelDiscards), series);
    if (!Msg.empty())
        return Msg;
    if (!series.IsEmpty())
        return RemovalRefused("discard rule " + name + " is in use");
    if (!AskYesNo("Remove discard rule " + name + "?"))
        return {};
    Msg = ResultsDb.RemoveDiscardSystem(ChosenId(ui->SelDiscards));
    if (Msg.empty())
        Msg = ListDiscards();
    return Msg;
}

std::string frmScoring::ListSeriesUsingScoring() {
    if (ui->SelScoring->currentIndex() < 0)
        return "I-No scoring system is selected";
    RowSet series;
    const std::string Msg = ResultsDb.GetSeriesUsingScoring(ChosenId(ui->SelScoring), series);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Scoring system: " + S(ui->SelScoring->itemText(ui->SelScoring->currentIndex())),
              "This scoring system is not used in any series", series, SeriesLine,
              "This scoring system is used in " + std::to_string(series.Rows()) + " series:");
    return Msg;
}

std::string frmScoring::ListSeriesUsingDiscardRule() {
    if (ui->SelDiscards->currentIndex() < 0)
        return "I-No discard rule is selected";
    RowSet series;
    const std::string Msg = ResultsDb.GetSeriesUsingDiscard(ChosenId(ui->SelDiscards), series);
    if (!Msg.empty())
        return Msg;
    ShowUsage("Discard rule: " + S(ui->SelDiscards->itemText(ui->SelDiscards->currentIndex())),
              "This discard rule is not used in any series", series, SeriesLine,
              "This discard rule is used in " + std::to_string(series.Rows()) + " series:");
    return Msg;
}

}  // namespace tb
