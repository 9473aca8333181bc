// The report texts byte for byte on a small series, and the rules every report text follows.

#include <gtest/gtest.h>

#include <initializer_list>

#include "data/Conversions.h"
#include "reports/ReportFixture.h"
#include "reports/ReportXmlRules.h"

namespace tb {
namespace {

using test::ReadFile;
using test::ReportFixture;
using test::WithoutReportTime;

std::string Crlf(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

// Entry list by handicap of every entrant: the first class carries the selection title, later
// ones the sub-series title; Gull (TCF 1.05) heads Class 1.
const std::string kEntryListAllCompetitors = Crlf({
    R"(<?xml version="1.0" ?>)",
    R"(<RaceEntries Organisation="Riverside &#38; District &#34;SC&#34;" Series="Summer" SubSeries="Evenings" Race="Race 2" RaceId="R2" Year="2024" ScheduleDate="22 Jun 2024" ReportDate="" ReportTime="" ReportType="EntryListByHandicap" Entrants="All"><ClassList Class="Class 1" HandicapType="Club" ClassId="1" href="class1" Title="All competitors"><Entry BoatName= "Gull" BoatType="Laser" SailNo="2" FullSailNo="GBR 2" Entrant="Jo &#34;Skip&#34; O'Hara" SeriesEntrant="*" TCF="1.050" Draft="0.8" LOA="4.2"/>)",
    R"(<Entry BoatName= "Fish &#38; Chips" BoatType="Laser" SailNo="1" FullSailNo="GBR 1" Entrant="Helm No1" SeriesEntrant="*#" TCF="1.000" Draft="0.8" LOA="4.2"/>)",
    R"(<Entry BoatName= "Tern" BoatType="Laser" SailNo="3" FullSailNo="GBR 3" Entrant="Helm No3" SeriesEntrant="*#" TCF="0.950" Draft="0.8" LOA="4.2"/>)",
    R"()",
    R"(</ClassList>)",
    R"(<ClassList Class="Fleet" HandicapType="Club" ClassId="3" href="" Title="Evenings"><Entry BoatName= "Lonely" BoatType="Laser" SailNo="6" FullSailNo="GBR 6" Entrant="Helm No6" SeriesEntrant="*#" TCF="1.000" Draft="0.8" LOA="4.2"/>)",
    R"()",
    R"(</ClassList>)",
    R"(<ClassList Class="Multihull" HandicapType="Club" ClassId="2" href="classmultihulls" Title="Evenings"><Entry BoatName= "Cat &#60;One&#62;" BoatType="Laser" SailNo="4" FullSailNo="GBR 4" Entrant="Helm No4" SeriesEntrant="#" TCF="1.200" Draft="0.8" LOA="4.2"/>)",
    R"(<Entry BoatName= "Cat Two" BoatType="Laser" SailNo="5" FullSailNo="GBR 5" Entrant="Helm No5" SeriesEntrant="*#" TCF="1.000" Draft="0.8" LOA="4.2"/>)",
    R"()",
    R"(</ClassList>)",
    R"(<RaceFootNote></RaceFootNote></RaceEntries>)",
});

// Race results of the series entrants: the sub-series boat Cat <One> is left out, Fleet did
// not start, Tern retired with a penalty and a note, the class footnote is raw.
const std::string kRaceResultsSeriesEntrants = Crlf({
    R"(<?xml version="1.0" ?>)",
    R"(<RaceResults Organisation="Riverside &#38; District &#34;SC&#34;" Series="Summer" Race="Race 2" RaceId="R2" Year="2024" ScheduleDate="22 Jun 2024" Mode="1" ReportDate="" ReportTime="" ReportType="RaceResults" Entrants="Series"><ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Class 1" ClassId="1" href="class1" Title="Series entrants" SubTitle="" Comment="Course 2"><Result BoatName= "Gull" BoatType="Laser" SailNo="GBR 2" Skipper="Jo &#34;Skip&#34; O'Hara" TCF="1.050" Finish="22 Jun 2024 10:56:40" Elapsed="0:56:40" Corrected="0:59:30" Position="1" Points="1" Status="" Notes=""/>)",
    R"(<Result BoatName= "Fish &#38; Chips" BoatType="Laser" SailNo="GBR 1" Skipper="Helm No1" TCF="1.000" Finish="22 Jun 2024 11:00:00" Elapsed="1:00:00" Corrected="1:00:00" Position="2" Points="2" Status="" Notes=""/>)",
    R"(<Result BoatName= "Tern" BoatType="Laser" SailNo="GBR 3" Skipper="Helm No3" TCF="0.950" Finish="-" Elapsed="-" Corrected="-" Position="3" Points="4" Status="DNF" Notes="DNF +5min Hit mark"/>)",
    R"(<ClassFootNote>See <b>notice</b></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="" StartTime="" Class="Fleet" ClassId="3" href="" Title="Series entrants" SubTitle="" Comment=""><ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Multihull" ClassId="2" href="classmultihulls" Title="Series entrants" SubTitle="" Comment=""><Result BoatName= "Cat Two" BoatType="Laser" SailNo="GBR 5" Skipper="Helm No5" TCF="1.000" Finish="22 Jun 2024 11:01:40" Elapsed="1:01:40" Corrected="1:01:40" Position="1" Points="1" Status="" Notes=""/>)",
    R"(<ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<RaceFootNote></RaceFootNote></RaceResults>)",
});

// Series standings of the series entrants after two races with one discard: Fleet ran one race
// and discards nothing.
const std::string kSeriesResultsSeriesEntrants = Crlf({
    R"(<?xml version="1.0" ?>)",
    R"(<RaceResults Organisation="Riverside &#38; District &#34;SC&#34;" Series="Summer" Race="Race 2" RaceId="R2" Year="2024" ScheduleDate="22 Jun 2024" Mode="1" ReportDate="" ReportTime="" ReportType="SeriesResults" Entrants="Series"><ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Class 1" ClassId="1" href="class1" Title="Series entrants points overall - discards marked *" SubTitle="" Comment="Course 2"><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<Race Date="22/06/2024" Name="Race 2"/>)",
    R"(<SeriesResult BoatName="Gull" SailNo="GBR 2" Position="1" Points="1">)",
    R"(<Score Pts="3*"/>)",
    R"(<Score Pts="1"/>)",
    R"(</SeriesResult>)",
    R"(<SeriesResult BoatName="Tern" SailNo="GBR 3" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(<Score Pts="4*"/>)",
    R"(</SeriesResult>)",
    R"(<SeriesResult BoatName="Fish &#38; Chips" SailNo="GBR 1" Position="3" Points="2">)",
    R"(<Score Pts="2"/>)",
    R"(<Score Pts="2*"/>)",
    R"(</SeriesResult>)",
    R"(<ClassFootNote>See <b>notice</b></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="" StartTime="" Class="Fleet" ClassId="3" href="" Title="Series entrants points overall" SubTitle="" Comment=""><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<SeriesResult BoatName="Lonely" SailNo="GBR 6" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(</SeriesResult>)",
    R"(<ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Multihull" ClassId="2" href="classmultihulls" Title="Series entrants points overall - discards marked *" SubTitle="" Comment=""><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<Race Date="22/06/2024" Name="Race 2"/>)",
    R"(<SeriesResult BoatName="Cat Two" SailNo="GBR 5" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(<Score Pts="1*"/>)",
    R"(</SeriesResult>)",
    R"(<ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<RaceFootNote></RaceFootNote></RaceResults>)",
});

// Race and series results of every entrant: standings first, then the race, in each class.
const std::string kCombinedResultsAllEntrants = Crlf({
    R"(<?xml version="1.0" ?>)",
    R"(<RaceResults Organisation="Riverside &#38; District &#34;SC&#34;" Series="Summer" Race="Race 2" RaceId="R2" Year="2024" ScheduleDate="22 Jun 2024" Mode="1" ReportDate="" ReportTime="" ReportType="CombinedResults" Entrants="All"><ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Class 1" ClassId="1" href="class1" Title="" SubTitle="Points overall - discards marked *" Comment="Course 2"><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<Race Date="22/06/2024" Name="Race 2"/>)",
    R"(<SeriesResult BoatName="Gull" SailNo="GBR 2" Position="1" Points="1">)",
    R"(<Score Pts="3*"/>)",
    R"(<Score Pts="1"/>)",
    R"(</SeriesResult>)",
    R"(<SeriesResult BoatName="Tern" SailNo="GBR 3" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(<Score Pts="4*"/>)",
    R"(</SeriesResult>)",
    R"(<SeriesResult BoatName="Fish &#38; Chips" SailNo="GBR 1" Position="3" Points="2">)",
    R"(<Score Pts="2"/>)",
    R"(<Score Pts="2*"/>)",
    R"(</SeriesResult>)",
    R"(<Result BoatName= "Gull" BoatType="Laser" SailNo="GBR 2" Skipper="Jo &#34;Skip&#34; O'Hara" TCF="1.050" Finish="22 Jun 2024 10:56:40" Elapsed="0:56:40" Corrected="0:59:30" Position="1" Points="1" Status="" Notes=""/>)",
    R"(<Result BoatName= "Fish &#38; Chips" BoatType="Laser" SailNo="GBR 1" Skipper="Helm No1" TCF="1.000" Finish="22 Jun 2024 11:00:00" Elapsed="1:00:00" Corrected="1:00:00" Position="2" Points="2" Status="" Notes=""/>)",
    R"(<Result BoatName= "Tern" BoatType="Laser" SailNo="GBR 3" Skipper="Helm No3" TCF="0.950" Finish="-" Elapsed="-" Corrected="-" Position="3" Points="4" Status="DNF" Notes="DNF +5min Hit mark"/>)",
    R"(<ClassFootNote>See <b>notice</b></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="" StartTime="" Class="Fleet" ClassId="3" href="" Title="" SubTitle="Points overall" Comment=""><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<SeriesResult BoatName="Lonely" SailNo="GBR 6" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(</SeriesResult>)",
    R"(<ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<ClassResults StartDate="22 Jun 2024" StartTime="10:00" Class="Multihull" ClassId="2" href="classmultihulls" Title="" SubTitle="Points overall - discards marked *" Comment=""><Race Date="15/06/2024" Name="Race 1"/>)",
    R"(<Race Date="22/06/2024" Name="Race 2"/>)",
    R"(<SeriesResult BoatName="Cat &#60;One&#62;" SailNo="GBR 4" Position="1" Points="1">)",
    R"(<Score Pts="2*"/>)",
    R"(<Score Pts="1"/>)",
    R"(</SeriesResult>)",
    R"(<SeriesResult BoatName="Cat Two" SailNo="GBR 5" Position="1" Points="1">)",
    R"(<Score Pts="1"/>)",
    R"(<Score Pts="2*"/>)",
    R"(</SeriesResult>)",
    R"(<Result BoatName= "Cat &#60;One&#62;" BoatType="Laser" SailNo="GBR 4" Skipper="Helm No4" TCF="1.200" Finish="22 Jun 2024 10:50:00" Elapsed="0:50:00" Corrected="1:00:00" Position="1" Points="1" Status="" Notes=""/>)",
    R"(<Result BoatName= "Cat Two" BoatType="Laser" SailNo="GBR 5" Skipper="Helm No5" TCF="1.000" Finish="22 Jun 2024 11:01:40" Elapsed="1:01:40" Corrected="1:01:40" Position="2" Points="2" Status="" Notes=""/>)",
    R"(<ClassFootNote></ClassFootNote>)",
    R"(</ClassResults>)",
    R"(<RaceFootNote></RaceFootNote></RaceResults>)",
});

class ReportXmlTest : public ReportFixture {
protected:
    // Writes the report as XML with the given entrant selection and returns its text.
    std::string Xml(char letter, int option) {
        const std::string line = "x=,,," + std::to_string(option) + ",1\n";
        UseMenu("[E]\n" + line + "[A]\n" + line + "[C]\n" + line + "[R]\n" + line + "[S]\n" + line +
                "[B]\n" + line);
        std::string path;
        EXPECT_EQ(Make(letter, path), "");
        return WithoutReportTime(ReadFile(path));
    }
};

TEST_F(ReportXmlTest, EveryReportKindIsWrittenExactly) {
    EXPECT_EQ(Xml('E', 2), kEntryListAllCompetitors);
    EXPECT_EQ(Xml('R', 0), kRaceResultsSeriesEntrants);
    EXPECT_EQ(Xml('S', 0), kSeriesResultsSeriesEntrants);
    EXPECT_EQ(Xml('B', 2), kCombinedResultsAllEntrants);
    // The other two entry lists differ from the one by handicap only in their report type.
    for (const auto& [letter, type] : {std::pair{'A', "EntryListBySailNo"}, {'C', "ClassSheet"}}) {
        std::string expected = kEntryListAllCompetitors;
        expected.replace(expected.find("EntryListByHandicap"), 19, type);
        EXPECT_EQ(Xml(letter, 2), expected) << letter;
    }
}

TEST_F(ReportXmlTest, TitlesFollowTheEntrantSelectionAndTheReportKind) {
    db.Exec("UPDATE Discards SET RacesRun = 4 WHERE RacesRun = 2");  // no discards yet
    struct Case {
        char letter;
        int option;
        const char* firstClass;
    };
    // The sub-series selection is named in the header; the others are in the fixed texts.
    EXPECT_NE(Xml('R', 1).find(R"( ReportType="RaceResults" Entrants="SubSeries">)"),
              std::string::npos);
    const Case cases[] = {
        {'R', 1, R"(Title="Evenings" SubTitle="")"},
        {'S', 1, R"(Title="Evenings points overall" SubTitle="")"},
        {'B', 1, R"(Title="Evenings" SubTitle="Evenings points overall")"},
        {'S', 2, R"(Title=" Points overall" SubTitle="")"},
        {'B', 0, R"(Title="Series entrants" SubTitle="Series entrants overall results")"},
    };
    for (const Case& c : cases) {
        const std::string xml = Xml(c.letter, c.option);
        EXPECT_NE(xml.find(std::string(R"(href="class1" )") + c.firstClass), std::string::npos)
            << c.letter << c.option << "\n"
            << xml;
    }
}

TEST_F(ReportXmlTest, SubSeriesTitleStandsInWhenTheSeriesHasNone) {
    db.Exec("UPDATE Series SET SubseriesTitle = NULL");
    const std::string xml = Xml('R', 1);
    EXPECT_NE(xml.find(R"(Class="Class 1" ClassId="1" href="class1" Title="Subseries")"),
              std::string::npos);
    EXPECT_NE(xml.find(R"(Class="Multihull" ClassId="2" href="classmultihulls" Title="Subseries")"),
              std::string::npos);
}

TEST_F(ReportXmlTest, ABoatNumberedZeroKeepsItsSeriesStanding) {
    const std::string boat = "(SELECT Boat FROM Entrant WHERE Id = " + std::to_string(fish) + ")";
    db.Exec("UPDATE Handicap SET Boat = 0 WHERE Boat = " + boat);
    db.Exec("UPDATE Boat SET Id = 0 WHERE Id = " + boat);
    db.Exec("UPDATE Entrant SET Boat = 0 WHERE Id = " + std::to_string(fish));
    const std::string xml = Xml('S', 0);
    EXPECT_NE(xml.find(R"(<SeriesResult BoatName="Fish &#38; Chips" SailNo="GBR 1")"),
              std::string::npos)
        << xml;
}

TEST(ReportXmlRules, AttributeValuesReplaceTheFourMarkupCharactersAndDropWhatXmlCannotHold) {
    struct Case {
        Value value;
        const char* written;
    };
    const Case cases[] = {
        {Value("Fish & Chips"), R"("Fish &#38; Chips")"},
        {Value(R"(The "Boat")"), R"("The &#34;Boat&#34;")"},
        {Value("<b>x</b>"), R"("&#60;b&#62;x&#60;/b&#62;")"},
        {Value("O'Hara & Söhne"), R"("O'Hara &#38; Söhne")"},
        {Value(), R"("")"},
        {Value(4080.0), R"("4080")"},
        {Value(0.985), R"("0.985")"},
        {Value(MakeDateTime(2024, 6, 15)), R"("15/06/2024")"},
        {Value(MakeDateTime(2024, 6, 15, 14, 5, 9)), R"("15/06/2024 14:05:09")"},
        {Value("Tab\tand\r\nbreak"), "\"Tab\tand\r\nbreak\""},
        {Value(std::string("Bell\x07, nul\0 and escape\x1B", 23)), R"("Bell, nul and escape")"},
        {Value("Not\xEF\xBF\xBE a\xEF\xBF\xBF letter \xEF\xBF\xBD"),
         "\"Not a letter \xEF\xBF\xBD\""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(AttributeValue(c.value), c.written) << c.written;
}

TEST(ReportXmlRules, PenaltyNotes) {
    struct Case {
        std::vector<std::pair<Value, const char*>> penalties;
        const char* note;
    };
    const Case cases[] = {
        {{{Value(10.0), "min"}, {Value(20.0), "%"}}, "+10min +20%"},
        {{{Value(5.0), "min"}}, "+5min"},
        {{{Value(2.5), "pl"}}, "+2.5pl"},
        {{{Value(1.25), "%"}}, "+1.25%"},
        {{{Value(0.0), "min"}, {Value(), "%"}, {Value(3.0), "pl"}}, "+3pl"},
        {{{Value(-2.0), "pl"}}, " -2pl"},
    };
    for (const Case& c : cases) {
        std::string note;
        for (const auto& [value, unit] : c.penalties)
            AppendPenaltyNote(value, unit, note);
        EXPECT_EQ(note, c.note);
    }
}

TEST(ReportXmlRules, ClassLinksComeFromTheSeventhCharacter) {
    const std::pair<const char*, const char*> cases[] = {
        {"Class 2", "class2"}, {"Class 4 fast", "class4"},
        {"Clåss 3", "class3"}, {"Class 5", ""},
        {"Class 0", ""},       {"Multihull", "classmultihulls"},
        {"Fleet", ""},         {"Class ", ""},
        {"Dinghies", ""},
    };
    for (const auto& [name, link] : cases)
        EXPECT_EQ(ClassLink(name), link) << name;
}

}  // namespace
}  // namespace tb
