// Class starts of a race: created once per class with the default texts, read per entrant, and
// stored with empty texts as Null.

#include <gtest/gtest.h>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class StartTimesTest : public ::testing::Test {
protected:
    void SetUp() override {
        db.Exec("INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club')");
        db.Exec("INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1)");
        db.Exec("INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (2, 'Winter', 1, 1)");
        db.Exec(
            "INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES "
            "(10, 1, 'Race 1', '2005-06-12 00:00:00'), (11, 1, 'Race 2', '2005-06-19 00:00:00')");
        // Inserted out of name order, so that the order by name is seen.
        db.Exec(
            "INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES "
            "(1, 1, 'Keelboats', 1), (2, 1, 'Dinghies', 1), (3, 2, 'Winter fleet', 1)");
        db.Exec(
            "INSERT INTO Boat (Id, BoatName, FullSailNo, SailNo) VALUES (1, 'Alpha', 'X 1', 1), "
            "(2, 'Bravo', 'X 2', 2)");
        db.Exec("INSERT INTO Entrant (Id, Series, Boat, Class) VALUES (5, 1, 1, 1)");
        db.Exec("INSERT INTO Entrant (Id, Series, Boat, Class) VALUES (6, 1, 2, NULL)");
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(StartTimesTest, CreatesOneStartPerClassWithTheDefaultTextsAndNeverASecond) {
    db.Exec("UPDATE Settings SET Value='Wind SW 3' WHERE Parameter='Comment'");
    db.Exec("UPDATE Settings SET Value='Protests by 21:00' WHERE Parameter='Footnote'");
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    ASSERT_EQ(rows.Columns(), 9u);
    ASSERT_EQ(rows.Rows(), 2u);
    EXPECT_EQ(rows(3, 0), Value("Dinghies"));
    EXPECT_EQ(rows(3, 1), Value("Keelboats"));
    for (std::size_t r = 0; r < 2; ++r) {
        EXPECT_EQ(rows(0, r), Value(1));
        EXPECT_TRUE(rows(4, r).IsNull());
        EXPECT_EQ(rows(5, r), Value(10));
        EXPECT_EQ(rows(6, r), Value("Wind SW 3"));
        EXPECT_EQ(rows(7, r), Value("Protests by 21:00"));
        EXPECT_EQ(rows(8, r), Value(MakeDateTime(2005, 6, 12)));
    }
    EXPECT_EQ(rows(1, 0), Value(2));
    EXPECT_EQ(rows(2, 0).AsInt(),
              std::stoll(db.Text("SELECT Id FROM Start WHERE Class=2 AND Schedule=10")));

    // A changed setting and an edited start are left alone the second time.
    db.Exec("UPDATE Settings SET Value='Changed' WHERE Parameter='Comment'");
    db.Exec("UPDATE Start SET StartTime='2005-06-12 14:05:00' WHERE Class=1");
    RowSet again;
    ASSERT_EQ(results.GetStartTimes(1, 10, again), "");
    EXPECT_EQ(db.Count("Start"), 2);
    EXPECT_EQ(again(6, 0), Value("Wind SW 3"));
    EXPECT_EQ(again(4, 1), Value(MakeDateTime(2005, 6, 12, 14, 5)));
    EXPECT_EQ(again(2, 0), rows(2, 0));
    EXPECT_EQ(again(2, 1), rows(2, 1));
}

TEST_F(StartTimesTest, ClassAddedLaterGetsItsStartWithTodaysDefaultsAndEmptySettingsGiveNull) {
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    db.Exec("UPDATE Settings SET Value='Late entry' WHERE Parameter='Comment'");
    db.Exec("INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (4, 1, 'Cats', 1)");
    rows.Clear();
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    ASSERT_EQ(rows.Rows(), 3u);
    EXPECT_EQ(rows(3, 0), Value("Cats"));
    EXPECT_EQ(rows(6, 0), Value("Late entry"));
    EXPECT_TRUE(rows(6, 1).IsNull());
    EXPECT_TRUE(rows(7, 1).IsNull());
    EXPECT_EQ(db.Count("Start", "Schedule=10 AND TopNote IS NULL AND Footnote IS NULL"), 2);
    // The other race and the other series are not touched.
    EXPECT_EQ(db.Count("Start", "Schedule<>10"), 0);
}

TEST_F(StartTimesTest, ADefaultTextWithAnApostropheIsStoredAsTyped) {
    db.Exec("UPDATE Settings SET Value='O''Neil''s trophy' WHERE Parameter='Comment'");
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(1, 11, rows), "");
    EXPECT_EQ(rows(6, 0), Value("O'Neil's trophy"));
}

