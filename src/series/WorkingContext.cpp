#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

// Years of races that belong to a series, newest first; dates are stored, and read as text,
// "YYYY-MM-DD ...".
constexpr const char* kYears = R"sql(
SELECT DISTINCT substr(CAST(Schedule.RaceDate AS TEXT), 1, 4)
FROM Series JOIN Schedule ON Series.Id = Schedule.Series
ORDER BY substr(CAST(Schedule.RaceDate AS TEXT), 1, 4) DESC)sql";
constexpr const char* kSeriesOfYear = R"sql(
SELECT DISTINCT Series.Id, Series.Title
FROM Series JOIN Schedule ON Series.Id = Schedule.Series
WHERE substr(CAST(Schedule.RaceDate AS TEXT), 1, 4) = ?1
ORDER BY Series.Title)sql";
constexpr const char* kAllSeries =
    "SELECT Series.Id, Series.Title FROM Series ORDER BY Series.Title";
constexpr const char* kSchedule = R"sql(
SELECT Schedule.Id, Schedule.RaceName, Schedule.RaceDate, Schedule.InSubSeries
FROM Series JOIN Schedule ON Series.Id = Schedule.Series
WHERE Schedule.Series = ?1
ORDER BY Schedule.RaceDate, Schedule.RaceName)sql";

int RememberedId(const std::string& text) {
    return static_cast<int>(Value(TypedNumber(text)).AsInt());
}

}  // namespace

std::string clResults::GetYears(RowSet& Years) {
    return Run("GetYears", Shape::Query, [&] {
        Years = Query(kYears);
        return std::string();
    });
}

std::string clResults::GetCurrentYear(RowSet& Years, std::string& CurrentYear) {
    return Run("GetCurrentYear", Shape::Query, [&] {
        std::string Msg = GetYears(Years);
        if (Msg.empty())
            Msg = GetSetting("LastSeriesYr", CurrentYear);
        return Msg;
    });
}

std::string clResults::GetSeries(RowSet& Series, const std::string& Year) {
    return Run("GetSeries", Shape::Query, [&] {
        Series = Year.empty() ? Query(kAllSeries) : Query(kSeriesOfYear, {Year});
        return std::string();
    });
}

std::string clResults::GetCurrentSeries(RowSet& Series, int& CurrentSeries,
                                        const std::string& Year) {
    return Run("GetCurrentSeries", Shape::Query, [&] {
        std::string Msg = GetSeries(Series, Year);
        std::string remembered;
        if (Msg.empty())
            Msg = GetSetting("LastSeries", remembered);
        if (Msg.empty() && !remembered.empty())
            CurrentSeries = RememberedId(remembered);
        return Msg;
    });
}

std::string clResults::GetSchedule(RowSet& Schedule, int SeriesId) {
    return Run("GetSchedule", Shape::Query, [&] {
        Schedule = Query(kSchedule, {SeriesId});
        return std::string();
    });
}

std::string clResults::GetCurrentSchedule(RowSet& Schedule, int SeriesId, int& CurrentSchedule) {
    return Run("GetCurrentSchedule", Shape::Query, [&] {
        std::string remembered;
        std::string Msg = GetSetting("LastSchedule", remembered);
        if (Msg.empty())
            Msg = GetSchedule(Schedule, SeriesId);
        if (Msg.empty() && !remembered.empty())
            CurrentSchedule = RememberedId(remembered);
        return Msg;
    });
}

}  // namespace tb
