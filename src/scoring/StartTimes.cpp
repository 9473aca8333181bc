#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {

// A start for each class of the series that has none in the race, not yet started, with the
// default comment and footnote.
constexpr const char* kAddMissingStarts = R"sql(
INSERT INTO Start (Schedule, Class, StartTime, TopNote, Footnote)
SELECT ?1, Class.Id, NULL, ?2, ?3
FROM Class
WHERE Class.Series = ?4
  AND NOT EXISTS (SELECT 1 FROM Start WHERE Start.Class = Class.Id AND Start.Schedule = ?1)
ORDER BY Class.Id)sql";

constexpr const char* kStartTimes = R"sql(
SELECT Class.Series, Class.Id AS ClassId, Start.Id AS RaceId, Class.ClassName, Start.StartTime,
       Start.Schedule, Start.TopNote, Start.Footnote AS FootNote, Schedule.RaceDate
FROM Class
JOIN Start ON Class.Id = Start.Class
JOIN Schedule ON Start.Schedule = Schedule.Id
WHERE Class.Series = ?1 AND Start.Schedule = ?2
ORDER BY Class.ClassName, Class.Id)sql";

constexpr const char* kEntrantStart = R"sql(
SELECT Class.ClassName, Start.StartTime, Start.Schedule, Start.Id
FROM Class
JOIN Start ON Class.Id = Start.Class
JOIN Entrant ON Class.Id = Entrant.Class
WHERE Entrant.Id = ?1 AND Start.Schedule = ?2)sql";

// The class alone, for an entrant whose class has not started in the race.
constexpr const char* kEntrantClass = R"sql(
SELECT Class.ClassName, '', '', 0
FROM Class JOIN Entrant ON Class.Id = Entrant.Class
WHERE Entrant.Id = ?1)sql";

constexpr const char* kPutStart =
    "UPDATE Start SET StartTime = ?1, TopNote = ?2, Footnote = ?3 WHERE Id = ?4";

Value TextOrNull(const std::string& text) {
    return text.empty() ? Value() : Value(text);
}

}  // namespace

std::string clResults::GetStartTimes(int SeriesId, int RaceId, RowSet& Rows) {
    return Run("GetStartTimes", Shape::Write, [&] {
        std::string comment;
        std::string footnote;
        std::string Msg = GetSetting("Comment", comment);
        if (Msg.empty())
            Msg = GetSetting("Footnote", footnote);
        if (!Msg.empty())
            return Msg;
        Execute(kAddMissingStarts, {RaceId, TextOrNull(comment), TextOrNull(footnote), SeriesId});
        RowSet found = Query(kStartTimes, {SeriesId, RaceId});
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::GetStartTimeForEntrant(int RaceId, int EntrantId, RowSet& Row) {
    Row = RowSet(EntrantStartCol::Count, 1);
    return Run("GetStartTimeForEntrant", Shape::Query, [&] {
        RowSet found = Query(kEntrantStart, {EntrantId, RaceId});
        if (!found.IsEmpty())
            Row = std::move(found);
        if (!Row(EntrantStartCol::StartTime, 0).IsDate()) {
            found = Query(kEntrantClass, {EntrantId});
            if (!found.IsEmpty())
                Row = std::move(found);
        }
        return std::string();
    });
}

std::string clResults::PutStartTime(int StartId, const Value& StartTime, const std::string& TopNote,
                                    const std::string& Footnote) {
    return Run("PutStartTime", Shape::Store, [&] {
        const Value start = StartTime.IsNull() ? Value() : Value(StartTime.AsDate());
        if (Execute(kPutStart, {start, TextOrNull(TopNote), TextOrNull(Footnote), StartId}) == 0)
            throw RunTimeFault::NoCurrentRecord();
        return std::string();
    });
}

}  // namespace tb
