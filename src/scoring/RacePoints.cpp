#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/Conversions.h"
#include "data/ResultStatus.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"
#include "scoring/ScopeFilters.h"
#include "scoring/ScopeResults.h"

namespace tb {

namespace {

// Every query below covers this race and every earlier race of its series (S1); the scope
// filters narrow it to the entrant selection.
constexpr const char* kRacesUpToThis = R"sql(
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
)sql";

// The starts, entrants, entry lists and results in scope are read one table at a time and
// matched up here: joining them row by row in SQL cost several index searches per result.
std::string StartsInScope(const std::string& raceFilter) {
    return std::string("SELECT Start.Schedule, Start.Class, Start.Id, Start.StartTime") +
           kRacesUpToThis + "JOIN Start ON S1.Id = Start.Schedule WHERE Schedule.Id = ?1" +
           raceFilter;
}

struct StartCol {
    enum : std::size_t { Race, Class, Id, StartTime };
};

std::string EntrantClasses(const std::string& entrantFilter) {
    return "SELECT Entrant.Id, Entrant.Class FROM Schedule JOIN Entrant ON Entrant.Series = "
           "Schedule.Series WHERE Schedule.Id = ?1" +
           entrantFilter;
}

struct EntrantClassCol {
    enum : std::size_t { Id, Class };
};

std::string EntriesInScope(const std::string& raceFilter) {
    return std::string("SELECT EntryList.Schedule, EntryList.Entrant") + kRacesUpToThis +
           "JOIN EntryList ON S1.Id = EntryList.Schedule WHERE Schedule.Id = ?1" + raceFilter;
}

struct EntryCol {
    enum : std::size_t { Race, Entrant };
};

// A result without status counts as did-not-compete.
std::string ResultsInScope(const std::string& raceFilter) {
    return std::string(
               "SELECT Results.Schedule, Results.Entrant, coalesce(Results.Status, 2), "
               "Results.CorrectedTime, Results.PenaltyPoints, Results.Id, Results.Points") +
           kRacesUpToThis + "JOIN Results ON S1.Id = Results.Schedule WHERE Schedule.Id = ?1" +
           raceFilter;
}

struct ScopeResultCol {
    enum : std::size_t { Race, Entrant, Status, CorrectedTime, PenaltyPoints, Id, Points };
};

// The seven place rows first (places 1 to 7), then the status rows by status (1 to 8).
constexpr const char* kScoringRows = R"sql(
SELECT Points.Place, Points.Status, Points.Base, Points.Value, Points.MinValue
FROM Series
JOIN Schedule ON Series.Id = Schedule.Series
JOIN Points ON Series.Scoring = Points.Scoring
WHERE Schedule.Id = ?1
ORDER BY Points.Status = 9 DESC, Points.Place, Points.Status)sql";
struct ScoringRowCol {
    enum : std::size_t { Place, Status, Base, Value, MinValue };
};

constexpr const char* kStorePoints = "UPDATE Results SET Points = ?1 WHERE Id = ?2";

struct ScoringRow {
    double value = 0;
    double minValue = 0;
    long long base = 0;
};

std::vector<ScoringRow> ReadScoringRows(const RowSet& rows) {
    std::vector<ScoringRow> table;
    for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
        table.push_back({rows(ScoringRowCol::Value, r).AsDouble(),
                         rows(ScoringRowCol::MinValue, r).AsDouble(),
                         rows(ScoringRowCol::Base, r).AsInt()});
    }
    if (table.size() != 15) {
        throw RunTimeFault(9,
                           "Subscript out of range: the scoring system does not have its "
                           "fifteen rows");
    }
    return table;
}

long long CountOf(const std::unordered_map<long long, long long>& counts, long long start) {
    const auto it = counts.find(start);
    return it == counts.end() ? 0 : it->second;
}

// Status points: the group's value plus the entrants (base 0) or the starters (base 1), never
// less than the group's minimum.
double StatusPoints(const ScoringRow& row, long long entrants, long long starters) {
    const double points = row.value + static_cast<double>(row.base == 0 ? entrants : starters);
    return row.minValue > points ? row.minValue : points;
}

// The points for a finishing position moved by penalty places (positive) or redress
// (negative). A redress past first place cannot be given: the boat keeps its own position's
// points and the message says so.
double PlacePoints(const std::vector<ScoringRow>& rows, long long position, long long& adjustment,
                   std::string& Msg) {
    long long p = position + adjustment;
    if (p < 1) {
        Msg = "I-It is not possible to give redress of " + std::to_string(-adjustment) +
              " places for a boat in position " + std::to_string(position);
        adjustment = 0;
        p = position;
    }
    if (p <= 7)
        return rows[static_cast<std::size_t>(p - 1)].value;
    return rows[6].value + static_cast<double>(p - 7);
}

constexpr std::size_t kDidNotCompeteRow = 8;

long long WholeNumber(const Value& v) {
    return v.IsNull() ? 0 : v.AsInt();
}

using RaceAndKey = std::pair<long long, long long>;

