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
struct EntryClassCol {
    enum : std::size_t {
        ClassId,
        Entrants,
        Starters,
        Title,
        SubseriesTitle,
        RaceName,
        RaceDate,
        Started,
        ClassName,
        Header,
        Comment,
        TopNote,
        Footnote,
        SubName,
        SeriesId,
        Reference,
        Description
    };
};
// The report reads the race date, start and titles of either kind of class rows alike.
static_assert(std::size_t{EntryClassCol::Footnote} == clResults::RaceClassCol::Footnote &&
              std::size_t{EntryClassCol::Title} == clResults::RaceClassCol::Title &&
              std::size_t{EntryClassCol::Started} == clResults::RaceClassCol::Started);

// The entry query: each boat entered in the race with the highest handicap of its class's type
// valid on the race date (a boat without a model still listed), then, with the TCF 9.999, each
// boat that has none (a boat without a model left out); by class, highest TCF first, then name.
// Jet's "Firstname & ' ' & Lastname" treats a Null name as empty.
std::string EntryRowsSql(const std::string& entrantFilter) {
    const std::string columns = R"sql(
       Boat.BoatName, BoatType.Model, Boat.FullSailNo,
       CASE WHEN Entrant.NameOnResults IS NULL
            THEN coalesce(People.Firstname, '') || ' ' || coalesce(People.Lastname, '')
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

struct EntryRowCol {
    enum : std::size_t {
        ClassId,
        Tcf,
        BoatName,
        Model,
        FullSailNo,
        EntrantName,
        EntrantType,
        SailNo,
        Draft,
        LOA
    };
};

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
        ClassRows(EntryClassCol::Header, 0) = Value(header);
        ClassRows(EntryClassCol::Comment, 0) = Value(comment);
        switch (Option) {
            case 0:
                ClassRows(EntryClassCol::SubseriesTitle, 0) = Value("Series competitors only");
                break;
            case 1:
                ClassRows(EntryClassCol::SubseriesTitle, 0) = Value(
                    ToText(ClassRows(EntryClassCol::SubseriesTitle, 0)) + " competitors only");
                break;
            default:
                ClassRows(EntryClassCol::SubseriesTitle, 0) = Value("All competitors");
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
              Attribute("Organisation", ClassRows(EntryClassCol::Header, 0)) +
              Attribute("Series", ClassRows(EntryClassCol::Title, 0)) +
              Attribute("SubSeries", ClassRows(EntryClassCol::SubName, 0)) +
              Attribute("Race", ClassRows(EntryClassCol::RaceName, 0)) +
              Attribute("RaceId", ClassRows(EntryClassCol::Reference, 0)) +
              Attribute("Year", Value(Format(ClassRows(EntryClassCol::RaceDate, 0), "yyyy"))) +
              Attribute("ScheduleDate",
                        Value(Format(ClassRows(EntryClassCol::RaceDate, 0), "dd mmm yyyy"))) +
              HeaderAttributes(Option, Letter);
        for (std::size_t i = 0; i < ClassRows.Rows(); ++i) {
            const Value& classId = ClassRows(EntryClassCol::ClassId, i);
            Xml += "<ClassList" + Attribute("Class", ClassRows(EntryClassCol::ClassName, i)) +
                   Attribute("HandicapType", ClassRows(EntryClassCol::Description, i)) +
                   Attribute("ClassId", classId) +
                   Attribute("href",
                             Value(ClassLink(ToText(ClassRows(EntryClassCol::ClassName, i))))) +
                   Attribute("Title", ClassRows(EntryClassCol::SubseriesTitle, i)) + ">";
            for (std::size_t j = 0; j < EntryRows.Rows(); ++j) {
                if (EntryRows(EntryRowCol::ClassId, j) != classId)
                    continue;
                Xml += "<Entry BoatName= " + AttributeValue(EntryRows(EntryRowCol::BoatName, j)) +
                       Attribute("BoatType", EntryRows(EntryRowCol::Model, j)) +
                       Attribute("SailNo", EntryRows(EntryRowCol::SailNo, j)) +
                       Attribute("FullSailNo", EntryRows(EntryRowCol::FullSailNo, j)) +
                       Attribute("Entrant", EntryRows(EntryRowCol::EntrantName, j)) +
                       Attribute("SeriesEntrant", EntryRows(EntryRowCol::EntrantType, j)) +
                       Attribute("TCF", Value(Format(EntryRows(EntryRowCol::Tcf, j), "0.000"))) +
                       Attribute("Draft", Value(Format(EntryRows(EntryRowCol::Draft, j), "0.0"))) +
                       Attribute("LOA", Value(Format(EntryRows(EntryRowCol::LOA, j), "0.0"))) +
                       "/>" + kCrLf;
            }
            Xml += std::string(kCrLf) + "</ClassList>" + kCrLf;
        }
        Xml += "<RaceFootNote></RaceFootNote></RaceEntries>";
        return std::string();
    });
}

}  // namespace tb
