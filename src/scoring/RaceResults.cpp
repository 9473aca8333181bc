#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "scoring/ScopeFilters.h"
#include "scoring/ScopeResults.h"

namespace tb {

namespace {

// One row per class with entries in the race; never narrowed by the entrant selection.
constexpr const char* kClassRows = R"sql(
SELECT Entrant.Class, count(EntryList.Schedule) AS Entrants,
       sum(CASE WHEN Results.Status IS NULL OR Results.Status = 2 THEN 0 ELSE 1 END) AS Starters,
       Series.Title, Series.SubseriesTitle, Schedule.RaceName, Schedule.RaceDate,
       Start.StartTime AS Started, Class.ClassName, '' AS Header, '' AS Comment, Start.TopNote,
       Start.Footnote, Series.Id AS SeriesId, Schedule.Reference, '' AS CumulativeTitle
FROM EntryList
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Results ON Entrant.Id = Results.Entrant AND Results.Schedule = EntryList.Schedule
JOIN Schedule ON Schedule.Id = Results.Schedule AND Schedule.Id = EntryList.Schedule
JOIN Series ON Series.Id = Schedule.Series
JOIN Start ON Entrant.Class = Start.Class AND Start.Schedule = EntryList.Schedule
JOIN Class ON Class.Id = Entrant.Class
WHERE EntryList.Schedule = ?1
GROUP BY Entrant.Class, Start.StartTime, Start.TopNote, Start.Footnote, Series.Title,
         Series.SubseriesTitle, Schedule.RaceName, Schedule.RaceDate, Class.ClassName, Series.Id,
         Schedule.Reference
ORDER BY Class.ClassName, Entrant.Class)sql";

// Columns 7 and 8 come back as raw seconds and are written as h:mm:ss afterwards.
std::string BoatRows(const std::string& entrantFilter) {
    return R"sql(
SELECT Start.Id, Entrant.Class, Boat.BoatName, Boat.FullSailNo,
       CASE WHEN Entrant.NameOnResults IS NULL
            THEN coalesce(People.Firstname, '') || ' ' || coalesce(People.Lastname, '')
            ELSE Entrant.NameOnResults END AS Owner,
       Results.Handicap, Results.FinishTime AS Finished, Results.ElapsedTime AS Elapsed,
       Results.CorrectedTime AS Corrected, Results.Points,
       CASE WHEN Results.Status IS NULL THEN 'DNC' WHEN Results.Status = 9 THEN ''
            ELSE Status.Code END AS Status,
       0 AS Pos, Results.Notes, Results.PenaltyMins, Results.PenaltyPercent,
       Results.PenaltyPoints, BoatType.Model
FROM Results
JOIN Status ON Status.Id = Results.Status
JOIN EntryList ON Results.Entrant = EntryList.Entrant AND Results.Schedule = EntryList.Schedule
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN People ON People.Id = Entrant.Entrant
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN BoatType ON BoatType.Id = Boat.BoatType
JOIN Start ON EntryList.Schedule = Start.Schedule AND Entrant.Class = Start.Class
WHERE EntryList.Schedule = ?1)sql" +
           entrantFilter + " ORDER BY Start.Id, Entrant.Class, Results.Points, Boat.BoatName";
}

// The standings are put together from three narrow reads rather than one join of every result
// with its class and boat sorted as a whole: the series' entrants in standings order (class,
// series total, boat), the races in scope by date and name, and the points of each result.
std::string StandingsEntrants(const std::string& entrantFilter) {
    return R"sql(
SELECT Entrant.Id, Class.Id, Class.ClassName, Boat.Id, Boat.BoatName, Boat.FullSailNo,
       Entrant.SeriesPoints
FROM Schedule
JOIN Entrant ON Entrant.Series = Schedule.Series
JOIN Class ON Class.Id = Entrant.Class
JOIN Boat ON Boat.Id = Entrant.Boat
WHERE Schedule.Id = ?1)sql" +
           entrantFilter +
           " ORDER BY Class.Id, Entrant.SeriesPoints, Boat.BoatName, Boat.Id, Boat.FullSailNo";
}

