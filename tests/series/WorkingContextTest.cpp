#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SeriesFixture.h"
#include "support/Checks.h"

namespace tb {
namespace {

// Four series and their races, as the main window lists them by year.
class WorkingContextTest : public test::SeriesFixture {
protected:
    void SetUp() override { db.Exec(test::DataFile("series/working-context.sql")); }
};
using ScheduleTest = test::SeriesFixture;
using test::Column;

TEST_F(WorkingContextTest, YearsSeriesAndRacesFollowTheRaceDates) {
    RowSet rows;
    ASSERT_EQ(results.GetYears(rows), "");
    std::string listed = test::Rendered(rows);
    for (const char* year : {"2002", "2001", "1999", ""}) {
        ASSERT_EQ(results.GetSeries(rows, year), "");
        listed += std::string("in '") + year + "':\n" + test::Rendered(rows);
    }
    ASSERT_EQ(results.GetSchedule(rows, 2), "");
    EXPECT_EQ(listed + test::Rendered(rows), test::Expected("series/working-context.txt", "lists"));
    ASSERT_EQ(results.GetSchedule(rows, 555), "");
    EXPECT_TRUE(rows.IsEmpty());
}

TEST_F(WorkingContextTest, TheRememberedContextIsReturnedAsStored) {
    RowSet years;
    std::string year = "none";
    ASSERT_EQ(results.GetCurrentYear(years, year), "");
    EXPECT_EQ(year, "none") << "no remembered year keeps the caller's text";

    RowSet series;
    int current = 0;
    ASSERT_EQ(results.GetCurrentSeries(series, current, ""), "");
    EXPECT_EQ(current, 0);

    // A remembered series that was removed since is still handed back; the main window then
    // selects the first series instead.
    ASSERT_EQ(results.PutSetting("LastSeriesYr", "2002"), "");
    ASSERT_EQ(results.PutSetting("LastSeries", "41"), "");
    ASSERT_EQ(results.PutSetting("LastSchedule", "7"), "");
    ASSERT_EQ(results.GetCurrentYear(years, year), "");
    EXPECT_EQ(year, "2002");
    ASSERT_EQ(results.GetCurrentSeries(series, current, year), "");
    EXPECT_EQ(current, 41);
    EXPECT_EQ(Column(series, 1), (std::vector<std::string>{"Other", "Summer", "Winter"}));

    RowSet schedule;
    int race = 0;
    ASSERT_EQ(results.GetCurrentSchedule(schedule, 2, race), "");
    EXPECT_EQ(race, 7);
    EXPECT_EQ(Column(schedule, 1), (std::vector<std::string>{"Early", "A race", "b race"}));
}

TEST_F(ScheduleTest, ARaceReadsBackAsSavedWithAnEmptyReferenceAsNull) {
    const int series = AddSeries("Summer");
    ASSERT_EQ(results.PutScheduleDetails(0, series, "Race 1 - Bishop's Rock", "18/06/02", true, ""),
              "");
    EXPECT_TRUE(db.Stamped());
    EXPECT_EQ(db.Count("Schedule", "Reference IS NULL"), 1);

    RowSet rows;
    ASSERT_EQ(results.GetRaceDetails(1, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("series/working-context.txt", "race"));

    RowSet kept;
    kept.AddRow({Value("kept")});
    EXPECT_EQ(results.GetRaceDetails(42, kept), "");
    EXPECT_EQ(kept(0, 0).ToText(), "kept") << "a missing race leaves the rows as they were";
}

TEST_F(ScheduleTest, NewRacesAreAddedAndAnExistingOneIsUpdatedInPlace) {
    const int series = AddSeries("Summer");
    ASSERT_EQ(results.PutScheduleDetails(0, series, "Race 1", "18/06/02", false, ""), "");
    ASSERT_EQ(results.PutScheduleDetails(0, series, "Race 1", "18/06/02", false, ""), "");
    EXPECT_EQ(db.Count("Schedule"), 2);
    EXPECT_TRUE(
        test::IsRunTimeError(results.PutScheduleDetails(0, series, "Race 1", "31/02/02", false, ""),
                             "PutScheduleDetails"));
    EXPECT_EQ(db.Count("Schedule"), 2) << "a date that is not a date saves nothing";

    ASSERT_EQ(results.PutScheduleDetails(2, series, "Race 2", "25 Jun 2002", false, "R-2"), "");
    EXPECT_EQ(db.Count("Schedule"), 2);
    EXPECT_EQ(db.Text("SELECT RaceName || '|' || RaceDate || '|' || Reference FROM Schedule "
                      "WHERE Id=2"),
              "Race 2|2002-06-25 00:00:00|R-2");
}

TEST_F(ScheduleTest, ARaceWithAnEntryIsKeptUntilTheEntryIsGone) {
    db.Exec(test::DataFile("series/race-with-entry.sql"));
    const int race = 1;

    EXPECT_EQ(results.RemoveSchedule(race),
              "E-It is not possible to remove this scheduled race as there are boats entered in "
              "it.");
    EXPECT_EQ(db.Count("Schedule"), 1);
    EXPECT_EQ(db.Count("EntryList"), 1);

    db.Exec("DELETE FROM EntryList");
    EXPECT_EQ(results.RemoveSchedule(race), "");
    EXPECT_EQ(db.Count("Schedule"), 0);
    EXPECT_EQ(db.Count("Start"), 1);
    EXPECT_FALSE(db.Stamped());
}

}  // namespace
}  // namespace tb
