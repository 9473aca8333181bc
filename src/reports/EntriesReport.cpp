#include "data/Conversions.h"
#include "data/clResults.h"
#include "reports/ReportXmlRules.h"
#include "scoring/ScopeFilters.h"

namespace tb {

namespace {

// SELECT Class.Id, 0 AS Entrants, 0 AS Starters, Series.Title, Series.SubseriesTitle,
// Schedule.RaceName, Schedule.RaceDate, '' AS Started, Class.ClassName, '' AS Header, '' AS
// Comment, '' AS TopNote, '' AS Footnote, Series.SubseriesTitle AS SubName, Series.Id AS SeriesId,
// Schedule.Reference AS ScheduleId, HandicapType.Description FROM ((Series INNER JOIN Schedule ON
// Series.Id = Schedule.Series) INNER JOIN Class ON Series.Id = Class.Series) INNER JOIN
// HandicapType ON Class.HandicapType = HandicapType.Id WHERE Schedule.Id=<race> ORDER BY
// Class.ClassName;
constexpr const char* kEntryClassRows = R"sql(
SELECT Class.Id, 0 AS Entrants, 0 AS Starters, Series.Title, Series.SubseriesTitle,
       Schedule.RaceName, Schedule.RaceDate, '' AS Started, Class.ClassName, '' AS Header,
       '' AS Comment, '' AS TopNote, '' AS Footnote, Series.SubseriesTitle AS SubName,
       Series.Id AS SeriesId, Schedule.Reference AS ScheduleId, HandicapType.Description
FROM Series
JOIN Schedule ON Series.Id = Schedule.Series
JOIN Class ON Series.Id = Class.Series
JOIN HandicapType ON Class.HandicapType = HandicapType.Id
WHERE Schedule.Id = ?1
ORDER BY Class.ClassName)sql";

// The entry query: each boat entered in the race with the highest handicap of its class's type
// valid on the race date (a boat without a model still listed), then, with the TCF 9.999, each
// boat that has none (a boat without a model left out); by class, highest TCF first, then name.
// Jet's "Firstname & ' ' & Lastname" treats a Null name as empty.
std::string EntryRowsSql(const std::string& entrantFilter) {
    const std::string columns = R"sql(
       Boat.BoatName, BoatType.Model, Boat.FullSailNo,
       CASE WHEN Entrant.NameOnResults IS NULL
            THEN ifnull(People.Firstname, '') || ' ' || ifnull(People.Lastname, '')
            ELSE Entrant.NameOnResults END AS EntrantName,
       CASE WHEN Entrant.EntrantType IN (0, 3) THEN '*' ELSE '' END ||
       CASE WHEN Entrant.EntrantType < 2 THEN '#' ELSE '' END AS EntrantType,
       Boat.SailNo, BoatType.Draft, BoatType.LOA)sql";
    const std::string groupBy = R"sql(
GROUP BY Entrant.Class, Boat.BoatName, BoatType.Model, Boat.FullSailNo, Entrant.EntrantType,
         People.Firstname, People.Lastname, Entrant.NameOnResults, Boat.SailNo, BoatType.Draft,
         BoatType.LOA)sql";
    return "SELECT Entrant.Class, max(Handicap.Handicap) AS Tcf," + columns + R"sql(
FROM EntryList
JOIN Entrant ON EntryList.Entrant = Entrant.Id
JOIN Handicap ON Entrant.Boat = Handicap.Boat
JOIN Schedule ON EntryList.Schedule = Schedule.Id
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN People ON People.Id = Entrant.Entrant
LEFT JOIN BoatType ON BoatType.Id = Boat.BoatType
JOIN Class ON Class.HandicapType = Handicap.HandicapType AND Class.Id = Entrant.Class
WHERE EntryList.Schedule = ?1)sql" +
           entrantFilter + R"sql(
  AND Handicap.EffectiveFrom <= Schedule.RaceDate
  AND (Handicap.Expires IS NULL OR Handicap.Expires >= Schedule.RaceDate))sql" +
           groupBy + R"sql(
UNION ALL
SELECT Entrant.Class, 9.999 AS Tcf,)sql" +
           columns + R"sql(
