#include <string>
#include <unordered_set>

#include "data/clResults.h"

namespace tb {

namespace {

// Per entered boat, its handicaps of its class's type valid on the race date; boats with none
// are added with a count of 0.
constexpr const char* kHandicapCheck = R"sql(
SELECT Entrant.Boat, Boat.BoatName AS BoatName, count(*) AS Qty, HandicapType.Description,
       Schedule.RaceDate AS RaceDate, max(Entrant.Class)
FROM EntryList
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Schedule ON Schedule.Id = EntryList.Schedule
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN Class ON Class.Id = Entrant.Class
JOIN Handicap ON Handicap.Boat = Entrant.Boat AND Handicap.HandicapType = Class.HandicapType
JOIN HandicapType ON HandicapType.Id = Class.HandicapType
WHERE EntryList.Schedule = ?1 AND Handicap.EffectiveFrom <= Schedule.RaceDate
  AND (Handicap.Expires IS NULL OR Handicap.Expires >= Schedule.RaceDate)
GROUP BY Entrant.Boat, Boat.BoatName, HandicapType.Description, Schedule.RaceDate
UNION ALL
SELECT Entrant.Boat, Boat.BoatName, 0, HandicapType.Description, Schedule.RaceDate, 1
FROM EntryList
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Schedule ON Schedule.Id = EntryList.Schedule
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN Class ON Class.Id = Entrant.Class
JOIN HandicapType ON HandicapType.Id = Class.HandicapType
WHERE EntryList.Schedule = ?1
  AND NOT EXISTS (SELECT 1 FROM Handicap
                  WHERE Handicap.HandicapType = Class.HandicapType AND Handicap.Boat = Entrant.Boat
                    AND Handicap.EffectiveFrom <= Schedule.RaceDate
                    AND (Handicap.Expires IS NULL OR Handicap.Expires >= Schedule.RaceDate))
ORDER BY BoatName, RaceDate)sql";

// A did-not-compete result for every entrant of the series in every race up to this one.
constexpr const char* kMissingResults = R"sql(
INSERT INTO Results (Schedule, Entrant, Status)
SELECT S1.Id, Entrant.Id, 2
FROM Schedule
JOIN Entrant ON Schedule.Series = Entrant.Series
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
WHERE Schedule.Id = ?1
  AND NOT EXISTS (SELECT 1 FROM Results
                  WHERE Results.Schedule = S1.Id AND Results.Entrant = Entrant.Id))sql";

// What the check for missing results reads: the series' entrants, the races up to this one and
// the entrant of every result of those races (from the race-and-entrant index alone).
constexpr const char* kSeriesEntrants = R"sql(
SELECT Entrant.Id FROM Schedule JOIN Entrant ON Schedule.Series = Entrant.Series
WHERE Schedule.Id = ?1)sql";

constexpr const char* kRacesUpToThis = R"sql(
SELECT count(*) FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
WHERE Schedule.Id = ?1)sql";

constexpr const char* kResultEntrants = R"sql(
SELECT Results.Entrant FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
JOIN Results ON S1.Id = Results.Schedule
WHERE Schedule.Id = ?1)sql";

constexpr const char* kDefaultHandicap = "UPDATE Results SET Handicap = 9.999 WHERE Schedule = ?1";

// The valid handicap of each boat on the race's entry list (a Null start date counts as valid
// here). Of several, the latest EffectiveFrom wins, then the highest Id.
constexpr const char* kValidHandicap = R"sql(
UPDATE Results SET Handicap = Chosen.Tcf
FROM (SELECT EntryList.Entrant AS Entrant,
             (SELECT Handicap.Handicap FROM Handicap
              WHERE Handicap.Boat = Entrant.Boat AND Handicap.HandicapType = Class.HandicapType
                AND (Handicap.EffectiveFrom <= Schedule.RaceDate OR Handicap.EffectiveFrom IS NULL)
                AND (Handicap.Expires >= Schedule.RaceDate OR Handicap.Expires IS NULL)
              ORDER BY Handicap.EffectiveFrom DESC, Handicap.Id DESC LIMIT 1) AS Tcf
      FROM EntryList
      JOIN Entrant ON Entrant.Id = EntryList.Entrant
      JOIN Class ON Class.Id = Entrant.Class
      JOIN Schedule ON Schedule.Id = EntryList.Schedule
      WHERE EntryList.Schedule = ?1) AS Chosen
