#include <cmath>
#include <unordered_map>

#include "data/clResults.h"
#include "scoring/ScopeFilters.h"

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

constexpr const char* kDiscardRules = R"sql(
SELECT Schedule.Id, Discards.RacesRun, Discards.Discards
FROM Series
JOIN Schedule ON Series.Id = Schedule.Series
JOIN Discards ON Series.Discards = Discards.DiscardSystem
WHERE Schedule.Id = ?1
ORDER BY Discards.RacesRun)sql";

// Each entrant's results together, worst first; between equal points the later race first.
std::string EntrantResults(const std::string& filters) {
    return R"sql(
SELECT Entrant.Class, Results.Entrant, Results.Id, Results.Points, Results.Status
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
JOIN Results ON S1.Id = Results.Schedule
JOIN Entrant ON Results.Entrant = Entrant.Id
WHERE Schedule.Id = ?1)sql" +
           filters +
           " ORDER BY Entrant.Class, Results.Entrant, Results.Points DESC, S1.RaceDate DESC";
}

constexpr const char* kDiscard = "UPDATE Results SET Points = -Points WHERE Id = ?1";
constexpr const char* kStoreTotal = "UPDATE Entrant SET SeriesPoints = ?1 WHERE Id = ?2";

}  // namespace

std::string clResults::ComputeSeriesPoints(int RaceId, short Option, RowSet& Discards) {
    return Run("ComputeSeriesPoints", Shape::Write, [&] {
        const RowSet racesRun = Query(RacesRunPerClass(SubSeriesFilter(Option)), {RaceId});
        if (racesRun.IsEmpty())
            return std::string("I-No results were found for this race");
        const RowSet rules = Query(kDiscardRules, {RaceId});
        if (rules.IsEmpty())
            return std::string("No discard rules were found for this series");

        // The last rule a class has reached decides its discards; an empty rule never applies.
        Discards = RowSet(2, racesRun.Rows());
        std::unordered_map<long long, long long> discardsByClass;
        for (std::size_t i = 0; i < racesRun.Rows(); ++i) {
            long long discards = 0;
            for (std::size_t k = 0; k < rules.Rows(); ++k) {
                if (rules(1, k).IsNull())
                    continue;
                if (racesRun(1, i).AsInt() >= rules(1, k).AsInt()) {
                    discards = rules(2, k).IsNull() ? 0 : rules(2, k).AsInt();
                }
            }
            Discards(0, i) = Value(discards);
            Discards(1, i) = racesRun(0, i);
            discardsByClass[racesRun(0, i).IsNull() ? 0 : racesRun(0, i).AsInt()] = discards;
        }

        // Worst results first are discarded (stored negative); status 3 is never discarded and
        // uses up no discard. Each counted result takes 10^-(points+2) off the total, so that of
        // equal totals the boat with the better results ranks ahead.
        const RowSet results =
            Query(EntrantResults(SubSeriesFilter(Option) + EntrantTypeFilter(Option)), {RaceId});
        long long currentEntrant = 0;
        long long counter = 0;
        long long discards = 0;
        double total = 0;
        for (std::size_t r = 0; !results.IsEmpty() && r < results.Rows(); ++r) {
            const long long entrant = results(1, r).AsInt();
            const bool neverDiscarded = !results(4, r).IsNull() && results(4, r).AsInt() == 3;
            if (entrant != currentEntrant) {
                if (currentEntrant != 0)
                    Execute(kStoreTotal, {total, currentEntrant});
                currentEntrant = entrant;
                total = 0;
                counter = neverDiscarded ? 0 : 1;
                const auto it =
                    discardsByClass.find(results(0, r).IsNull() ? 0 : results(0, r).AsInt());
                discards = it == discardsByClass.end() ? 0 : it->second;
            } else if (!neverDiscarded) {
                ++counter;
            }
            if (!neverDiscarded && counter <= discards) {
                Execute(kDiscard, {results(2, r)});
                continue;
            }
            const double points = results(3, r).AsDouble();
            total += points - std::pow(10.0, -(points + 2));
        }
        if (currentEntrant != 0)
            Execute(kStoreTotal, {total, currentEntrant});
        return std::string();
    });
}

}  // namespace tb