FROM EntryList
JOIN Entrant ON EntryList.Entrant = Entrant.Id
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN People ON People.Id = Entrant.Entrant
JOIN BoatType ON BoatType.Id = Boat.BoatType
JOIN Schedule ON Schedule.Id = EntryList.Schedule
JOIN Class ON Class.Id = Entrant.Class
WHERE EntryList.Schedule = ?1)sql" +
           entrantFilter + R"sql(
  AND NOT EXISTS (SELECT 1 FROM Handicap
                  WHERE Handicap.Boat = Entrant.Boat AND Handicap.HandicapType = Class.HandicapType
                    AND Handicap.EffectiveFrom <= Schedule.RaceDate
                    AND (Handicap.Expires IS NULL OR Handicap.Expires >= Schedule.RaceDate)))sql" +
           groupBy + R"sql(
ORDER BY 1, 2 DESC, 3)sql";
}

std::string Attribute(const char* name, const Value& value) {
    return std::string(" ") + name + "=" + AttributeValue(value);
}

}  // namespace

std::string clResults::ReportEntries(int RaceId, short Option, RowSet& ClassRows,
                                     const std::string& Letter, std::string& Xml) {
    return Run("ReportEntries", Shape::Query, [&] {
        ClassRows = Query(kEntryClassRows, {RaceId});
        if (ClassRows.IsEmpty())
            return std::string("I-No schedule or class was found for this race");
        std::string header;
        std::string comment;
        std::string Msg = GetSetting("Header", header);
        if (Msg.empty())
            Msg = GetSetting("Comment", comment);
        if (!Msg.empty())
            return Msg;
        ClassRows(9, 0) = Value(header);
        ClassRows(10, 0) = Value(comment);
        switch (Option) {
            case 0:
                ClassRows(4, 0) = Value("Series competitors only");
                break;
            case 1:
                ClassRows(4, 0) = Value(ToText(ClassRows(4, 0)) + " competitors only");
                break;
            default:
                ClassRows(4, 0) = Value("All competitors");
                break;
        }
        const RowSet entries = Query(EntryRowsSql(EntrantTypeFilter(Option)), {RaceId});
        if (entries.IsEmpty())
            return std::string("I-No entrants were found for this race");
        return ReportEntriesXML(Option, Letter, ClassRows, entries, Xml);
    });
}

std::string clResults::ReportEntriesXML(short Option, const std::string& Letter,
                                        const RowSet& ClassRows, const RowSet& EntryRows,
                                        std::string& Xml) {
    return RunWriter("ReportEntriesXML", [&] {
        Xml = std::string(kXmlDeclaration) + kCrLf + "<RaceEntries" +
              Attribute("Organisation", ClassRows(9, 0)) + Attribute("Series", ClassRows(3, 0)) +
              Attribute("SubSeries", ClassRows(13, 0)) + Attribute("Race", ClassRows(5, 0)) +
              Attribute("RaceId", ClassRows(15, 0)) +
              Attribute("Year", Value(Format(ClassRows(6, 0), "yyyy"))) +
              Attribute("ScheduleDate", Value(Format(ClassRows(6, 0), "dd mmm yyyy"))) +
              HeaderAttributes(Option, Letter);
        for (std::size_t i = 0; i < ClassRows.Rows(); ++i) {
            const Value& classId = ClassRows(0, i);
            Xml += "<ClassList" + Attribute("Class", ClassRows(8, i)) +
                   Attribute("HandicapType", ClassRows(16, i)) + Attribute("ClassId", classId) +
                   Attribute("href", Value(ClassLink(ToText(ClassRows(8, i))))) +
                   Attribute("Title", ClassRows(4, i)) + ">";
            for (std::size_t j = 0; j < EntryRows.Rows(); ++j) {
                if (EntryRows(0, j) != classId)
                    continue;
                Xml += "<Entry BoatName= " + AttributeValue(EntryRows(2, j)) +
                       Attribute("BoatType", EntryRows(3, j)) +
                       Attribute("SailNo", EntryRows(7, j)) +
                       Attribute("FullSailNo", EntryRows(4, j)) +
                       Attribute("Entrant", EntryRows(5, j)) +
                       Attribute("SeriesEntrant", EntryRows(6, j)) +
                       Attribute("TCF", Value(Format(EntryRows(1, j), "0.000"))) +
                       Attribute("Draft", Value(Format(EntryRows(8, j), "0.0"))) +
                       Attribute("LOA", Value(Format(EntryRows(9, j), "0.0"))) + "/>" + kCrLf;
            }
            Xml += std::string(kCrLf) + "</ClassList>" + kCrLf;
        }
        Xml += "<RaceFootNote></RaceFootNote></RaceEntries>";
        return std::string();
    });
}

}  // namespace tb
