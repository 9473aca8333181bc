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
        EXPECT_EQ(Xml(letter, option), test::DataFile(name)) << name;
    }
    AddOddities();
    const std::pair<char, int> odd[] = {{'E', 0}, {'E', 1}, {'E', 2}, {'R', 1}, {'B', 0}};
    for (const auto& [letter, option] : odd) {
        const std::string name = std::string(1, letter) + std::to_string(option) + "-odd.xml";
        EXPECT_EQ(Xml(letter, option), test::DataFile(name)) << name;
    }
}

TEST_F(ReportXmlTest, TitlesFollowTheEntrantSelectionAndTheReportKind) {
    db.Exec("UPDATE Discards SET RacesRun = 4 WHERE RacesRun = 2");  // no discards yet
    // The sub-series selection is named in the header; the others are in the fixed texts.
    EXPECT_NE(Xml('R', 1).find(R"( ReportType="RaceResults" Entrants="SubSeries">)"),
              std::string::npos);
    for (const auto& row : test::DataFileRows("reports/class-titles.tsv")) {
        const std::string xml = Xml(row.at(0).at(0), std::stoi(row.at(1)));
        EXPECT_NE(xml.find(R"(href="class1" )" + row.at(2)), std::string::npos)
            << row.at(0) << row.at(1) << "\n"
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
    for (const auto& row : test::DataFileRows("reports/attribute-values.tsv"))
        EXPECT_EQ(AttributeValue(test::ValueOf(row.at(0))), row.at(1)) << row.at(1);
}

TEST(ReportXmlRules, PenaltyNotes) {
    for (const auto& row : test::DataFileRows("reports/penalty-notes.tsv")) {
        std::string note;
        for (std::size_t i = 0; i + 1 < row.size(); i += 2)
            AppendPenaltyNote(test::ValueOf(row[i]), row[i + 1], note);
        EXPECT_EQ(note, row.back());
    }
}

TEST(ReportXmlRules, ClassLinksComeFromTheSeventhCharacter) {
    for (const auto& row : test::DataFileRows("reports/class-links.tsv"))
        EXPECT_EQ(ClassLink(row.at(0)), row.size() > 1 ? row[1] : "") << row.at(0);
}

}  // namespace
}  // namespace tb
