#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "data/ResultStatus.h"
#include "data/clResults.h"
#include "scoring/ScopeFilters.h"
#include "scoring/ScopeResults.h"

namespace tb {

namespace {

// Races run by each class: counted races of the series up to this one in which it has a start
// time.
std::string RacesRunPerClass(const std::string& raceFilter) {
    return R"sql(
SELECT Start.Class, sum(CASE WHEN Start.StartTime IS NULL THEN 0 ELSE 1 END) AS Qty, 0 AS Discards
FROM Schedule
JOIN Schedule AS S1 ON Schedule.Series = S1.Series AND Schedule.RaceDate >= S1.RaceDate
JOIN Start ON S1.Id = Start.Schedule
WHERE Schedule.Id = ?1)sql" +
           raceFilter + " GROUP BY Start.Class";
}

struct RacesRunCol {
    enum : std::size_t { Class, Qty, Discards };
};

constexpr const char* kDiscardRules = R"sql(
SELECT Schedule.Id, Discards.RacesRun, Discards.Discards
FROM Series
JOIN Schedule ON Series.Id = Schedule.Series
JOIN Discards ON Series.Discards = Discards.DiscardSystem
WHERE Schedule.Id = ?1
ORDER BY Discards.RacesRun)sql";
struct DiscardRuleCol {
    enum : std::size_t { Race, RacesRun, Discards };
};

// The races in scope, the latest first; races of one date in the order they were added.
std::string RacesLatestFirst(const std::string& raceFilter) {
    return R"sql(
SELECT S1.Id
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
WHERE Schedule.Id = ?1)sql" +
           raceFilter + " ORDER BY S1.RaceDate DESC, S1.Id";
}

struct LatestFirstCol {
    enum : std::size_t { Race };
};

// The results of the series' entrants in the races in scope, for the discards on their own.
std::string EntrantResults(const std::string& filters) {
    return R"sql(
SELECT Results.Id, Results.Schedule, Results.Entrant, Entrant.Class,
       coalesce(Results.Status, 2), Results.Points
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
JOIN Results ON S1.Id = Results.Schedule
JOIN Entrant ON Results.Entrant = Entrant.Id AND Entrant.Series = Schedule.Series
WHERE Schedule.Id = ?1)sql" +
           filters;
}

struct EntrantResultCol {
    enum : std::size_t { Id, Race, Entrant, Class, Status, Points };
};

constexpr const char* kDiscard = "UPDATE Results SET Points = -Points WHERE Id = ?1";
constexpr const char* kStoreTotal = "UPDATE Entrant SET SeriesPoints = ?1 WHERE Id = ?2";

// Worse points first, a missing value last of all.
bool WorsePoints(const Value& a, const Value& b) {
    if (a.IsNull() || b.IsNull())
        return !a.IsNull() && b.IsNull();
    return a.AsDouble() > b.AsDouble();
}

}  // namespace

std::string clResults::ComputeSeriesPoints(int RaceId, short Option, RowSet& Discards) {
    return Run("ComputeSeriesPoints", Shape::Write, [&] {
        const RowSet rows =
            Query(EntrantResults(SubSeriesFilter(Option) + EntrantTypeFilter(Option)), {RaceId});
        ScopeResults scope;
        for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
            scope.push_back(
                {rows(EntrantResultCol::Id, r).AsInt(), rows(EntrantResultCol::Race, r).AsInt(),
                 rows(EntrantResultCol::Entrant, r).AsInt(),
                 rows(EntrantResultCol::Class, r).IsNull()
                     ? 0
                     : rows(EntrantResultCol::Class, r).AsInt(),
                 rows(EntrantResultCol::Status, r).AsInt(), rows(EntrantResultCol::Points, r)});
        }
        return MarkDiscards(RaceId, Option, scope, Discards);
    });
}

std::string clResults::ComputeSeriesPoints(int RaceId, short Option, ScopeResults& Scope,
                                           RowSet& Discards) {
    return Run("ComputeSeriesPoints", Shape::Write,
               [&] { return MarkDiscards(RaceId, Option, Scope, Discards); });
}

