// Class starts of a race: created once per class with the default texts, read per entrant, and
// stored with empty texts as Null.

#include <gtest/gtest.h>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class StartTimesTest : public ::testing::Test {
protected:
    void SetUp() override { db.Exec(test::DataFile("scoring/start-times.sql")); }

    test::TestDatabase db;
    clResults results;
};

TEST_F(StartTimesTest, CreatesOneStartPerClassWithTheDefaultTextsAndNeverASecond) {
    db.Exec("UPDATE Settings SET Value='Wind SW 3' WHERE Parameter='Comment'");
    db.Exec("UPDATE Settings SET Value='Protests by 21:00' WHERE Parameter='Footnote'");
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(3, 10, rows), "");
    EXPECT_TRUE(rows.IsEmpty()) << "a series without classes";
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    const std::string first = test::Rendered(rows);
    // A changed setting and an edited start are left alone the second time; a class added later
    // gets its start with the texts of the day, and an empty text is Null.
    db.Exec("UPDATE Settings SET Value='O''Neil''s trophy' WHERE Parameter='Comment'");
    db.Exec("UPDATE Settings SET Value=NULL WHERE Parameter='Footnote'");
    db.Exec("UPDATE Start SET StartTime='2005-06-12 14:05:00' WHERE Class=1");
    db.Exec("INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (4, 1, 'Cats', 1)");
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    EXPECT_EQ(db.Count("Start", "Schedule<>10"), 0);
    EXPECT_EQ(first + test::Rendered(rows), test::Expected("scoring/start-times.txt", "twice"));
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
    // No start row at all in the other race looks the same as a start without a time.
    ASSERT_EQ(results.GetStartTimeForEntrant(11, 5, row), "");
    EXPECT_EQ(row, notStarted);

    db.Exec("UPDATE Start SET StartTime='2005-06-12 14:05:00' WHERE Class=1 AND Schedule=10");
    ASSERT_EQ(results.GetStartTimeForEntrant(10, 5, row), "");
    RowSet started;
    started.AddRow({"Keelboats", Value(MakeDateTime(2005, 6, 12, 14, 5)), 10, keelStart});
    EXPECT_EQ(row, started);

    // An entrant without a class gives four empty cells.
    ASSERT_EQ(results.GetStartTimeForEntrant(10, 6, row), "");
    EXPECT_EQ(row, RowSet(4, 1));
}

TEST_F(StartTimesTest, PutStartTimeStoresTheTimeAndEmptyTextsAsNull) {
    RowSet rows;
    ASSERT_EQ(results.GetStartTimes(1, 10, rows), "");
    const std::string id = rows(2, 0).ToText();
    const std::string start =
        "SELECT coalesce(CAST(StartTime AS TEXT), '-') || '|' || coalesce(TopNote, '-') || '|' "
        "|| coalesce(Footnote, '-') FROM Start WHERE Id=" +
        id;

    ASSERT_EQ(
        results.PutStartTime(std::stoi(id), Value(MakeDateTime(2005, 6, 12, 14, 5)), "Top", ""),
        "");
    EXPECT_EQ(db.Text(start), "2005-06-12 14:05:00|Top|-");
    EXPECT_TRUE(db.Stamped());
    ASSERT_EQ(results.PutStartTime(std::stoi(id), Value(), "", ""), "");
    EXPECT_EQ(db.Text(start), "-|-|-");
}

}  // namespace
}  // namespace tb
