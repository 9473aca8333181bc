// One boat's result in one race: stored once and updated after, read back, and found among the
// race's entered boats by sail number, full sail number or the start of the name.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class ResultRecordingTest : public ::testing::Test {
protected:
    void SetUp() override { db.Exec(test::DataFile("scoring/result-recording.sql")); }

    test::TestDatabase db;
    clResults results;
};

TEST_F(ResultRecordingTest, PutResultCreatesOneRowThenUpdatesIt) {
    ASSERT_EQ(results.PutResult(10, 1, "143512", "12 Jun 2005", 9, "2", "10", "-1", "Hit mark"),
              "");
    EXPECT_EQ(db.Count("Results"), 1);
    EXPECT_EQ(db.Lines("SELECT FinishTime, Status, PenaltyMins, PenaltyPercent, PenaltyPoints, "
                       "Notes FROM Results",
                       "|"),
              std::vector<std::string>{"2005-06-12 14:35:12|9|2.0|10.0|-1.0|Hit mark"});
    EXPECT_TRUE(db.Stamped());

    // The second save of the same boat and race changes that row: empty texts store 0 and Null.
    ASSERT_EQ(results.PutResult(10, 1, "", "12 Jun 2005", 4, "", "", "", ""), "");
    EXPECT_EQ(db.Count("Results"), 1);
    EXPECT_EQ(db.Count("Results",
                       "FinishTime IS NULL AND Notes IS NULL AND PenaltyMins = 0 AND "
                       "PenaltyPercent = 0 AND PenaltyPoints = 0 AND Status = 4"),
              1);

    // Another race of the same boat is another row.
    ASSERT_EQ(results.PutResult(11, 1, "090000", "20 Jun 2005", 9, "1.5", "", "", ""), "");
    EXPECT_EQ(db.Count("Results"), 2);
    EXPECT_EQ(db.Lines("SELECT FinishTime, PenaltyMins FROM Results WHERE Schedule=11", "|"),
              std::vector<std::string>{"2005-06-20 09:00:00|1.5"});
}

TEST_F(ResultRecordingTest, TextsThatAreNotAFinishOrANumberStoreNothing) {
    for (const auto& row : test::DataFileRows("scoring/refused-results.tsv")) {
        const std::string Msg =
            results.PutResult(10, 1, row.at(0), row.at(1), 9, row.at(2), "", "", "");
        EXPECT_TRUE(test::IsRunTimeError(Msg, "PutResult"));
        EXPECT_NE(Msg.find("\rType mismatch"), std::string::npos) << Msg;
    }
    EXPECT_EQ(db.Count("Results"), 0);
    EXPECT_FALSE(db.Stamped());
}

TEST_F(ResultRecordingTest, ReadsBackAResultTheStatusesAndTheRacesBoats) {
    RowSet rows;
    ASSERT_EQ(results.GetResult(10, 2, rows), "");
    EXPECT_EQ(rows, RowSet(7, 1)) << "seven empty cells when there is no result";
    ASSERT_EQ(results.PutResult(10, 2, "143512", "13 Jun 2005", 9, "", "5", "", "Late"), "");
    ASSERT_EQ(results.GetResult(10, 2, rows), "");
    std::string read = test::Rendered(rows);
    db.Exec("INSERT INTO Status (Id, Code, Description) VALUES (10, 'AAA', 'First by code')");
    ASSERT_EQ(results.GetStatus(rows), "");
    read += test::Rendered(rows);
    ASSERT_EQ(results.GetBoatInRace(10, "GBR 1234", rows), "");
    EXPECT_EQ(read + test::Rendered(rows), test::Expected("scoring/result-recording.txt", "read"));

    // The entrants found by sail number, full sail number or the start of the name.
    for (const auto& row : test::DataFileRows("scoring/boats-in-race.tsv")) {
        rows = RowSet(2, 1);
        ASSERT_EQ(results.GetBoatInRace(10, row.at(0), rows), "") << row[0];
        std::string found = std::to_string(rows.Columns()) + ":";
        for (const std::string& entrant : test::Column(rows, 0))
            found += (found.ends_with(":") ? "" : ",") + entrant;
        EXPECT_EQ(found, row.at(1)) << row[0];
    }
}

// Each call fails, on a database without the tables it reads or on a text that is not a
// number, with the run-time error of the operation named on its left.
TEST_F(ResultRecordingTest, FailuresNameTheOperation) {
    RowSet rows;
    int id = 0;
    const std::map<std::string, std::function<std::string()>> calls{
        {"GetStartTimes", [&] { return results.GetStartTimes(1, 10, rows); }},
        {"GetStartTimeForEntrant", [&] { return results.GetStartTimeForEntrant(10, 1, rows); }},
        {"PutStartTime", [&] { return results.PutStartTime(999, Value(), "", ""); }},
        {"GetResult", [&] { return results.GetResult(10, 1, rows); }},
        {"PutResult",
         [&] { return results.PutResult(10, 1, "", "12 Jun 2005", 9, "", "", "", ""); }},
        {"GetStatus", [&] { return results.GetStatus(rows); }},
        {"GetBoatInRace", [&] { return results.GetBoatInRace(10, "Blue", rows); }},
        {"GetSeriesDetails", [&] { return results.GetSeriesDetails(99, rows); }},
        {"PutSeriesDetails", [&] { return results.PutSeriesDetails(id, "Winter", "", 1, "two"); }},
        {"PutClassDetails", [&] { return results.PutClassDetails(0, 1, "Class 3", "abc", 1); }},
    };
    ASSERT_EQ(results.GetStatus(rows), "");  // connects before the tables go
    db.Exec("DROP TABLE Start; DROP TABLE Results; DROP TABLE Status; DROP TABLE EntryList");
    for (const auto& [name, call] : calls)
        EXPECT_TRUE(test::IsRunTimeError(call(), name));
}

}  // namespace
}  // namespace tb