std::string clResults::MarkDiscards(int RaceId, short Option, ScopeResults& Scope,
                                    RowSet& Discards) {
    const RowSet racesRun = Query(RacesRunPerClass(SubSeriesFilter(Option)), {RaceId});
    if (racesRun.IsEmpty())
        return std::string("I-No results were found for this race");
    const RowSet rules = Query(kDiscardRules, {RaceId});
    if (rules.IsEmpty())
        return std::string("No discard rules were found for this series");

    // The last rule a class has reached decides its discards; an empty rule never applies.
    Discards = RowSet(DiscardsCol::Count, racesRun.Rows());
    std::unordered_map<long long, long long> discardsByClass;
    for (std::size_t i = 0; i < racesRun.Rows(); ++i) {
        long long discards = 0;
        for (std::size_t k = 0; k < rules.Rows(); ++k) {
            if (rules(DiscardRuleCol::RacesRun, k).IsNull())
                continue;
            if (racesRun(RacesRunCol::Qty, i).AsInt() >=
                rules(DiscardRuleCol::RacesRun, k).AsInt()) {
                discards = rules(DiscardRuleCol::Discards, k).IsNull()
                               ? 0
                               : rules(DiscardRuleCol::Discards, k).AsInt();
            }
        }
        Discards(DiscardsCol::Discards, i) = Value(discards);
        Discards(DiscardsCol::ClassId, i) = racesRun(RacesRunCol::Class, i);
        discardsByClass[racesRun(RacesRunCol::Class, i).IsNull()
                            ? 0
                            : racesRun(RacesRunCol::Class, i).AsInt()] = discards;
    }

    // Each entrant's results together, worst first; between equal points the later race first.
    const RowSet races = Query(RacesLatestFirst(SubSeriesFilter(Option)), {RaceId});
    std::unordered_map<long long, std::size_t> latestFirst;
    for (std::size_t r = 0; !races.IsEmpty() && r < races.Rows(); ++r)
        latestFirst.emplace(races(LatestFirstCol::Race, r).AsInt(), r);
    struct Ranked {
        ScopeResult* result;
        std::size_t raceRank;
    };
    std::vector<Ranked> order;
    order.reserve(Scope.size());
    for (ScopeResult& result : Scope) {
        const auto race = latestFirst.find(result.race);
        if (race != latestFirst.end())
            order.push_back({&result, race->second});
    }
    std::sort(order.begin(), order.end(), [](const Ranked& a, const Ranked& b) {
        if (a.result->entrant != b.result->entrant)
            return a.result->entrant < b.result->entrant;
        if (WorsePoints(a.result->points, b.result->points))
            return true;
        if (WorsePoints(b.result->points, a.result->points))
            return false;
        return a.raceRank < b.raceRank;
    });

    // Worst results first are discarded (stored negative); status 3 is never discarded and uses
    // up no discard. Each counted result takes 10^-(points+2) off the total, so that of equal
    // totals the boat with the better results ranks ahead.
    long long currentEntrant = 0;
    long long counter = 0;
    long long discards = 0;
    double total = 0;
    for (const Ranked& ranked : order) {
        ScopeResult* result = ranked.result;
        const bool neverDiscarded = result->status == ResultStatus::kNeverDiscarded;
        if (result->entrant != currentEntrant) {
            if (currentEntrant != 0)
                Execute(kStoreTotal, {total, currentEntrant});
            currentEntrant = result->entrant;
            total = 0;
            counter = neverDiscarded ? 0 : 1;
            const auto it = discardsByClass.find(result->classId);
            discards = it == discardsByClass.end() ? 0 : it->second;
        } else if (!neverDiscarded) {
            ++counter;
        }
        if (!neverDiscarded && counter <= discards) {
            Execute(kDiscard, {result->id});
            if (!result->points.IsNull())
                result->points = Value(-result->points.AsDouble());
            continue;
        }
        const double points = result->points.AsDouble();
        total += points - std::pow(10.0, -(points + 2));
    }
    if (currentEntrant != 0)
        Execute(kStoreTotal, {total, currentEntrant});
    return std::string();
}

}  // namespace tb
