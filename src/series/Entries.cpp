#include <algorithm>

#include "data/Conversions.h"
#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kEntries = R"sql(
SELECT Boat.Id, Boat.BoatName, Entrant.Id, Boat.FullSailNo
FROM Boat JOIN Entrant ON Boat.Id = Entrant.Boat
WHERE Entrant.Series = ?1
ORDER BY Boat.BoatName, Boat.FullSailNo)sql";

constexpr const char* kEntriesForRace = R"sql(
SELECT Entrant.Id, Boat.BoatName, Boat.FullSailNo
FROM Boat
JOIN Entrant ON Boat.Id = Entrant.Boat
JOIN EntryList ON Entrant.Id = EntryList.Entrant
WHERE EntryList.Schedule = ?1
ORDER BY Boat.BoatName, Boat.FullSailNo)sql";

constexpr const char* kEntrant = R"sql(
SELECT Entrant.Id, Entrant.Class, Class.HandicapType, Entrant.EntrantType, Entrant.Entrant,
       Entrant.EntryDate, Entrant.NameOnResults
FROM Class JOIN Entrant ON Class.Id = Entrant.Class
WHERE Entrant.Boat = ?1 AND Entrant.Series = ?2)sql";
struct EntrantCol {
    enum : std::size_t { Id, Class, HandicapType, EntrantType, Entrant, EntryDate, NameOnResults };
};

// The TCF of each entered race; a race without a valid handicap is flagged in the third column
// (one column may hold a number or a text on SQLite only).
constexpr const char* kEntrantRaces = R"sql(
SELECT EntryList.Schedule, Handicap.Handicap, 0
FROM EntryList
JOIN Entrant ON EntryList.Entrant = Entrant.Id
JOIN Class ON Class.Id = Entrant.Class
JOIN Handicap ON Entrant.Boat = Handicap.Boat AND Class.HandicapType = Handicap.HandicapType
JOIN Schedule ON EntryList.Schedule = Schedule.Id
WHERE (Handicap.EffectiveFrom <= Schedule.RaceDate OR Handicap.EffectiveFrom IS NULL)
  AND (Handicap.Expires >= Schedule.RaceDate OR Handicap.Expires IS NULL)
  AND Entrant.Id = ?1
UNION ALL
SELECT EntryList.Schedule, NULL, 1
FROM EntryList
JOIN Entrant ON Entrant.Id = EntryList.Entrant
JOIN Class ON Class.Id = Entrant.Class
JOIN Schedule ON EntryList.Schedule = Schedule.Id
WHERE EntryList.Entrant = ?1
  AND NOT EXISTS (SELECT 1 FROM Handicap
                  WHERE Handicap.Boat = Entrant.Boat AND Handicap.HandicapType = Class.HandicapType
                    AND (Handicap.EffectiveFrom <= Schedule.RaceDate OR Handicap.EffectiveFrom IS NULL)
                    AND (Handicap.Expires >= Schedule.RaceDate OR Handicap.Expires IS NULL))
ORDER BY 3, 1)sql";

constexpr const char* kFindEntrant = "SELECT Id FROM Entrant WHERE Boat=?1 AND Series=?2";
constexpr const char* kAddEntrant = R"sql(
INSERT INTO Entrant (Boat, Series, EntrantType, Entrant, EntryDate, NameOnResults, Class)
VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7))sql";
constexpr const char* kUpdateEntrant = R"sql(
UPDATE Entrant SET EntrantType=?1, Entrant=?2, EntryDate=?3, NameOnResults=?4, Class=?5
WHERE Id=?6)sql";
constexpr const char* kEntrantRaceRows = "SELECT Schedule FROM EntryList WHERE Entrant=?1";
constexpr const char* kLeaveRace = "DELETE FROM EntryList WHERE Entrant=?1 AND Schedule=?2";
constexpr const char* kEnterRace =
    "INSERT INTO EntryList (Entrant, Schedule) VALUES (?1, ?2) ON CONFLICT DO NOTHING";

constexpr const char* kRemoveResults = "DELETE FROM Results WHERE Entrant=?1";
constexpr const char* kRemoveEntryList = "DELETE FROM EntryList WHERE Entrant=?1";
constexpr const char* kRemoveEntrant = "DELETE FROM Entrant WHERE Id=?1";

constexpr const char* kCheckResults = R"sql(
SELECT Entrant.Id, Results.Entrant
FROM Entrant LEFT JOIN Results ON Entrant.Id = Results.Entrant
WHERE Entrant.Series = ?1 AND Entrant.Boat = ?2
LIMIT 1)sql";
struct CheckResultsCol {
    enum : std::size_t { EntrantId, ResultEntrant };
};

}  // namespace

std::string clResults::GetEntries(int SeriesId, RowSet& Rows) {
    return Run("GetEntries", Shape::Query, [&] {
        Rows = Query(kEntries, {SeriesId});
        return std::string();
    });
}

