#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "data/Conversions.h"
#include "data/DateColumns.h"
#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kScoringSystems =
    "SELECT Scoring.Id, Scoring.Description FROM Scoring ORDER BY Scoring.Description";
constexpr const char* kDiscardSystems =
    "SELECT DiscardSystem.Id, DiscardSystem.Description FROM DiscardSystem "
    "ORDER BY DiscardSystem.Description";
// The eight status rows (place Null) first, then places 1 to 7.
constexpr const char* kScoringDetail = R"sql(
SELECT Points.Status, Points.Place, Points.Base, Points.Value, Points.MinValue
FROM Points WHERE Points.Scoring = ?1
ORDER BY Points.Status, Points.Place)sql";
// Blank lines (races run Null) after every numbered line.
constexpr const char* kDiscardDetail = R"sql(
SELECT Discards.RacesRun, Discards.Discards
FROM Discards WHERE Discards.DiscardSystem = ?1
ORDER BY Discards.RacesRun IS NULL, Discards.RacesRun)sql";

// Series of one title count once, with their earliest race; series without a race do not appear.
constexpr const char* kSeriesUsingScoring = R"sql(
SELECT Series.Title, Min(Schedule.RaceDate) AS SeriesDate
FROM Series JOIN Schedule ON Series.Id = Schedule.Series
WHERE Series.Scoring = ?1
GROUP BY Series.Title
ORDER BY Series.Title, Min(Schedule.RaceDate))sql";
constexpr const char* kSeriesUsingDiscard = R"sql(
SELECT Series.Title, Min(Schedule.RaceDate) AS SeriesDate
FROM Series JOIN Schedule ON Series.Id = Schedule.Series
WHERE Series.Discards = ?1
GROUP BY Series.Title
ORDER BY Series.Title, Min(Schedule.RaceDate))sql";

// The header of a scoring or discard system, found by name (without regard to case) or by Id.
struct SystemTable {
    const char* kind;
    const char* byName;
    const char* byId;
    const char* add;
    const char* rename;
};

constexpr SystemTable kScoringTable{
    "scoring system", "SELECT Scoring.Id FROM Scoring WHERE Scoring.Description=?1 ORDER BY Id",
    "SELECT Scoring.Id FROM Scoring WHERE Scoring.Id=?1",
    "INSERT INTO Scoring (Description) VALUES (?1)",
    "UPDATE Scoring SET Description=?1 WHERE Id=?2"};
constexpr SystemTable kDiscardTable{
    "discard system",
    "SELECT DiscardSystem.Id FROM DiscardSystem WHERE DiscardSystem.Description=?1 ORDER BY Id",
    "SELECT DiscardSystem.Id FROM DiscardSystem WHERE DiscardSystem.Id=?1",
    "INSERT INTO DiscardSystem (Description) VALUES (?1)",
    "UPDATE DiscardSystem SET Description=?1 WHERE Id=?2"};

// The rows of a system carry no key of their own: they are overwritten in their listed order,
// after the missing ones are added. Each engine names a row by its own hidden key ("rowid").
constexpr const char* kPointsRows =
    "SELECT rowid FROM Points WHERE Scoring=?1 ORDER BY Status, Place, rowid";
constexpr const char* kAddPointsRow = "INSERT INTO Points (Scoring) VALUES (?1)";
constexpr const char* kSetStatusPoints =
    "UPDATE Points SET Status=?1, Base=?2, Value=?3, MinValue=?4 WHERE rowid=?5";
constexpr const char* kSetPlacePoints =
    "UPDATE Points SET Place=?1, Status=9, Value=?2 WHERE rowid=?3";
constexpr const char* kDiscardRows =
    "SELECT rowid FROM Discards WHERE DiscardSystem=?1 ORDER BY rowid";
constexpr const char* kAddDiscardRow = "INSERT INTO Discards (DiscardSystem) VALUES (?1)";
constexpr const char* kSetDiscardRow =
    "UPDATE Discards SET RacesRun=?1, Discards=?2 WHERE rowid=?3";

constexpr const char* kRemoveScoring = "DELETE FROM Scoring WHERE Id=?1";
constexpr const char* kRemoveScoringPoints = "DELETE FROM Points WHERE Scoring=?1";
constexpr const char* kRemoveDiscardSystem = "DELETE FROM DiscardSystem WHERE Id=?1";
constexpr const char* kRemoveDiscardLines = "DELETE FROM Discards WHERE DiscardSystem=?1";

std::string WithRowKey(std::string_view sql, std::string_view key) {
    std::string text(sql);
    for (auto at = text.find("rowid"); at != std::string::npos;
         at = text.find("rowid", at + key.size()))
        text.replace(at, 5, key);
    return text;
}

constexpr std::size_t kPlaces = 7;
constexpr std::size_t kStatusRows = 8;
constexpr std::size_t kDiscardLines = 5;

// The non-finishing statuses 1 to 8 are scored in three groups, each with one base, one value
// and one minimum; these are the groups' positions in the values as typed.
struct StatusGroup {
    short base;
    std::size_t value;
    std::size_t minimum;
};

// A discard line's number: blank (or anything not numeric) is Null; more than a short integer
// holds is an overflow.
Value LineNumber(const std::string& text) {
    if (!IsNumeric(text))
        return {};
    const std::int64_t number = Value(TypedNumber(text)).AsInt();
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        throw RunTimeFault::Overflow();
    return Value(static_cast<long long>(number));
}

}  // namespace

std::string clResults::GetScoring(RowSet& Systems) {
    return Run("GetScoring", Shape::Query, [&] {
        Systems = Query(kScoringSystems);
        return std::string();
    });
}