struct StandingsEntrantCol {
    enum : std::size_t {
        EntrantId,
        ClassId,
        ClassName,
        BoatId,
        BoatName,
        FullSailNo,
        SeriesPoints
    };
};

std::string StandingsRaces(const std::string& raceFilter) {
    return R"sql(
SELECT S1.Id, S1.RaceDate, S1.RaceName
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
WHERE Schedule.Id = ?1)sql" +
           raceFilter + " ORDER BY S1.RaceDate, S1.RaceName";
}

struct StandingsRaceCol {
    enum : std::size_t { Id, RaceDate, RaceName };
};

std::string StandingsScores(const std::string& raceFilter) {
    return R"sql(
SELECT Results.Entrant, Results.Schedule, Results.Points
FROM Schedule
JOIN Schedule AS S1 ON Schedule.RaceDate >= S1.RaceDate AND Schedule.Series = S1.Series
JOIN Results ON S1.Id = Results.Schedule
WHERE Results.Points <> 0 AND Schedule.Id = ?1)sql" +
           raceFilter;
}

struct StandingsScoreCol {
    enum : std::size_t { Entrant, Race, Points };
};

// Seconds as h:mm:ss; the seconds are first rounded to whole ones, to the even neighbour at an
// exact half.
Value TimeText(const Value& seconds) {
    return Value(FormatDuration(static_cast<long long>(RoundHalfEven(seconds.AsDouble()))));
}

}  // namespace

std::string clResults::GetRaceResults(int RaceId, short Option, RowSet& ClassRows,
                                      RowSet& BoatRows) {
    return Run("GetRaceResults", Shape::Query, [&] {
        ClassRows = Query(kClassRows, {RaceId});
        if (ClassRows.IsEmpty())
            return std::string("I-No results were found for race");
        std::string header;
        std::string Msg = GetSetting("Header", header);
        if (!Msg.empty())
            return Msg;
        ClassRows(RaceClassCol::Header, 0) = Value(header);
        std::string comment;
        Msg = GetSetting("Comment", comment);
        if (!Msg.empty())
            return Msg;
        ClassRows(RaceClassCol::Comment, 0) = Value(comment);

        BoatRows = Query(tb::BoatRows(EntrantTypeFilter(Option)), {RaceId});
        long long currentStart = 0;
        long long position = 0;
        long long count = 0;
        double lastPoints = 0;
        for (std::size_t r = 0; !BoatRows.IsEmpty() && r < BoatRows.Rows(); ++r) {
            const bool finished = !BoatRows(RaceBoatCol::Finished, r).IsNull();
            if (!finished)
                BoatRows(RaceBoatCol::Finished, r) = Value("-");
            BoatRows(RaceBoatCol::Elapsed, r) =
                finished ? TimeText(BoatRows(RaceBoatCol::Elapsed, r)) : Value("-");
            BoatRows(RaceBoatCol::Corrected, r) =
                finished ? TimeText(BoatRows(RaceBoatCol::Corrected, r)) : Value("-");
            const double points = BoatRows(RaceBoatCol::Points, r).AsDouble();
            const long long start = BoatRows(RaceBoatCol::StartId, r).AsInt();
            if (start != currentStart) {
                currentStart = start;
                position = 1;
                count = 1;
                lastPoints = points;
            } else {
                ++count;
                if (points != lastPoints) {
                    position = count;
                    lastPoints = points;
                }
            }
            BoatRows(RaceBoatCol::Position, r) = Value(position);
        }
        return std::string();
    });
}

std::string clResults::GetCumulativeResults(int RaceId, short Option, RowSet& CumulativeRows) {
    return Run("GetCumulativeResults", Shape::Query, [&] {
        const RowSet rows = Query(StandingsScores(SubSeriesFilter(Option)), {RaceId});
        ScopeResults scores;
        for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
            ScopeResult score;
            score.entrant = rows(StandingsScoreCol::Entrant, r).AsInt();
            score.race = rows(StandingsScoreCol::Race, r).AsInt();
            score.points = rows(StandingsScoreCol::Points, r);
            scores.push_back(std::move(score));
        }
        CumulativeRows = Standings(RaceId, Option, scores);
        return std::string();
    });
}

