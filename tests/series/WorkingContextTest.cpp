#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SeriesFixture.h"
#include "support/Checks.h"

namespace tb {
namespace {

using WorkingContextTest = test::SeriesFixture;
using ScheduleTest = test::SeriesFixture;
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
    const int series = AddSeries("Summer");
    const int race = AddRace(series, "Race 1", "2002-06-18");
    const int irc = AddHandicapType("IRC");
    const int owner = AddPerson("Ann", "Hara");
    const int entrant =
        AddEntrant(series, AddBoat("Kestrel", "GBR 1", owner), AddClass(series, "C1", irc), owner);
    Enter(entrant, race);
    db.Exec("INSERT INTO Start (Schedule, Class) VALUES (" + std::to_string(race) + ", 1)");
    db.ForgetStamp();

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
