#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SeriesFixture.h"
#include "support/Checks.h"

namespace tb {
namespace {

using WorkingContextTest = test::SeriesFixture;
using test::Column;

TEST_F(WorkingContextTest, YearsAndSeriesFollowTheRaceDates) {
    const int winter = AddSeries("Winter");
    const int summer = AddSeries("Summer");
    AddSeries("Autumn");  // no races: in no year, but in the list of every series
    AddRace(winter, "Race 1", "2001-12-02");
    AddRace(winter, "Race 2", "2002-01-06");
    AddRace(summer, "Race 1", "2002-06-18");
    AddRace(99, "Orphan", "1999-05-05");  // of no series

    RowSet years;
    ASSERT_EQ(results.GetYears(years), "");
    std::string listed = test::Rendered(years);
    for (const char* year : {"2002", "2001", "1999", ""}) {
        RowSet series;
        ASSERT_EQ(results.GetSeries(series, year), "");
        listed += std::string("in '") + year + "':\n" + test::Rendered(series);
    }
    EXPECT_EQ(listed, test::Expected("series/working-context.txt", "series by year"));
}

TEST_F(WorkingContextTest, TheRememberedContextIsReturnedAsStored) {
    const int summer = AddSeries("Summer");
    AddRace(summer, "Race 1", "2002-06-18");

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
    EXPECT_EQ(Column(series, 1), (std::vector<std::string>{"Summer"}));

    RowSet schedule;
    int race = 0;
    ASSERT_EQ(results.GetCurrentSchedule(schedule, summer, race), "");
    EXPECT_EQ(race, 7);
    EXPECT_EQ(Column(schedule, 1), (std::vector<std::string>{"Race 1"}));
}

TEST_F(WorkingContextTest, RacesAreOrderedByDateThenNameAndKeepTheirTypes) {
    const int summer = AddSeries("Summer");
    const int other = AddSeries("Other");
    AddRace(summer, "b race", "2002-06-18", true);
    AddRace(summer, "A race", "2002-06-18");
    AddRace(summer, "Early", "2002-05-01");
    AddRace(other, "Elsewhere", "2002-06-01");

    RowSet schedule;
    ASSERT_EQ(results.GetSchedule(schedule, summer), "");
    EXPECT_EQ(test::Rendered(schedule), test::Expected("series/working-context.txt", "races"));

    ASSERT_EQ(results.GetSchedule(schedule, 555), "");
    EXPECT_TRUE(schedule.IsEmpty());
}

}  // namespace
}  // namespace tb