WHERE Results.Schedule = ?1 AND Results.Entrant = Chosen.Entrant AND Chosen.Tcf IS NOT NULL)sql";

// Elapsed seconds from the class start; corrected = (elapsed x (1 + percent/100) + minutes x 60)
// x TCF. The seconds between two dates are counted in each engine's own words.
std::string TimesSql(std::string_view seconds) {
    const std::string elapsed(seconds);
    return R"sql(
UPDATE Results SET
  ElapsedTime = CASE WHEN Start.StartTime IS NULL OR Results.FinishTime IS NULL THEN 0
                ELSE )sql" +
           elapsed + R"sql( END,
  CorrectedTime = CASE WHEN Start.StartTime IS NULL OR Results.FinishTime IS NULL
                         OR Results.Handicap IS NULL THEN 0
                  ELSE (()sql" +
           elapsed + R"sql() * (1 + Results.PenaltyPercent / 100.0) + Results.PenaltyMins * 60)
                       * Results.Handicap END
FROM EntryList
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Start ON Start.Class = Entrant.Class
WHERE Results.Schedule = ?1 AND EntryList.Schedule = Results.Schedule
  AND EntryList.Entrant = Results.Entrant AND Start.Schedule = Results.Schedule)sql";
}

}  // namespace

std::string clResults::ComputeResultTimes(int RaceId, RowSet& Problems) {
    Problems = RowSet(ProblemsCol::Count, 1);
    return Run("ComputeResultTimes", Shape::Write, [&] {
        const RowSet check = Query(kHandicapCheck, {RaceId});
        RowSet found;
        for (std::size_t row = 0; row < check.Rows(); ++row) {
            if (check(ProblemsCol::Handicaps, row).AsInt() == 1 &&
                check(ProblemsCol::Class, row).AsInt() != 0)
                continue;
            std::vector<Value> problem;
            for (std::size_t c = 0; c < check.Columns(); ++c)
                problem.push_back(check(c, row));
            found.AddRow(std::move(problem));
        }
        if (!found.IsEmpty())
            Problems = std::move(found);
        if (ResultsMissing(RaceId))
            Execute(kMissingResults, {RaceId});
        Execute(kDefaultHandicap, {RaceId});
        Execute(kValidHandicap, {RaceId});
        Execute(TimesSql(ForEngine(
                    "strftime('%s', Results.FinishTime) - strftime('%s', Start.StartTime)",
                    "extract(epoch FROM Results.FinishTime - Start.StartTime)")),
                {RaceId});
        return std::string();
    });
}

// Whether an entrant of the series lacks a result in a race up to this one. A race and an entrant
// have at most one result, so counting the results of the series' entrants answers it: looking
// each pair up, as the insert does, cost a report more than all its other writes.
bool clResults::ResultsMissing(int RaceId) {
    const RowSet entrantRows = Query(kSeriesEntrants, {RaceId});
    std::unordered_set<long long> entrants;
    for (std::size_t r = 0; !entrantRows.IsEmpty() && r < entrantRows.Rows(); ++r)
        entrants.insert(entrantRows(kOnlyColumn, r).AsInt());
    const long long races = Query(kRacesUpToThis, {RaceId})(kOnlyColumn, kFirstRow).AsInt();
    Statement& results = Prepared(kResultEntrants);
    results.Bind(1, static_cast<std::int64_t>(RaceId));
    long long found = 0;
    while (results.Step()) {
        if (entrants.count(results.Read(kOnlyColumn).AsInt()) != 0)
            ++found;
    }
    results.Restart();
    return found < races * static_cast<long long>(entrants.size());
}

}  // namespace tb
