#include <cstdint>
#include <limits>

#include "data/DateColumns.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {

// A boat whose model was removed or never set is still listed, with a Null model.
constexpr const char* kBoats = R"sql(
SELECT Boat.Id, Boat.BoatName, BoatType.Model, Boat.FullSailNo, Boat.SailNo
FROM Boat LEFT JOIN BoatType ON BoatType.Id = Boat.BoatType
ORDER BY Boat.BoatName, BoatType.Model, Boat.SailNo)sql";

// Series without a race do not appear: they have no first race date.
constexpr const char* kSeriesForBoat = R"sql(
SELECT Min(Schedule.RaceDate), Series.Title
FROM Entrant
JOIN Series ON Entrant.Series = Series.Id
JOIN Schedule ON Series.Id = Schedule.Series
WHERE Entrant.Boat = ?1
GROUP BY Series.Title
ORDER BY Min(Schedule.RaceDate) DESC, Series.Title)sql";

constexpr const char* kBoatsOwned =
    "SELECT BoatName, FullSailNo FROM Boat WHERE Owner=?1 ORDER BY BoatName, FullSailNo";
constexpr const char* kFindBoat = "SELECT Boat.Id FROM Boat WHERE Boat.FullSailNo=?1";
constexpr const char* kBoatDetails =
    "SELECT Boat.BoatName, Boat.BoatType, Boat.FullSailNo, Boat.Owner FROM Boat WHERE Id=?1";
constexpr const char* kAddBoat =
    "INSERT INTO Boat (BoatName, FullSailNo, SailNo, BoatType, Owner) VALUES (?1, ?2, ?3, ?4, ?5)";
constexpr const char* kUpdateBoat = R"sql(
UPDATE Boat SET BoatName=?1, FullSailNo=?2, SailNo=?3, BoatType=?4, Owner=?5
WHERE Id=?6)sql";
constexpr const char* kRemoveBoat = "DELETE FROM Boat WHERE Id=?1";
constexpr const char* kRemoveBoatHandicaps = "DELETE FROM Handicap WHERE Boat=?1";

// The number the sail number's digits make, wherever they stand ("GBR 12-34" is 1234), for
// sorting; 0 when there are none. More than a long integer holds is an overflow.
long long SailNumberDigits(const std::string& fullSailNo) {
    long long number = 0;
    for (const char c : fullSailNo) {
        if (c < '0' || c > '9')
            continue;
        number = number * 10 + (c - '0');
        if (number > std::numeric_limits<std::int32_t>::max())
            throw RunTimeFault::Overflow();
    }
    return number;
}

}  // namespace

std::string clResults::GetBoats(RowSet& Boats) {
    return Run("GetBoats", Shape::Query, [&] {
        Boats = Query(kBoats);
        return std::string();
    });
}

std::string clResults::GetSeriesForBoat(int BoatId, RowSet& Series) {
    return Run("GetSeriesForBoat", Shape::Query, [&] {
        Series = Query(kSeriesForBoat, {BoatId});
        ReadAsDates(Series, SeriesEnteredCol::FirstRaceDate);
        return std::string();
    });
}

std::string clResults::GetBoatsOwned(int PersonId, RowSet& Boats) {
    return Run("GetBoatsOwned", Shape::Query, [&] {
        Boats = Query(kBoatsOwned, {PersonId});
        return std::string();
    });
}

std::string clResults::FindBoat(const std::string& FullSailNo, RowSet& Boats) {
    return Run("FindBoat", Shape::Query, [&] {
        Boats = Query(kFindBoat, {FullSailNo});
        return std::string();
    });
}

std::string clResults::GetBoatDetails(int Id, RowSet& Detail) {
    return Run("GetBoatDetails", Shape::Query, [&] {
        RowSet found = Query(kBoatDetails, {Id});
        if (found.IsEmpty())
            throw RunTimeFault::NoCurrentRecord();
        Detail = std::move(found);
        return std::string();
    });
}

std::string clResults::PutBoatDetails(int& Id, const std::string& BoatName,
                                      const std::string& FullSailNo, int BoatType, int Owner) {
    int id = Id;
    const std::string Msg = Run("PutBoatDetails", Shape::Store, [&] {
        const long long sailNo = SailNumberDigits(FullSailNo);
        if (id == 0) {
            Execute(kAddBoat, {BoatName, FullSailNo, sailNo, BoatType, Owner});
            id = static_cast<int>(LastInsertId());
        } else if (Execute(kUpdateBoat, {BoatName, FullSailNo, sailNo, BoatType, Owner, id}) == 0) {
            throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
    if (Msg.empty())
        Id = id;
    return Msg;
}

std::string clResults::RemoveBoat(int Id) {
    return Run("RemoveBoat", Shape::Remove, [&] {
        Execute(kRemoveBoat, {Id});
        Execute(kRemoveBoatHandicaps, {Id});
        return std::string();
    });
}

}  // namespace tb
