// One boat's result in one race: stored once and updated after, read back, and found among the
// race's entered boats by sail number, full sail number or the start of the name.

#include <gtest/gtest.h>

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
    struct Case {
        const char* time;
        const char* date;
        const char* mins;
    };
    const std::vector<Case> cases{
        {"250000", "12 Jun 2005", ""},
        {"12", "12 Jun 2005", ""},
        {"143512", "31 Jun 2005", ""},
        {"143512", "12 Jun 2005", "two"},
    };
    for (const Case& c : cases) {
        const std::string Msg = results.PutResult(10, 1, c.time, c.date, 9, c.mins, "", "", "");
        EXPECT_TRUE(test::IsRunTimeError(Msg, "PutResult"));
        EXPECT_NE(Msg.find("\rType mismatch"), std::string::npos) << Msg;
    }
    EXPECT_EQ(db.Count("Results"), 0);
    EXPECT_FALSE(db.Stamped());
}

TEST_F(ResultRecordingTest, GetResultGivesSevenColumnsEmptyWhenThereIsNoResult) {
    RowSet row;
    ASSERT_EQ(results.GetResult(10, 2, row), "");
    EXPECT_EQ(row, RowSet(7, 1));

    ASSERT_EQ(results.PutResult(10, 2, "143512", "13 Jun 2005", 9, "", "5", "", "Late"), "");
    ASSERT_EQ(results.GetResult(10, 2, row), "");
    ASSERT_EQ(row.Columns(), 7u);
    ASSERT_EQ(row.Rows(), 1u);
    EXPECT_FALSE(row(0, 0).IsNull());
    EXPECT_EQ(row(1, 0), Value(MakeDateTime(2005, 6, 13, 14, 35, 12)));
    EXPECT_EQ(row(2, 0), Value(9));
    EXPECT_EQ(ToText(row(3, 0)) + "|" + ToText(row(4, 0)) + "|" + ToText(row(5, 0)), "0|5|0");
    EXPECT_EQ(row(6, 0), Value("Late"));
}

TEST_F(ResultRecordingTest, StatusesComeInCodeOrder) {
    db.Exec("INSERT INTO Status (Id, Code, Description) VALUES (10, 'AAA', 'First by code')");
    RowSet rows;
    ASSERT_EQ(results.GetStatus(rows), "");
    ASSERT_EQ(rows.Columns(), 3u);
    ASSERT_EQ(rows.Rows(), 10u);
    EXPECT_EQ(rows(0, 0), Value(10));
    for (std::size_t r = 1; r < rows.Rows(); ++r)
        EXPECT_LT(rows(1, r - 1).ToText(), rows(1, r).ToText());
}

TEST_F(ResultRecordingTest, FindsTheRacesBoatsBySailNumberFullSailNumberOrName) {
    struct Case {
        const char* search;
        std::vector<long long> entrants;
    };
    const std::vector<Case> cases{
        {"1234", {2, 1}},     // both boats with sail number 1234, by name
        {"0077", {3}},        // digits are a number
        {"GBR 1234", {1}},    // the full sail number exactly
        {"gbr 1234", {1}},    // without regard to case
        {"GBR 123", {}},      // not the start of a full sail number
        {"Blue", {1, 6, 3}},  // names that begin with the text; Bluewater is not in the race
        {"blue", {1, 6, 3}},
        {"Blue_", {6}},  // an underscore is a character, not a wildcard
        {"Moon", {}},
        {"O'Neil", {5}},
        {"11", {}},  // Bluewater is not on the race's entry list
        {"", {}},    // without a message
    };
    for (const Case& c : cases) {
        RowSet rows;
        rows.AddRow({1, 2});
        ASSERT_EQ(results.GetBoatInRace(10, c.search, rows), "") << c.search;
        if (c.entrants.empty()) {
            EXPECT_EQ(rows, RowSet(1, 1)) << c.search;
            continue;
        }
        ASSERT_EQ(rows.Columns(), 4u) << c.search;
        std::vector<long long> found;
        for (std::size_t r = 0; r < rows.Rows(); ++r)
            found.push_back(rows(0, r).AsInt());
        EXPECT_EQ(found, c.entrants) << c.search;
    }

    RowSet rows;
    ASSERT_EQ(results.GetBoatInRace(10, "GBR 1234", rows), "");
    EXPECT_EQ(rows(1, 0), Value("Blue Moon"));
    EXPECT_EQ(rows(2, 0), Value("GBR 1234"));
    EXPECT_EQ(rows(3, 0), Value("Class 1"));
}

TEST_F(ResultRecordingTest, FailuresNameTheOperation) {
    RowSet rows;
    ASSERT_EQ(results.GetStatus(rows), "");  // connects before the tables go
    db.Exec("DROP TABLE Results");
    db.Exec("DROP TABLE Status");
    db.Exec("DROP TABLE EntryList");
    const std::vector<std::pair<std::string, std::string>> calls{
        {"GetResult", results.GetResult(10, 1, rows)},
        {"PutResult", results.PutResult(10, 1, "", "12 Jun 2005", 9, "", "", "", "")},
        {"GetStatus", results.GetStatus(rows)},
        {"GetBoatInRace", results.GetBoatInRace(10, "Blue", rows)},
    };
    for (const auto& [name, Msg] : calls)
        EXPECT_TRUE(test::IsRunTimeError(Msg, name));
}

}  // namespace
}  // namespace tb