std::string clResults::GetDiscards(RowSet& Systems) {
    return Run("GetDiscards", Shape::Query, [&] {
        Systems = Query(kDiscardSystems);
        return std::string();
    });
}

std::string clResults::GetScoringDetail(int ScoringId, RowSet& Points) {
    return Run("GetScoringDetail", Shape::Query, [&] {
        Points = Query(kScoringDetail, {ScoringId});
        return std::string();
    });
}

std::string clResults::GetDiscardDetail(int DiscardId, RowSet& Lines) {
    return Run("GetDiscardDetail", Shape::Query, [&] {
        Lines = Query(kDiscardDetail, {DiscardId});
        return std::string();
    });
}

std::string clResults::GetSeriesUsingScoring(int ScoringId, RowSet& Series) {
    return Run("GetSeriesUsingScoring", Shape::Query, [&] {
        Series = Query(kSeriesUsingScoring, {ScoringId});
        ReadAsDates(Series, SeriesUsingCol::SeriesDate);
        return std::string();
    });
}

std::string clResults::GetSeriesUsingDiscard(int DiscardId, RowSet& Series) {
    return Run("GetSeriesUsingDiscard", Shape::Query, [&] {
        Series = Query(kSeriesUsingDiscard, {DiscardId});
        ReadAsDates(Series, SeriesUsingCol::SeriesDate);
        return std::string();
    });
}

std::string clResults::PutScoring(int ScoringId, const std::string& ScoringName, int DiscardId,
                                  const std::string& DiscardName, short BaseDNF, short BaseDSQ,
                                  short BaseDNC, const ScoringValues& Values,
                                  const DiscardLines& Discards) {
    return Run("PutScoring", Shape::Store, [&] {
        // Saves the header under its name: a system found by that name must be this one, and
        // takes the name as typed; else the one with this Id is renamed; else a new one is
        // added. Gives the saved Id, or nothing when the name belongs to another system.
        auto saveHeader = [&](const SystemTable& table, int id,
                              const std::string& name) -> std::optional<long long> {
            const RowSet named = Query(table.byName, {name});
            if (!named.IsEmpty()) {
                if (named(kOnlyColumn, kFirstRow).AsInt() != id)
                    return std::nullopt;
            } else if (Query(table.byId, {id}).IsEmpty()) {
                Execute(table.add, {name});
                return LastInsertId();
            }
            Execute(table.rename, {name, id});
            return id;
        };
        auto nameTaken = [](const SystemTable& table, const std::string& name) {
            return std::string("E-Another ") + table.kind + " named '" + name + "' already exists";
        };

        std::array<double, std::tuple_size_v<ScoringValues>> points{};
        for (std::size_t k = 0; k < points.size(); ++k)
            points[k] = TypedNumber(Values[k]);

        const auto scoringId = saveHeader(kScoringTable, ScoringId, ScoringName);
        if (!scoringId)
            return nameTaken(kScoringTable, ScoringName);
        const StatusGroup dsq{BaseDSQ, 8, 11};
        const StatusGroup dnc{BaseDNC, 9, 12};
        const StatusGroup dnf{BaseDNF, 7, 10};
        const std::array<StatusGroup, kStatusRows> groupOfStatus{dsq, dnc, dsq, dnf,
                                                                 dnf, dsq, dnf, dnf};
        const std::string_view rowKey = ForEngine("rowid", "ctid");
        for (std::size_t i = Query(WithRowKey(kPointsRows, rowKey), {*scoringId}).Rows();
             i < kStatusRows + kPlaces; ++i)
            Execute(kAddPointsRow, {*scoringId});
        const RowSet pointsRows = Query(WithRowKey(kPointsRows, rowKey), {*scoringId});
        for (std::size_t i = 0; i < kStatusRows + kPlaces; ++i) {
            const Value& row = pointsRows(kOnlyColumn, i);
            if (i < kStatusRows) {
                const StatusGroup& group = groupOfStatus[i];
                Execute(WithRowKey(kSetStatusPoints, rowKey),
                        {static_cast<int>(i + 1), group.base, points[group.value],
                         points[group.minimum], row});
            } else {
                const std::size_t place = i - kStatusRows;
                Execute(WithRowKey(kSetPlacePoints, rowKey),
                        {static_cast<int>(place + 1), points[place], row});
            }
        }

        const auto discardId = saveHeader(kDiscardTable, DiscardId, DiscardName);
        if (!discardId)
            return nameTaken(kDiscardTable, DiscardName);
        for (std::size_t line = Query(WithRowKey(kDiscardRows, rowKey), {*discardId}).Rows();
             line < kDiscardLines; ++line)
            Execute(kAddDiscardRow, {*discardId});
        const RowSet discardRows = Query(WithRowKey(kDiscardRows, rowKey), {*discardId});
        for (std::size_t line = 0; line < kDiscardLines; ++line) {
            const Value& row = discardRows(kOnlyColumn, line);
            Execute(WithRowKey(kSetDiscardRow, rowKey),
                    {LineNumber(Discards[0][line]), LineNumber(Discards[1][line]), row});
        }
        return std::string();
    });
}

std::string clResults::RemoveScoring(int ScoringId) {
    return Run("RemoveScoring", Shape::Remove, [&] {
        Execute(kRemoveScoring, {ScoringId});
        Execute(kRemoveScoringPoints, {ScoringId});
        return std::string();
    });
}

std::string clResults::RemoveDiscardSystem(int DiscardId) {
    return Run("RemoveDiscardSystem", Shape::Remove, [&] {
        Execute(kRemoveDiscardSystem, {DiscardId});
        Execute(kRemoveDiscardLines, {DiscardId});
        return std::string();
    });
}

}  // namespace tb