struct StartInScope {
    long long id = 0;
    Value time;
};

// A result of an entrant of the selection whose class has a start in that race.
struct ScoredResult {
    const StartInScope* start = nullptr;
    std::size_t row = 0;  // in the results read
    long long status = 0;
    bool entered = false;  // on that race's entry list
};

// Start by start: finishers first by corrected time (those without a corrected time after the
// timed ones, a Null before a 0), then the others.
bool RanksBefore(const ScoredResult& a, const ScoredResult& b, const RowSet& results) {
    if (a.start->id != b.start->id)
        return a.start->id < b.start->id;
    if (ResultStatus::Finished(a.status) != ResultStatus::Finished(b.status))
        return ResultStatus::Finished(a.status);
    const Value& ca = results(ScopeResultCol::CorrectedTime, a.row);
    const Value& cb = results(ScopeResultCol::CorrectedTime, b.row);
    const bool untimedA = ca.AsDouble() == 0;
    const bool untimedB = cb.AsDouble() == 0;
    if (untimedA != untimedB)
        return untimedB;
    if (ca.IsNull() || cb.IsNull())
        return ca.IsNull() && !cb.IsNull();
    return ca.AsDouble() < cb.AsDouble();
}

}  // namespace

std::string clResults::ComputePoints(int RaceId, short Option) {
    ScopeResults scope;
    return ComputePoints(RaceId, Option, scope);
}

