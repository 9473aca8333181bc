#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kRaceDetails =
    "SELECT Schedule.RaceName, Schedule.RaceDate, Schedule.InSubSeries, Schedule.Reference "
    "FROM Schedule WHERE Schedule.Id=?1";
constexpr const char* kAddRace =
    "INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries, Reference) "
    "VALUES (?1, ?2, ?3, ?4, ?5)";
constexpr const char* kUpdateRace =
    "UPDATE Schedule SET Series=?1, RaceName=?2, RaceDate=?3, InSubSeries=?4, Reference=?5 "
    "WHERE Id=?6";
constexpr const char* kEntriesInRace = "SELECT count(*) AS Qty FROM EntryList WHERE Schedule=?1";
constexpr const char* kRemoveRace = "DELETE FROM Schedule WHERE Id=?1";

}  // namespace

std::string clResults::GetRaceDetails(int ScheduleId, RowSet& Rows) {
    return Run("GetRaceDetails", Shape::Query, [&] {
        RowSet found = Query(kRaceDetails, {ScheduleId});
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::PutScheduleDetails(int ScheduleId, int Series, const std::string& RaceName,
                                          const std::string& RaceDate, bool InSubSeries,
                                          const std::string& Reference) {
    return Run("PutScheduleDetails", Shape::Store, [&] {
        const Value date(DatePart(TypedDate(RaceDate)));
        const Value reference = Reference.empty() ? Value() : Value(Reference);
        if (ScheduleId == 0) {
            Execute(kAddRace, {Series, RaceName, date, InSubSeries, reference});
        } else if (Execute(kUpdateRace,
                           {Series, RaceName, date, InSubSeries, reference, ScheduleId}) == 0) {
            throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
}

std::string clResults::RemoveSchedule(int ScheduleId) {
    return Run("RemoveSchedule", Shape::Write, [&] {
        const RowSet count = Query(kEntriesInRace, {ScheduleId});
        if (!count.IsEmpty() && count(kOnlyColumn, kFirstRow).AsInt() > 0) {
            return std::string(
                "E-It is not possible to remove this scheduled race as there are boats entered "
                "in it.");
        }
        Execute(kRemoveRace, {ScheduleId});
        return std::string();
    });
}

}  // namespace tb