TEST_F(StartTimesTest, SeriesWithoutClassesLeavesTheRowsUntouched) {
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(3, 10, rows), "");
    EXPECT_TRUE(rows.IsEmpty());
    EXPECT_EQ(db.Count("Start"), 0);
}

TEST_F(StartTimesTest, StartOfAnEntrantsClass) {
    RowSet starts;
    ASSERT_EQ(results.GetStartTimes(1, 10, starts), "");
    const long long keelStart = starts(2, 1).AsInt();

    RowSet row;
    ASSERT_EQ(results.GetStartTimeForEntrant(10, 5, row), "");
    RowSet notStarted;
    notStarted.AddRow({"Keelboats", "", "", 0});
    EXPECT_EQ(row, notStarted);

    db.Exec("UPDATE Start SET StartTime='2005-06-12 14:05:00' WHERE Class=1 AND Schedule=10");
    ASSERT_EQ(results.GetStartTimeForEntrant(10, 5, row), "");
    EXPECT_EQ(row(0, 0), Value("Keelboats"));
    EXPECT_EQ(row(1, 0), Value(MakeDateTime(2005, 6, 12, 14, 5)));
    EXPECT_EQ(row(2, 0), Value(10));
    EXPECT_EQ(row(3, 0), Value(keelStart));

    // No start row at all in the other race looks the same as a start without a time.
    ASSERT_EQ(results.GetStartTimeForEntrant(11, 5, row), "");
    EXPECT_EQ(row(0, 0), Value("Keelboats"));
    EXPECT_EQ(row(3, 0), Value(0));

    // An entrant without a class gives four empty cells.
    ASSERT_EQ(results.GetStartTimeForEntrant(10, 6, row), "");
    EXPECT_EQ(row, RowSet(4, 1));
}

TEST_F(StartTimesTest, PutStartTimeStoresTheTimeAndEmptyTextsAsNull) {
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    const int startId = static_cast<int>(rows(2, 0).AsInt());

    ASSERT_EQ(results.PutStartTime(startId, Value(MakeDateTime(2005, 6, 12, 14, 5)), "Top", ""),
              "");
    EXPECT_EQ(db.Text("SELECT StartTime FROM Start WHERE Id=" + std::to_string(startId)),
              "2005-06-12 14:05:00");
    EXPECT_EQ(db.Text("SELECT TopNote FROM Start WHERE Id=" + std::to_string(startId)), "Top");
    EXPECT_EQ(db.Count("Start", "Footnote IS NULL AND Id=" + std::to_string(startId)), 1);
    EXPECT_NE(db.Text("SELECT Value FROM Settings WHERE Parameter='LastModified'"), "");

    ASSERT_EQ(results.PutStartTime(startId, Value(), "", ""), "");
    EXPECT_EQ(db.Count("Start",
                       "StartTime IS NULL AND TopNote IS NULL AND Id=" + std::to_string(startId)),
              1);
}

TEST_F(StartTimesTest, FailuresNameTheOperation) {
    const std::string missing = results.PutStartTime(999, Value(), "", "");
    EXPECT_EQ(missing.rfind("C-Error ", 0), 0u) << missing;
    EXPECT_NE(missing.find(" in PutStartTime\r"), std::string::npos) << missing;

    db.Exec("DROP TABLE Start");
    RowSet rows;
    const std::string Msg = results.GetStartTimes(1, 10, rows);
    EXPECT_NE(Msg.find(" in GetStartTimes\r"), std::string::npos) << Msg;
    const std::string forEntrant = results.GetStartTimeForEntrant(10, 5, rows);
    EXPECT_NE(forEntrant.find(" in GetStartTimeForEntrant\r"), std::string::npos) << forEntrant;
    EXPECT_EQ(rows, RowSet(4, 1));
}

}  // namespace
}  // namespace tb