std::string clResults::GetCumulativeResults(int RaceId, short Option, const ScopeResults& Scope,
                                            RowSet& CumulativeRows) {
    return Run("GetCumulativeResults", Shape::Query, [&] {
        CumulativeRows = Standings(RaceId, Option, Scope);
        return std::string();
    });
}

RowSet clResults::Standings(int RaceId, short Option, const ScopeResults& Scope) {
    const RowSet entrants = Query(StandingsEntrants(EntrantTypeFilter(Option)), {RaceId});
    const RowSet races = Query(StandingsRaces(SubSeriesFilter(Option)), {RaceId});
    std::unordered_map<long long, std::size_t> raceOrder;
    for (std::size_t r = 0; !races.IsEmpty() && r < races.Rows(); ++r)
        raceOrder.emplace(races(StandingsRaceCol::Id, r).AsInt(), r);
    // Each entrant's scores in race order: (race's place in the order, score). A result
    // without points has no score.
    std::unordered_map<long long, std::vector<std::pair<std::size_t, const Value*>>> byEntrant;
    for (const ScopeResult& score : Scope) {
        if (score.points.IsNull() || score.points.AsDouble() == 0)
            continue;
        const auto race = raceOrder.find(score.race);
        if (race != raceOrder.end())
            byEntrant[score.entrant].emplace_back(race->second, &score.points);
    }
    RowSet CumulativeRows;
    CumulativeRows.Reserve(StandingsCol::Count, Scope.size());
    for (std::size_t e = 0; !entrants.IsEmpty() && e < entrants.Rows(); ++e) {
        auto found = byEntrant.find(entrants(StandingsEntrantCol::EntrantId, e).AsInt());
        if (found == byEntrant.end())
            continue;
        std::sort(found->second.begin(), found->second.end());
        for (const auto& [race, points] : found->second) {
            Value* row = CumulativeRows.AddNullRow(StandingsCol::Count);
            row[StandingsCol::ClassId] = entrants(StandingsEntrantCol::ClassId, e);
            row[StandingsCol::ClassName] = entrants(StandingsEntrantCol::ClassName, e);
            row[StandingsCol::BoatId] = entrants(StandingsEntrantCol::BoatId, e);
            row[StandingsCol::BoatName] = entrants(StandingsEntrantCol::BoatName, e);
            row[StandingsCol::FullSailNo] = entrants(StandingsEntrantCol::FullSailNo, e);
            row[StandingsCol::RaceDate] = races(StandingsRaceCol::RaceDate, race);
            row[StandingsCol::RaceName] = races(StandingsRaceCol::RaceName, race);
            row[StandingsCol::Points] = *points;
            row[StandingsCol::Total] = entrants(StandingsEntrantCol::SeriesPoints, e);
            row[StandingsCol::Position] = Value(0);
        }
    }
    long long currentClass = 0;
    long long currentBoat = 0;
    long long position = 0;
    long long boats = 0;
    double lastTotal = 0;
    for (std::size_t r = 0; !CumulativeRows.IsEmpty() && r < CumulativeRows.Rows(); ++r) {
        // A discarded result is stored negative and shown as its points with a "*".
        const double points = CumulativeRows(StandingsCol::Points, r).AsDouble();
        if (points < 0)
            CumulativeRows(StandingsCol::Points, r) = Value(ToText(Value(-points)) + "*");
        const long long classId = CumulativeRows(StandingsCol::ClassId, r).AsInt();
        const long long boat = CumulativeRows(StandingsCol::BoatId, r).AsInt();
        const double total = CumulativeRows(StandingsCol::Total, r).AsDouble();
        if (classId != currentClass || r == 0) {
            currentClass = classId;
            currentBoat = boat;
            position = 1;
            boats = 1;
            lastTotal = total;
        } else if (boat != currentBoat) {
            currentBoat = boat;
            ++boats;
            if (total != lastTotal) {
                position = boats;
                lastTotal = total;
            }
        }
        CumulativeRows(StandingsCol::Position, r) = Value(position);
    }
    return CumulativeRows;
}

}  // namespace tb