std::string clResults::ComputePoints(int RaceId, short Option, ScopeResults& Scope) {
    return Run("ComputePoints", Shape::Write, [&] {
        const std::string raceFilter = SubSeriesFilter(Option);
        const auto scoring = ReadScoringRows(Query(kScoringRows, {RaceId}));
        std::map<RaceAndKey, StartInScope> starts;
        const RowSet startRows = Query(StartsInScope(raceFilter), {RaceId});
        for (std::size_t r = 0; !startRows.IsEmpty() && r < startRows.Rows(); ++r) {
            starts[{startRows(StartCol::Race, r).AsInt(), startRows(StartCol::Class, r).AsInt()}] =
                {startRows(StartCol::Id, r).AsInt(), startRows(StartCol::StartTime, r)};
        }
        std::unordered_map<long long, long long> classOf;
        const RowSet entrantRows = Query(EntrantClasses(EntrantTypeFilter(Option)), {RaceId});
        for (std::size_t r = 0; !entrantRows.IsEmpty() && r < entrantRows.Rows(); ++r)
            classOf.emplace(entrantRows(EntrantClassCol::Id, r).AsInt(),
                            entrantRows(EntrantClassCol::Class, r).AsInt());
        // The start an entrant of the selection had in a race, if any.
        const auto startOf = [&](long long race, long long entrant) -> const StartInScope* {
            const auto c = classOf.find(entrant);
            if (c == classOf.end())
                return nullptr;
            const auto start = starts.find({race, c->second});
            return start == starts.end() ? nullptr : &start->second;
        };

        // Entrants: the boats on each race's entry list, start by start.
        std::vector<RaceAndKey> entries;
        std::unordered_map<long long, long long> entrants;
        const RowSet entryRows = Query(EntriesInScope(raceFilter), {RaceId});
        for (std::size_t r = 0; !entryRows.IsEmpty() && r < entryRows.Rows(); ++r) {
            const long long race = entryRows(EntryCol::Race, r).AsInt();
            const long long entrant = entryRows(EntryCol::Entrant, r).AsInt();
            entries.push_back({race, entrant});
            if (const StartInScope* start = startOf(race, entrant))
                ++entrants[start->id];
        }

        std::sort(entries.begin(), entries.end());

        // Every result in scope, whether or not the boat was on the race's entry list; those on
        // it are ranked, and starters are those of them with a status other than
        // did-not-compete.
        const RowSet results = Query(ResultsInScope(raceFilter), {RaceId});
        std::vector<ScoredResult> scored;
        std::unordered_map<long long, long long> starters;
        for (std::size_t r = 0; !results.IsEmpty() && r < results.Rows(); ++r) {
            const long long race = results(ScopeResultCol::Race, r).AsInt();
            const long long entrant = results(ScopeResultCol::Entrant, r).AsInt();
            const StartInScope* start = startOf(race, entrant);
            if (start == nullptr)
                continue;
            const long long status = results(ScopeResultCol::Status, r).AsInt();
            const bool entered =
                std::binary_search(entries.begin(), entries.end(), RaceAndKey{race, entrant});
            scored.push_back({start, r, status, entered});
            if (entered && status != ResultStatus::kDidNotCompete)
                ++starters[start->id];
        }
        std::sort(scored.begin(), scored.end(), [&](const ScoredResult& a, const ScoredResult& b) {
            return RanksBefore(a, b, results);
        });
        std::vector<std::size_t> ranking;
        for (std::size_t i = 0; i < scored.size(); ++i) {
            if (scored[i].entered)
                ranking.push_back(i);
        }
        std::string Msg;

        // Baseline: every boat of a class that started scores the did-not-compete points, every
        // boat of a class that did not start scores 0.
        std::vector<double> points(scored.size(), 0.0);
        long long currentStart = 0;
        double didNotCompete = 0;
        for (std::size_t i = 0; i < scored.size(); ++i) {
            const StartInScope& start = *scored[i].start;
            if (start.id != currentStart) {
                currentStart = start.id;
                didNotCompete =
                    StatusPoints(scoring[kDidNotCompeteRow], CountOf(entrants, start.id),
                                 CountOf(starters, start.id));
            }
            points[i] = start.time.IsNull() ? 0.0 : didNotCompete;
        }

        // Ranking, start by start.
        std::optional<bool> sharedPoints;
        currentStart = 0;
        long long place = 0;
        long long tied = 0;
        long long startEntrants = 0;
        long long startStarters = 0;
        // Reset at each start to a value no boat can have, so no tie reaches into another start.
        const double noTime = std::numeric_limits<double>::quiet_NaN();
        double lastCorrected = noTime;
        double accumulator = 0;
        for (std::size_t i = 0; i < ranking.size(); ++i) {
            const std::size_t r = ranking[i];
            const long long start = scored[r].start->id;
            const Value& startTime = scored[r].start->time;
            if (start != currentStart) {
                if (!sharedPoints && startTime.IsDate()) {
                    sharedPoints = YearOf(startTime.AsDate()) >= 2006;
                }
                place = 1;
                tied = 1;
                lastCorrected = noTime;
                currentStart = start;
                startEntrants = CountOf(entrants, start);
                startStarters = CountOf(starters, start);
            } else {
                ++place;
            }
            if (startTime.IsNull()) {
                accumulator = 0;
                continue;
            }
            const long long status = scored[r].status;
            if (!ResultStatus::Finished(status)) {
                const std::size_t row =
                    status >= 1 ? static_cast<std::size_t>(status + 6) : kDidNotCompeteRow;
                accumulator = StatusPoints(scoring[row], startEntrants, startStarters);
                points[r] = accumulator;
                continue;
            }
            const double corrected =
                results(ScopeResultCol::CorrectedTime, scored[r].row).AsDouble();
            long long adjustment =
                WholeNumber(results(ScopeResultCol::PenaltyPoints, scored[r].row));
            if (corrected != lastCorrected) {
                tied = 1;
                lastCorrected = corrected;
                long long none = 0;
                accumulator = PlacePoints(scoring, place, none, Msg);
                points[r] =
                    adjustment != 0 ? PlacePoints(scoring, place, adjustment, Msg) : accumulator;
                continue;
            }
            ++tied;
            const long long firstTiedPlace = place + 1 - tied;
            if (!sharedPoints.value_or(true)) {
                points[r] = PlacePoints(scoring, firstTiedPlace, adjustment, Msg);
                continue;
            }
            long long none = 0;
            accumulator += PlacePoints(scoring, place, none, Msg);
            // The whole tied group shares the points each time a boat joins it.
            for (long long back = 0; back < tied; ++back) {
                const std::size_t tiedRow = ranking[i - static_cast<std::size_t>(back)];
                long long own =
                    WholeNumber(results(ScopeResultCol::PenaltyPoints, scored[tiedRow].row));
                points[tiedRow] = own != 0 ? PlacePoints(scoring, firstTiedPlace, own, Msg)
                                           : accumulator / static_cast<double>(tied);
            }
        }

        // Each result whose points changed is written once, through the one prepared statement:
        // making the next report of the same race rewrites next to nothing.
        Statement& store = Prepared(kStorePoints);
        for (std::size_t i = 0; i < scored.size(); ++i) {
            const Value& stored = results(ScopeResultCol::Points, scored[i].row);
            if (!stored.IsNull() && stored.AsDouble() == points[i])
                continue;
            store.Bind(1, points[i]);
            store.Bind(
                2, static_cast<std::int64_t>(results(ScopeResultCol::Id, scored[i].row).AsInt()));
            store.Execute();
            store.Restart();
        }

        // Every result of the selection's entrants, with the points it now holds.
        std::vector<const double*> scoredPoints(results.Rows(), nullptr);
        for (std::size_t i = 0; i < scored.size(); ++i)
            scoredPoints[scored[i].row] = &points[i];
        Scope.clear();
        Scope.reserve(results.Rows());
        for (std::size_t r = 0; !results.IsEmpty() && r < results.Rows(); ++r) {
            const auto c = classOf.find(results(ScopeResultCol::Entrant, r).AsInt());
            if (c == classOf.end())
                continue;
            Scope.push_back({results(ScopeResultCol::Id, r).AsInt(),
                             results(ScopeResultCol::Race, r).AsInt(), c->first, c->second,
                             results(ScopeResultCol::Status, r).AsInt(),
                             scoredPoints[r] != nullptr ? Value(*scoredPoints[r])
                                                        : results(ScopeResultCol::Points, r)});
        }
        return Msg;
    });
}

}  // namespace tb
