#include <gtest/gtest.h>

#include <string>

#include "SeriesFixture.h"
#include "support/Checks.h"

namespace tb {
namespace {

using ScheduleTest = test::SeriesFixture;

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
