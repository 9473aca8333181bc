// The report texts byte for byte on a small series, and the rules every report text follows.

#include <gtest/gtest.h>

#include <initializer_list>

#include "data/Conversions.h"
#include "reports/ReportFixture.h"
#include "reports/ReportXmlRules.h"
#include "support/Checks.h"

namespace tb {
namespace {

using test::ReadFile;
using test::ReportFixture;
using test::WithoutReportTime;

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

    // What other programs and careless typing leave in a club's file: helms without a first or
    // a family name, a boat without a model, an entrant of type 2, a boat name in lower case
    // rated like another, a race in the sub-series stored as -1, a tie that shares the points
    // (a fractional total) and a corrected time of an exact half second (4252.5 s).
    void AddOddities() {
        const std::string boatOf = "(SELECT Boat FROM Entrant WHERE Id = ";
        const std::string helmOf = "(SELECT Entrant FROM Entrant WHERE Id = ";
        db.Exec("UPDATE People SET Firstname = NULL WHERE Id = " + helmOf + std::to_string(fish) +
                ")");
        db.Exec("UPDATE People SET Lastname = NULL WHERE Id = " + helmOf + std::to_string(tern) +
                ")");
        db.Exec("UPDATE Boat SET BoatType = NULL WHERE Id = " + boatOf + std::to_string(catTwo) +
                ")");
        db.Exec("UPDATE Entrant SET EntrantType = 2 WHERE Id = " + std::to_string(lonely));
        db.Exec("UPDATE Schedule SET InSubSeries = -1 WHERE Id = " + std::to_string(race2));
        const int apple = season.AddEntrant("apple", class1, 0, 1.05);
        season.Enter(apple, race2);
        season.Finish(race2, apple, 3400);
        db.Exec("UPDATE Handicap SET Handicap = 1.25 WHERE Boat = " + boatOf +
                std::to_string(fish) + ")");
        db.Exec("UPDATE Results SET FinishTime = '2024-06-22 10:56:42' WHERE Entrant = " +
                std::to_string(fish) + " AND Schedule = " + std::to_string(race2));
    }
};

// Every report kind, byte for byte against the files under tests/data/golden, named after the
// kind letter and the entrant selection (with "-odd" for the club file with oddities).
TEST_F(ReportXmlTest, EveryReportKindIsWrittenExactly) {
    const std::pair<char, int> plain[] = {{'E', 2}, {'A', 2}, {'C', 2},
                                          {'R', 0}, {'S', 0}, {'B', 2}};
    for (const auto& [letter, option] : plain) {
        const std::string name = std::string(1, letter) + std::to_string(option) + ".xml";
        EXPECT_EQ(Xml(letter, option), ReadFile(test::GoldenFile(name))) << name;
    }
    AddOddities();
    const std::pair<char, int> odd[] = {{'E', 0}, {'E', 1}, {'E', 2}, {'R', 1}, {'B', 0}};
    for (const auto& [letter, option] : odd) {
        const std::string name = std::string(1, letter) + std::to_string(option) + "-odd.xml";
        EXPECT_EQ(Xml(letter, option), ReadFile(test::GoldenFile(name))) << name;
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
        // Bytes that are not UTF-8 read as U+FFFD, one for each; the letters around them stay.
        {Value("Gull\xFF & Caf\xE9"), "\"Gull\xEF\xBF\xBD &#38; Caf\xEF\xBF\xBD\""},
        {Value("\xC0\xAF\xED\xA0\x80\xF4\x90\x80\x80"),
         "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"
         "\xEF\xBF\xBD\xEF\xBF\xBD\""},
        {Value("\xE2\x82\xAC \xF0\x9F\x8C\x8A \xE2\x82 \xF4\x8F\xBF\xBF"),
         "\"\xE2\x82\xAC \xF0\x9F\x8C\x8A \xEF\xBF\xBD\xEF\xBF\xBD \xF4\x8F\xBF\xBF\""},
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
