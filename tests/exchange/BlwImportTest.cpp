// Series brought across from another scoring program's .blw files: the project's own small files
// for every mapping, the faults a file can have, and real club files scored again here.

#include <gtest/gtest.h>

#include <algorithm>

#include "data/Conversions.h"
#include "exchange/BlwImport.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

const std::string kData = std::string(TALLYBOARD_TEST_DATA) + "/blw/";

// Everything an import writes, one line a record.
std::string Imported(test::TestDatabase& db) {
    std::string text;
    for (const auto& row : test::DataFileRows("exchange/imported.sql")) {
        for (const std::string& line : db.Lines(row.at(0)))
            text += line + "\n";
        text += "--\n";
    }
    return text;
}

// Codes, ratings (Portsmouth, TCF, per-race progressive and places only), the date forms, guns
// with and without selectors, the discard list, aliases, excluded competitors and leftovers.
// A discard list that rises more often than a discard system holds rules keeps its first five.
TEST(BlwImport, BringsTheSeasonAcrossAsTheFileHasIt) {
    for (const std::string name : {"season", "discards"}) {
        test::TestDatabase db;
        clResults results;
        std::string summary;
        ASSERT_EQ(results.ImportSeriesFile(kData + name + ".blw", summary), "");
        EXPECT_EQ(summary + "==\n" + Imported(db), test::DataFile("blw-" + name + ".txt"));
    }
}

TEST(BlwImport, AFaultyFileNamesItsRowAndWritesNothing) {
    for (const auto& row : test::DataFileRows("blw-faults.txt")) {
        SCOPED_TRACE(row.at(0));
        test::TestDatabase db;
        clResults results;
        std::string summary;
        EXPECT_EQ(results.ImportSeriesFile(kData + row[0], summary), row.at(1));
        EXPECT_EQ(db.Count("Series") + db.Count("Boat") + db.Count("People") + db.Count("Scoring"),
                  1);
    }
}

TEST(BlwImport, ReadsDatesAndTimesAsOtherProgramsWriteThem) {
    for (const auto& row : test::DataFileRows("exchange/loose-dates.tsv")) {
        const auto date = ParseLooseDate(row.at(0), row.at(1), 2025, row.at(2) == "1");
        EXPECT_EQ(date ? FormatDate(*date, "dd/mm/yyyy") : "-", row.at(3)) << row[0];
    }
    // The same reader in both forms: this file's and the finishes a timing app writes.
    for (const auto& row : test::DataFileRows("conversions/clock-times.tsv")) {
        for (const auto& [form, column] :
             {std::pair{ClockForm::Loose, 1}, {ClockForm::Strict, 2}}) {
            const auto seconds = ParseClockTime(row[0], form);
            EXPECT_EQ(seconds ? std::to_string(*seconds) : "-", row[column]) << row[0];
        }
    }
}

const std::string kSamples = std::string(TALLYBOARD_SAMPLES) + "/blw/";

// Every race of the imported series scored here, one line a boat as its race report shows it:
// race, sail number, elapsed and corrected times, place, points and status; sorted, since boats
// of one place come in either order.
std::string ScoredRaces(test::TestDatabase& db, clResults& results) {
    using Col = clResults::RaceBoatCol;
    std::vector<std::string> lines;
    for (int race = 1; race <= db.Count("Schedule"); ++race) {
        RowSet problems, classRows, boatRows;
        EXPECT_EQ(results.ComputeResultTimes(race, problems), "");
        EXPECT_EQ(results.ComputePoints(race, 0), "");
        EXPECT_EQ(results.GetRaceResults(race, 0, classRows, boatRows), "");
        for (std::size_t b = 0; b < boatRows.Rows(); ++b) {
            lines.push_back(std::to_string(race));
            for (const std::size_t column : {Col::FullSailNo, Col::Elapsed, Col::Corrected,
                                             Col::Position, Col::Points, Col::Status})
                lines.back() += " | " + boatRows(column, b).ToText();
        }
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

// The dinghy series scored again here: every finisher of the Portsmouth fleet has the file's
// elapsed and corrected times and place, the places-only fleet its recorded places. A second
// import makes a second series and adds no one to the register.
TEST(BlwSamples, DinghySeriesScoresAsTheFileRecords) {
    test::TestDatabase db;
    test::RecordingMessages messages;
    clResults results;
    std::string summary;
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "dinghies-series.blw", summary), "");
    EXPECT_EQ(ScoredRaces(db, results), test::Expected("exchange/blw-samples.txt", "dinghies"));

    const long long people = db.Count("People"), boats = db.Count("Boat");
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "dinghies-series.blw", summary), "");
    EXPECT_NE(summary.find("Series 2: Howth YC Dinghy Racing S1"), std::string::npos);
    EXPECT_NE(summary.find("People: 0 added, 37 reused\nBoat models: 0 added, 7 reused\nBoats: "
                           "0 added, 37 reused\n"),
              std::string::npos)
        << summary;
    EXPECT_EQ(db.Count("People") * 1000 + db.Count("Boat"), people * 1000 + boats);
}

// The club season, places only: one class per fleet and every recorded place, with the discard
// rules the file has beyond the five a discard system holds named in the summary.
TEST(BlwSamples, PlaceOnlySeasonKeepsEveryRecordedPlace) {
    test::TestDatabase db;
    test::RecordingMessages messages;
    clResults results;
    std::string summary;
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "place-only-season.blw", summary), "");
    EXPECT_EQ(summary, test::DataFile("blw-place-only-season.txt"));
    EXPECT_EQ(ScoredRaces(db, results), test::Expected("exchange/blw-samples.txt", "club season"));
}

}  // namespace
}  // namespace tb
