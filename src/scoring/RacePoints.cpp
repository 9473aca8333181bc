#include <cmath>
#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

#include <SQLiteCpp/Statement.h>

#include "data/Conversions.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"
#include "scoring/ScopeFilters.h"

namespace tb {

namespace {

// Every query below covers this race and every earlier race of its series (S1); the scope
// filters narrow it to the entrant selection.
constexpr const char* kRacesUpToThis = R"sql(
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
)sql";

std::string EntrantsPerStart(const std::string& filters) {
    return std::string("SELECT Start.Id, count(EntryList.Entrant)") + kRacesUpToThis + R"sql(
JOIN EntryList ON S1.Id = EntryList.Schedule
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Start ON Entrant.Class = Start.Class AND S1.Id = Start.Schedule
WHERE Schedule.Id = ?1)sql" +
           filters + " GROUP BY S1.Id, Start.Id";
}

// The seven place rows first (places 1 to 7), then the status rows by status (1 to 8).
constexpr const char* kScoringRows = R"sql(
SELECT Points.Place, Points.Status, Points.Base, Points.Value, Points.MinValue
FROM Series
JOIN Schedule ON Series.Id = Schedule.Series
JOIN Points ON Series.Scoring = Points.Scoring
WHERE Schedule.Id = ?1
ORDER BY Points.Status = 9 DESC, Points.Place, Points.Status)sql";

// Every result in scope, whether or not the boat was on the race's entry list (the last column
// tells), start by start: finishers first by corrected time (those without a corrected time
// after the timed ones), then the others. A result without status counts as did-not-compete.
std::string ResultRows(const std::string& filters) {
    return std::string(
               "SELECT Start.Id, ifnull(Results.Status, 2), Results.CorrectedTime, "
               "Results.PenaltyPoints, Start.StartTime, Results.Id, "
               "EntryList.Entrant IS NOT NULL") +
           kRacesUpToThis + R"sql(
JOIN Start ON S1.Id = Start.Schedule
JOIN Entrant ON Start.Class = Entrant.Class
JOIN Results ON Entrant.Id = Results.Entrant AND S1.Id = Results.Schedule
LEFT JOIN EntryList ON Entrant.Id = EntryList.Entrant AND S1.Id = EntryList.Schedule
WHERE Schedule.Id = ?1)sql" +
           filters +
           R"sql( ORDER BY Start.Id, ifnull(Results.Status, 2) > 8 DESC,
ifnull(Results.CorrectedTime, 0) = 0, Results.CorrectedTime)sql";
}

constexpr const char* kStorePoints = "UPDATE Results SET Points = ?1 WHERE Id = ?2";

struct ScoringRow {
    double value = 0;
    double minValue = 0;
    long long base = 0;
};

std::vector<ScoringRow> ReadScoringRows(const RowSet& rows) {
    std::vector<ScoringRow> table;
    for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
        table.push_back({rows(3, r).AsDouble(), rows(4, r).AsDouble(), rows(2, r).AsInt()});
    }
    if (table.size() != 15) {
        throw RunTimeFault(9,
                           "Subscript out of range: the scoring system does not have its "
                           "fifteen rows");
    }
    return table;
}

std::unordered_map<long long, long long> CountsByStart(const RowSet& rows) {
    std::unordered_map<long long, long long> counts;
    for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
        counts.emplace(rows(0, r).AsInt(), rows(1, r).AsInt());
    }
    return counts;
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

}  // namespace

std::string clResults::ComputePoints(int RaceId, short Option) {
    return Run("ComputePoints", Shape::Write, [&] {
        const std::string filters = SubSeriesFilter(Option) + EntrantTypeFilter(Option);
        const auto entrants = CountsByStart(Query(EntrantsPerStart(filters), {RaceId}));
        const auto scoring = ReadScoringRows(Query(kScoringRows, {RaceId}));
        const RowSet results = Query(ResultRows(filters), {RaceId});
        const std::size_t rows = results.IsEmpty() ? 0 : results.Rows();
        std::string Msg;

        // The boats on each race's entry list are ranked; starters are those of them with a
        // status other than did-not-compete.
        std::vector<std::size_t> ranking;
        std::unordered_map<long long, long long> starters;
        for (std::size_t r = 0; r < rows; ++r) {
            if (results(6, r).AsInt() == 0)
                continue;
            ranking.push_back(r);
            if (results(1, r).AsInt() != 2)
                ++starters[results(0, r).AsInt()];
        }

        // Baseline: every boat of a class that started scores the did-not-compete points, every
        // boat of a class that did not start scores 0.
        std::vector<double> points(rows, 0.0);
        long long currentStart = 0;
        double didNotCompete = 0;
        for (std::size_t r = 0; r < rows; ++r) {
            const long long start = results(0, r).AsInt();
            if (start != currentStart) {
                currentStart = start;
                didNotCompete = StatusPoints(scoring[kDidNotCompeteRow], CountOf(entrants, start),
                                             CountOf(starters, start));
            }
            points[r] = results(4, r).IsNull() ? 0.0 : didNotCompete;
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
            const long long start = results(0, r).AsInt();
            const Value& startTime = results(4, r);
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
            const long long status = results(1, r).AsInt();
            if (status <= 8) {
                const std::size_t row =
                    status >= 1 ? static_cast<std::size_t>(status + 6) : kDidNotCompeteRow;
                accumulator = StatusPoints(scoring[row], startEntrants, startStarters);
                points[r] = accumulator;
                continue;
            }
            const double corrected = results(2, r).AsDouble();
            long long adjustment = WholeNumber(results(3, r));
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
                long long own = WholeNumber(results(3, tiedRow));
                points[tiedRow] = own != 0 ? PlacePoints(scoring, firstTiedPlace, own, Msg)
                                           : accumulator / static_cast<double>(tied);
            }
        }

        // Each result is written once, through the one prepared statement.
        SQLite::Statement& store = Prepared(kStorePoints);
        for (std::size_t r = 0; r < rows; ++r) {
            store.bind(1, points[r]);
            store.bind(2, static_cast<int64_t>(results(5, r).AsInt()));
            store.exec();
            store.reset();
        }
        return Msg;
    });
}

}  // namespace tb
