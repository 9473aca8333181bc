#include "data/Conversions.h"
#include "data/DateColumns.h"
#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kHandicapTypes =
    "SELECT HandicapType.Id, HandicapType.Description FROM HandicapType "
    "ORDER BY HandicapType.Description";

// Newest period first within each handicap system.
constexpr const char* kHandicaps = R"sql(
SELECT Handicap.Id, HandicapType.Description, Handicap.Handicap, Handicap.EffectiveFrom,
       Handicap.Expires
FROM HandicapType JOIN Handicap ON HandicapType.Id = Handicap.HandicapType
WHERE Handicap.Boat = ?1
ORDER BY HandicapType.Description, Handicap.EffectiveFrom DESC, Handicap.Expires DESC)sql";

constexpr const char* kBoatsUsingHandicap = R"sql(
SELECT Boat.BoatName
FROM Boat
JOIN Handicap ON Boat.Id = Handicap.Boat
JOIN HandicapType ON HandicapType.Id = Handicap.HandicapType
WHERE HandicapType.Id = ?1
GROUP BY Boat.BoatName
ORDER BY Boat.BoatName)sql";

// Series without a race do not appear: they have no first race date.
constexpr const char* kClassesUsingHandicap = R"sql(
SELECT Series.Title, Min(Schedule.RaceDate) AS SeriesDate, Class.ClassName
FROM Series
JOIN Class ON Series.Id = Class.Series
JOIN Schedule ON Series.Id = Schedule.Series
WHERE Class.HandicapType = ?1
GROUP BY Series.Title, Class.ClassName, Class.Series
ORDER BY Series.Title, Min(Schedule.RaceDate), Class.ClassName)sql";

constexpr const char* kSeriesUsingHandicap = R"sql(
SELECT Series.Title, Min(Schedule.RaceDate) AS SeriesDate
FROM Series
JOIN Class ON Series.Id = Class.Series
JOIN Schedule ON Series.Id = Schedule.Series
WHERE Class.HandicapType = ?1
GROUP BY Series.Title, Class.Series
ORDER BY Series.Title, Min(Schedule.RaceDate))sql";

constexpr const char* kHandicapDetail = R"sql(
SELECT Handicap.HandicapType, Handicap.Handicap, Handicap.EffectiveFrom, Handicap.Expires
FROM Handicap WHERE Handicap.Id = ?1)sql";

constexpr const char* kAddHandicap = R"sql(
INSERT INTO Handicap (HandicapType, Boat, Handicap, EffectiveFrom, Expires, ModifyDate)
VALUES (?1, ?2, ?3, ?4, ?5, ?6))sql";
constexpr const char* kUpdateHandicap = R"sql(
UPDATE Handicap SET HandicapType=?1, Boat=?2, Handicap=?3, EffectiveFrom=?4, Expires=?5,
                    ModifyDate=?6
WHERE Id=?7)sql";
constexpr const char* kEndHandicap = "UPDATE Handicap SET Expires=?1, ModifyDate=?2 WHERE Id=?3";
constexpr const char* kRemoveHandicapType = "DELETE FROM HandicapType WHERE Id=?1";

}  // namespace

std::string clResults::GetHandicapTypes(RowSet& Types) {
    return Run("GetHandicapTypes", Shape::Query, [&] {
        Types = Query(kHandicapTypes);
        return std::string();
    });
}

std::string clResults::GetHandicaps(int BoatId, RowSet& Handicaps) {
    return Run("GetHandicaps", Shape::Query, [&] {
        Handicaps = Query(kHandicaps, {BoatId});
        return std::string();
    });
}

std::string clResults::GetBoatsUsingHandicap(int HandicapTypeId, RowSet& Boats) {
    return Run("GetBoatsUsingHandicap", Shape::Query, [&] {
        Boats = Query(kBoatsUsingHandicap, {HandicapTypeId});
        return std::string();
    });
}

std::string clResults::GetClassesUsingHandicap(int HandicapTypeId, RowSet& Classes) {
    return Run("GetClassesUsingHandicap", Shape::Query, [&] {
        Classes = Query(kClassesUsingHandicap, {HandicapTypeId});
        ReadAsDates(Classes, ClassesUsingCol::SeriesDate);
        return std::string();
    });
}

std::string clResults::GetSeriesUsingHandicap(int HandicapTypeId, RowSet& Series) {
    return Run("GetSeriesUsingHandicap", Shape::Query, [&] {
        Series = Query(kSeriesUsingHandicap, {HandicapTypeId});
        ReadAsDates(Series, SeriesUsingCol::SeriesDate);
        return std::string();
    });
}

std::string clResults::GetHandicapDetail(int Id, RowSet& Detail) {
    return Run("GetHandicapDetail", Shape::Query, [&] {
        // 0 starts a new handicap and -Id revises handicap Id: both get a fresh period.
        const bool freshPeriod = Id < 1;
        RowSet found = Query(kHandicapDetail, {freshPeriod ? -Id : Id});
        Detail = found.IsEmpty() ? RowSet(HandicapDetailCol::Count, 1) : std::move(found);
        if (freshPeriod) {
            const DateTime today = Today();
            Detail(HandicapDetailCol::EffectiveFrom, 0) = Value(today);
            Detail(HandicapDetailCol::Expires, 0) = Value(MakeDateTime(YearOf(today), 12, 31));
        }
        return std::string();
    });
}

std::string clResults::PutHandicapDetails(int Id, int Boat, short HandicapType,
                                          const std::string& Handicap,
                                          const std::string& EffectiveFrom,
                                          const std::string& Expires) {
    return Run("PutHandicapDetails", Shape::Store, [&] {
        const double tcf = TypedNumber(Handicap);
        const DateTime from = TypedDate(EffectiveFrom);
        Value expires;
        if (!Expires.empty())
            expires = Value(TypedDate(Expires));
        const DateTime now = Now();
        if (Id > 0) {
            if (Execute(kUpdateHandicap, {HandicapType, Boat, tcf, from, expires, now, Id}) == 0)
                throw RunTimeFault::NoCurrentRecord();
        } else {
            Execute(kAddHandicap, {HandicapType, Boat, tcf, from, expires, now});
        }
        // A revision: the handicap it replaces ends the day before the new one starts.
        if (Id < 0 && Execute(kEndHandicap, {AddDays(from, -1), now, -Id}) == 0)
            throw RunTimeFault::NoCurrentRecord();
        return std::string();
    });
}

std::string clResults::RemoveHandicapType(int Id) {
    return Run("RemoveHandicapType", Shape::Remove, [&] {
        Execute(kRemoveHandicapType, {Id});
        return std::string();
    });
}

}  // namespace tb