std::string clResults::GetEntriesForRace(int ScheduleId, RowSet& Rows) {
    return Run("GetEntriesForRace", Shape::Query, [&] {
        Rows = Query(kEntriesForRace, {ScheduleId});
        return std::string();
    });
}

std::string clResults::GetEntryDetails(int BoatId, int SeriesId, int& EntrantPerson, int& ClassId,
                                       std::string& EntryDate, short& EntrantType,
                                       std::string& NameOnResults, RowSet& RaceRows) {
    return Run("GetEntryDetails", Shape::Query, [&] {
        const RowSet entrant = Query(kEntrant, {BoatId, SeriesId});
        if (entrant.IsEmpty()) {
            // A boat not yet entered: its owner enters it, today.
            RowSet boat;
            const std::string Msg = GetBoatDetails(BoatId, boat);
            if (Msg.empty())
                EntrantPerson = static_cast<int>(boat(BoatDetailCol::Owner, 0).AsInt());
            EntryDate = FormatDate(Today(), "dd/mm/yy");
            return Msg;
        }
        const Value entrantId = entrant(EntrantCol::Id, 0);
        ClassId = static_cast<int>(entrant(EntrantCol::Class, 0).AsInt());
        EntrantType = static_cast<short>(entrant(EntrantCol::EntrantType, 0).AsInt());
        EntrantPerson = static_cast<int>(entrant(EntrantCol::Entrant, 0).AsInt());
        EntryDate = entrant(EntrantCol::EntryDate, 0).IsNull()
                        ? std::string()
                        : FormatDate(entrant(EntrantCol::EntryDate, 0).AsDate(), "dd/mm/yyyy");
        NameOnResults = entrant(EntrantCol::NameOnResults, 0).ToText();
        if (entrantId.AsInt() < 1)
            return std::string();
        RaceRows = RowSet();
        const RowSet races = Query(kEntrantRaces, {entrantId});
        constexpr std::size_t kNoHandicap = 2;
        for (std::size_t r = 0; !races.IsEmpty() && r < races.Rows(); ++r) {
            RaceRows.AddRow(
                {races(EntrantRacesCol::Race, r), races(kNoHandicap, r).AsInt() == 1
                                                      ? Value("  **")
                                                      : races(EntrantRacesCol::Handicap, r)});
        }
        return std::string();
    });
}

std::string clResults::PutEntryDetails(int BoatId, int SeriesId, int EntrantPerson, int ClassId,
                                       const std::string& EntryDate, short EntrantType,
                                       const std::string& NameOnResults, std::vector<int>& Races) {
    return Run("PutEntryDetails", Shape::Store, [&] {
        const Value date(TypedDate(EntryDate));
        const Value name = NameOnResults.empty() ? Value() : Value(NameOnResults);
        const RowSet found = Query(kFindEntrant, {BoatId, SeriesId});
        long long entrantId = 0;
        if (found.IsEmpty()) {
            Execute(kAddEntrant,
                    {BoatId, SeriesId, EntrantType, EntrantPerson, date, name, ClassId});
            entrantId = LastInsertId();
        } else {
            entrantId = found(kOnlyColumn, kFirstRow).AsInt();
            Execute(kUpdateEntrant, {EntrantType, EntrantPerson, date, name, ClassId, entrantId});
        }
        // Races that stay entered keep their rows; the others go; new ones are added.
        const RowSet entered = Query(kEntrantRaceRows, {entrantId});
        for (std::size_t r = 0; !entered.IsEmpty() && r < entered.Rows(); ++r) {
            const long long race = entered(kOnlyColumn, r).AsInt();
            const auto kept = std::find(Races.begin(), Races.end(), race);
            if (kept != Races.end()) {
                *kept = 0;
            } else {
                Execute(kLeaveRace, {entrantId, race});
            }
        }
        for (int race : Races) {
            if (race > 0)
                Execute(kEnterRace, {entrantId, race});
        }
        return std::string();
    });
}

std::string clResults::RemoveEntrant(int EntrantId) {
    return Run("RemoveEntrant", Shape::Remove, [&] {
        Execute(kRemoveResults, {EntrantId});
        Execute(kRemoveEntryList, {EntrantId});
        Execute(kRemoveEntrant, {EntrantId});
        return std::string();
    });
}

std::string clResults::CheckResults(int SeriesId, int& BoatEntrant, bool& HasResults) {
    return Run("CheckResults", Shape::Query, [&] {
        const RowSet rows = Query(kCheckResults, {SeriesId, BoatEntrant});
        if (rows.IsEmpty()) {
            BoatEntrant = 0;
        } else {
            BoatEntrant = static_cast<int>(rows(CheckResultsCol::EntrantId, 0).AsInt());
            HasResults = !rows(CheckResultsCol::ResultEntrant, 0).IsNull();
        }
        return std::string();
    });
}

}  // namespace tb
