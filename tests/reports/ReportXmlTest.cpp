// The report texts byte for byte on a small series, and the rules every report text follows.

#include <gtest/gtest.h>

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
        UseMenu("x=,,," + std::to_string(option) + ",1");
        std::string path;
        EXPECT_EQ(Make(letter, path), "");
        return WithoutReportTime(ReadFile(path));
    }

    // The oddities of a club's file (see the data file), and a boat name in lower case rated
    // like another, which makes a tie that shares the points (a fractional total).
    void AddOddities() {
        db.Exec(test::DataFile("reports/oddities.sql"));
        const int apple = season.AddEntrant("apple", class1, 0, 1.05);
        season.Enter(apple, race2);
        season.Finish(race2, apple, 3400);
    }
};

// Every report kind, byte for byte against the files under tests/data/golden, named after the
// kind letter and the entrant selection (with "-odd" for the club file with oddities).
TEST_F(ReportXmlTest, EveryReportKindIsWrittenExactly) {
    for (const auto& row : test::DataFileRows("reports/written-exactly.tsv")) {
        if (row.size() > 1)
            AddOddities();
        EXPECT_EQ(Xml(row.at(0).at(0), row.at(0).at(1) - '0'), test::DataFile(row[0])) << row[0];
    }
}

TEST_F(ReportXmlTest, TitlesFollowTheEntrantSelectionAndTheReportKind) {
    db.Exec("UPDATE Discards SET RacesRun = 4 WHERE RacesRun = 2");  // no discards yet
    for (const auto& row : test::DataFileRows("reports/class-titles.tsv")) {
        const std::string xml = Xml(row.at(0).at(0), std::stoi(row.at(1)));
        EXPECT_NE(xml.find(R"(href="class1" )" + row.at(2)), std::string::npos)
            << row.at(0) << row.at(1) << "\n"
            << xml;
    }
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
