#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb {

namespace {

// Columns of the row sets the exports read.
constexpr std::size_t kListId = 0;
constexpr std::size_t kPersonFirstname = 1, kPersonLastname = 2, kPersonClubMember = 12,
                      kPersonColumns = 14;
constexpr std::size_t kModelName = 0, kModelLOA = 1, kModelDraft = 2;
constexpr std::size_t kBoatName = 1, kBoatFullSailNo = 3, kBoatModel = 2, kBoatOwner = 3;
constexpr std::size_t kHandicapType = 1, kHandicapTcf = 2, kHandicapFrom = 3, kHandicapExpires = 4;
constexpr std::size_t kClassId = 0, kClassStarted = 7, kClassName = 8;
constexpr std::size_t kResultClass = 1, kResultBoat = 2, kResultSailNo = 3, kResultHelm = 4,
                      kResultTcf = 5, kResultFinished = 6, kResultElapsed = 7, kResultCorrected = 8,
                      kResultPoints = 9, kResultStatus = 10, kResultPos = 11, kResultNotes = 12,
                      kResultPenaltyMins = 13, kResultPenaltyPercent = 14,
                      kResultPenaltyPlaces = 15;
constexpr std::size_t kStandingClassName = 1, kStandingBoatId = 2, kStandingBoat = 3,
                      kStandingSailNo = 4, kStandingRaceDate = 5, kStandingRaceName = 6,
                      kStandingPoints = 7, kStandingTotal = 8, kStandingPos = 9;

// The entrants each export covers: a race's results every boat that raced, the standings the
// series entrants.
constexpr short kAllEntrants = 2;
constexpr short kSeriesEntrants = 0;

std::vector<std::string> ColumnNames(CsvKind kind) {
    switch (kind) {
        case CsvKind::Boats:
            return {"Boat", "Sail No", "Model", "Owner"};
        case CsvKind::Handicaps:
            return {"Sail No", "Handicap type", "TCF", "Effective from", "Expires"};
        case CsvKind::Results:
            return {"Class",         "Position", "Boat",   "Sail No",         "Helm",
                    "TCF",           "Start",    "Finish", "Elapsed",         "Corrected",
                    "Points",        "Status",   "Notes",  "Penalty minutes", "Penalty percent",
                    "Penalty places"};
        default: {
            std::vector<std::string> names;
            for (const CsvColumn& column : ImportColumns(kind))
                names.emplace_back(column.Name);
            return names;
        }
    }
}

std::string Cell(const Value& v) {
    return ToText(v);
}

// "Last, First", as the boat import reads an owner back.
std::string OwnerName(clResults& db, const Value& owner, std::string& Msg) {
    if (owner.IsNull() || owner.AsInt() == 0)
        return {};
    RowSet person;
    Msg = db.GetPersonDetails(static_cast<int>(owner.AsInt()), person);
    if (!Msg.empty())
        return {};
    return person(kPersonLastname, 0).ToText() + ", " + person(kPersonFirstname, 0).ToText();
}

std::string Register(clResults& db, CsvKind kind, std::string& csv) {
    RowSet list;
    std::string Msg = kind == CsvKind::People   ? db.GetPeople(list)
                      : kind == CsvKind::Models ? db.GetModels(list)
                                                : db.GetBoats(list);
    for (std::size_t r = 0; Msg.empty() && r < list.Rows(); ++r) {
        const int id = static_cast<int>(list(kListId, r).AsInt());
        RowSet detail;
        if (kind == CsvKind::People) {
            Msg = db.GetPersonDetails(id, detail);
            std::vector<std::string> fields;
            for (std::size_t c = 0; Msg.empty() && c < kPersonColumns; ++c) {
                fields.push_back(c == kPersonClubMember ? (detail(c, 0).AsBool() ? "Yes" : "No")
                                                        : Cell(detail(c, 0)));
            }
            csv += Msg.empty() ? CsvLine(fields) : "";
        } else if (kind == CsvKind::Models) {
            Msg = db.GetModelDetails(id, detail);
            if (Msg.empty())
                csv += CsvLine({Cell(detail(kModelName, 0)), Cell(detail(kModelLOA, 0)),
                                Cell(detail(kModelDraft, 0))});
        } else if (kind == CsvKind::Boats) {
            Msg = db.GetBoatDetails(id, detail);
            const std::string owner = Msg.empty() ? OwnerName(db, detail(kBoatOwner, 0), Msg) : "";
            if (Msg.empty())
                csv += CsvLine({Cell(list(kBoatName, r)), Cell(list(kBoatFullSailNo, r)),
                                Cell(list(kBoatModel, r)), owner});
        } else {
            Msg = db.GetHandicaps(id, detail);
            for (std::size_t h = 0; Msg.empty() && h < detail.Rows(); ++h) {
                csv += CsvLine({Cell(list(kBoatFullSailNo, r)), Cell(detail(kHandicapType, h)),
                                Cell(detail(kHandicapTcf, h)),
                                Format(detail(kHandicapFrom, h), "dd/mm/yyyy"),
                                Format(detail(kHandicapExpires, h), "dd/mm/yyyy")});
            }
        }
    }
    return Msg;
}

std::string RaceResultsCsv(clResults& db, int raceId, std::string& csv) {
    RowSet problems, classes, boats;
    std::string Msg = db.ComputeResultTimes(raceId, problems);
    if (Msg.empty())
        Msg = db.ComputePoints(raceId, kAllEntrants);
    if (Msg.empty())
        Msg = db.GetRaceResults(raceId, kAllEntrants, classes, boats);
    std::map<long long, std::size_t> classRow;
    for (std::size_t c = 0; Msg.empty() && c < classes.Rows(); ++c)
        classRow[classes(kClassId, c).AsInt()] = c;
    for (std::size_t r = 0; Msg.empty() && r < boats.Rows(); ++r) {
        const std::size_t c = classRow[boats(kResultClass, r).AsInt()];
        csv +=
            CsvLine({Cell(classes(kClassName, c)), Cell(boats(kResultPos, r)),
                     Cell(boats(kResultBoat, r)), Cell(boats(kResultSailNo, r)),
                     Cell(boats(kResultHelm, r)), Format(boats(kResultTcf, r), "0.000"),
                     Cell(classes(kClassStarted, c)), Cell(boats(kResultFinished, r)),
                     Cell(boats(kResultElapsed, r)), Cell(boats(kResultCorrected, r)),
                     Cell(boats(kResultPoints, r)), Cell(boats(kResultStatus, r)),
                     Cell(boats(kResultNotes, r)), Cell(boats(kResultPenaltyMins, r)),
                     Cell(boats(kResultPenaltyPercent, r)), Cell(boats(kResultPenaltyPlaces, r))});
    }
    return Msg;
}

// Totals carry a tiny tie-break fraction: within 0.1 of a whole number they read as that
// number, as in the series report.
std::string Total(double total) {
    const double whole = RoundHalfEven(total);
    return std::fabs(total - whole) > 0.1 ? FormatNumber(total, "0.0") : NumberToText(whole);
}

// One line per boat: its class, position, name and sail number, its points in each race of the
// series up to the race (a discard marked "*"), and its total.
std::string StandingsCsv(clResults& db, int raceId, std::string& csv) {
    RowSet problems, discards, rows;
    std::string Msg = db.ComputeResultTimes(raceId, problems);
    if (Msg.empty())
        Msg = db.ComputePoints(raceId, kSeriesEntrants);
    if (Msg.empty())
        Msg = db.ComputeSeriesPoints(raceId, kSeriesEntrants, discards);
    if (Msg.empty())
        Msg = db.GetCumulativeResults(raceId, kSeriesEntrants, rows);
    if (!Msg.empty())
        return Msg;
    using Race = std::tuple<DateTime, std::string>;
    std::set<Race> races;
    for (std::size_t r = 0; r < rows.Rows(); ++r)
        races.emplace(rows(kStandingRaceDate, r).AsDate(), rows(kStandingRaceName, r).ToText());
    std::vector<std::string> header = {"Class", "Position", "Boat", "Sail No"};
    for (const auto& [date, name] : races)
        header.push_back(name);
    header.emplace_back("Total");
    csv += CsvLine(header);
    std::vector<std::string> line;
    for (std::size_t r = 0; r < rows.Rows(); ++r) {
        const bool firstOfBoat = r == 0 || rows(kStandingBoatId, r) != rows(kStandingBoatId, r - 1);
        if (firstOfBoat) {
            line = {Cell(rows(kStandingClassName, r)), Cell(rows(kStandingPos, r)),
                    Cell(rows(kStandingBoat, r)), Cell(rows(kStandingSailNo, r))};
            line.resize(header.size());
            line.back() = Total(rows(kStandingTotal, r).AsDouble());
        }
        const Race race(rows(kStandingRaceDate, r).AsDate(), rows(kStandingRaceName, r).ToText());
        line[4 + static_cast<std::size_t>(std::distance(races.begin(), races.find(race)))] =
            Cell(rows(kStandingPoints, r));
        const bool lastOfBoat =
            r + 1 == rows.Rows() || rows(kStandingBoatId, r + 1) != rows(kStandingBoatId, r);
        if (lastOfBoat)
            csv += CsvLine(line);
    }
    return Msg;
}

}  // namespace

std::string clResults::ExportCsv(CsvKind Kind, int RaceId, std::string& Csv) {
    std::string csv(kUtf8Bom);
    std::string Msg;
    if (Kind == CsvKind::Standings) {
        Msg = StandingsCsv(*this, RaceId, csv);
    } else if (Kind == CsvKind::Finishes) {
        Msg = "E-Finishes are read from a timing app, not written";
    } else {
        csv += CsvLine(ColumnNames(Kind));
        Msg = Kind == CsvKind::Results ? RaceResultsCsv(*this, RaceId, csv)
                                       : Register(*this, Kind, csv);
    }
    if (Msg.empty())
        Csv = std::move(csv);
    return Msg;
}

}  // namespace tb
