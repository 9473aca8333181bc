#include <cmath>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "reports/ReportXmlRules.h"

namespace tb {

namespace {

// The class's number of discards in effect; a class the series computation did not list has none.
long long DiscardsOfClass(const RowSet& SeriesPointsRows, const Value& classId) {
    for (std::size_t r = 0; !SeriesPointsRows.IsEmpty() && r < SeriesPointsRows.Rows(); ++r) {
        if (SeriesPointsRows(clResults::DiscardsCol::ClassId, r) == classId)
            return SeriesPointsRows(clResults::DiscardsCol::Discards, r).AsInt();
    }
    return 0;
}

std::string Attribute(const char* name, const Value& value) {
    return std::string(" ") + name + "=" + AttributeValue(value);
}

std::string ResultElement(const RowSet& rows, std::size_t j) {
    std::string notes;
    AppendPenaltyNote(rows(clResults::RaceBoatCol::PenaltyMins, j), "min", notes);
    AppendPenaltyNote(rows(clResults::RaceBoatCol::PenaltyPercent, j), "%", notes);
    AppendPenaltyNote(rows(clResults::RaceBoatCol::PenaltyPoints, j), "pl", notes);
    const std::string status = ToText(rows(clResults::RaceBoatCol::Status, j));
    if (!status.empty())
        notes = status + " " + notes;
    const std::string note = ToText(rows(clResults::RaceBoatCol::Notes, j));
    if (!note.empty())
        notes = notes + " " + note;
    const Value points(std::fabs(rows(clResults::RaceBoatCol::Points, j).AsDouble()));

    return "<Result BoatName= " + AttributeValue(rows(clResults::RaceBoatCol::BoatName, j)) +
           Attribute("BoatType", rows(clResults::RaceBoatCol::Model, j)) +
           Attribute("SailNo", rows(clResults::RaceBoatCol::FullSailNo, j)) +
           Attribute("Skipper", rows(clResults::RaceBoatCol::Owner, j)) +
           Attribute("TCF", Value(Format(rows(clResults::RaceBoatCol::Handicap, j), "0.000"))) +
           Attribute("Finish", Value(Format(rows(clResults::RaceBoatCol::Finished, j),
                                            "dd mmm yyyy hh:nn:ss"))) +
           Attribute("Elapsed", rows(clResults::RaceBoatCol::Elapsed, j)) +
           Attribute("Corrected", rows(clResults::RaceBoatCol::Corrected, j)) +
           Attribute("Position", rows(clResults::RaceBoatCol::Position, j)) +
           Attribute("Points", points) +
           Attribute("Status", rows(clResults::RaceBoatCol::Status, j)) +
           Attribute("Notes", Value(notes)) + "/>" + kCrLf;
}

}  // namespace

std::string clResults::ReportRaceResults(short Option, const std::string& Letter, int Viewer,
                                         RowSet& ClassRows, const RowSet& ResultRows,
                                         const RowSet& CumulativeRows,
                                         const RowSet& SeriesPointsRows, std::string& Xml) {
    return RunWriter("ReportRaceResults", [&] {
        for (std::size_t i = 0; i < ClassRows.Rows(); ++i) {
            Value& title = ClassRows(RaceClassCol::SubseriesTitle, i);
            Value& subTitle = ClassRows(RaceClassCol::CumulativeTitle, i);
            switch (Option) {
                case 0:
                    title = Value("Series entrants");
                    subTitle = Value("Series entrants overall results");
                    break;
                case 1:
                    if (i == 0 && ToText(title).empty())
                        title = Value("Subseries");
                    if (i > 0)
                        title = ClassRows(RaceClassCol::SubseriesTitle, 0);
                    subTitle = Value(ToText(ClassRows(RaceClassCol::SubseriesTitle, 0)) +
                                     " points overall");
                    break;
                default:
                    title = Value(std::string());
                    subTitle = Value("Points overall");
                    break;
            }
            const bool discarding =
                DiscardsOfClass(SeriesPointsRows, ClassRows(RaceClassCol::ClassId, i)) > 0;
            if (Letter == "B" && discarding)
                subTitle = Value(ToText(subTitle) + " - discards marked *");
            if (Letter == "S") {
                const std::string text = ToText(title);
                title = Value(text + (text.empty() ? " Points overall" : " points overall"));
                if (discarding)
                    title = Value(ToText(title) + " - discards marked *");
            }
            if (Letter != "B")
                subTitle = Value(std::string());
        }
        return ReportXML(Option, Letter, Viewer, ClassRows, ResultRows, CumulativeRows, Xml);
    });
}

std::string clResults::ReportXML(short Option, const std::string& Letter, int Viewer,
                                 const RowSet& ClassRows, const RowSet& ResultRows,
                                 const RowSet& CumulativeRows, std::string& Xml) {
    return RunWriter("ReportXML", [&] {
        std::string Msg;
        Xml = std::string(kXmlDeclaration) + kCrLf + "<RaceResults" +
              Attribute("Organisation", ClassRows(RaceClassCol::Header, 0)) +
              Attribute("Series", ClassRows(RaceClassCol::Title, 0)) +
              Attribute("Race", ClassRows(RaceClassCol::RaceName, 0)) +
              Attribute("RaceId", ClassRows(RaceClassCol::Reference, 0)) +
              Attribute("Year", Value(Format(ClassRows(RaceClassCol::RaceDate, 0), "yyyy"))) +
              Attribute("ScheduleDate",
                        Value(Format(ClassRows(RaceClassCol::RaceDate, 0), "dd mmm yyyy"))) +
              Attribute("Mode", Value(Viewer)) + HeaderAttributes(Option, Letter);

        for (std::size_t i = 0; i < ClassRows.Rows(); ++i) {
            const Value& classId = ClassRows(RaceClassCol::ClassId, i);
            const Value& started = ClassRows(RaceClassCol::Started, i);
            const std::string className = ToText(ClassRows(RaceClassCol::ClassName, i));
            Xml += "<ClassResults" + Attribute("StartDate", Value(Format(started, "dd mmm yyyy"))) +
                   Attribute("StartTime", Value(Format(started, "hh:mm"))) +
                   Attribute("Class", ClassRows(RaceClassCol::ClassName, i)) +
                   Attribute("ClassId", classId) + Attribute("href", Value(ClassLink(className))) +
                   Attribute("Title", ClassRows(RaceClassCol::SubseriesTitle, i)) +
                   Attribute("SubTitle", ClassRows(RaceClassCol::CumulativeTitle, i)) +
                   Attribute("Comment", ClassRows(RaceClassCol::TopNote, i)) + ">";

            // A class whose standings failed stops the standings of every later class too.
            if (Letter != "R" && Msg.empty()) {
                std::string standings;
                Msg = ReportSeriesXML(classId.AsInt(), CumulativeRows, standings);
                if (Msg.empty())
                    Xml += standings;
            }
            if (Letter != "S" && !ToText(started).empty()) {
                for (std::size_t j = 0; !ResultRows.IsEmpty() && j < ResultRows.Rows(); ++j) {
                    if (ResultRows(RaceBoatCol::ClassId, j) == classId)
                        Xml += ResultElement(ResultRows, j);
                }
            }
            Xml += "<ClassFootNote>" +
                   FootnoteContent(ToText(ClassRows(RaceClassCol::Footnote, i))) +
                   "</ClassFootNote>" + kCrLf + "</ClassResults>" + kCrLf;
        }
        Xml += "<RaceFootNote></RaceFootNote></RaceResults>";
        return Msg;
    });
}

std::string clResults::ReportSeriesXML(long long ClassId, const RowSet& CumulativeRows,
                                       std::string& Xml) {
    return RunWriter("ReportSeriesXML", [&] {
        std::string races;
        std::string standings;
        long long currentBoat = 0;
        int boatsSeen = 0;
        for (std::size_t r = 0; !CumulativeRows.IsEmpty() && r < CumulativeRows.Rows(); ++r) {
            if (CumulativeRows(StandingsCol::ClassId, r).AsInt() != ClassId)
                continue;
            const long long boat = CumulativeRows(StandingsCol::BoatId, r).AsInt();
            // A standing starts at the class's first row whatever the boat's number, 0 included.
            if (boatsSeen == 0 || boat != currentBoat) {
                if (boatsSeen > 0)
                    standings += std::string("</SeriesResult>") + kCrLf;
                // Totals carry a tiny tie-break fraction: within 0.1 of a whole number they
                // read as that number.
                const double total = CumulativeRows(StandingsCol::Total, r).AsDouble();
                const double whole = RoundHalfEven(total);
                const std::string points = std::fabs(total - whole) > 0.1
                                               ? FormatNumber(total, "0.0")
                                               : NumberToText(whole);
                standings +=
                    "<SeriesResult BoatName=" +
                    AttributeValue(CumulativeRows(StandingsCol::BoatName, r)) +
                    " SailNo=" + AttributeValue(CumulativeRows(StandingsCol::FullSailNo, r)) +
                    " Position=" + AttributeValue(CumulativeRows(StandingsCol::Position, r)) +
                    " Points=" + AttributeValue(Value(points)) + ">" + kCrLf;
                currentBoat = boat;
                ++boatsSeen;
            }
            // One cell per boat and race: appended piece by piece, with no text in between.
            standings += "<Score Pts=";
            standings += AttributeValue(CumulativeRows(StandingsCol::Points, r));
            standings += "/>";
            standings += kCrLf;
            if (boatsSeen == 1) {
                races += "<Race Date=" + AttributeValue(CumulativeRows(StandingsCol::RaceDate, r)) +
                         " Name=" + AttributeValue(CumulativeRows(StandingsCol::RaceName, r)) +
                         "/>" + kCrLf;
            }
        }
        if (boatsSeen > 0)
            standings += std::string("</SeriesResult>") + kCrLf;
        Xml = races + standings;
        return std::string();
    });
}

}  // namespace tb
