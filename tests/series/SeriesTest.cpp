#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "SeriesFixture.h"
#include "app/Globals.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"

namespace tb {
namespace {

using SeriesTest = test::SeriesFixture;
using ClassSplit = test::SeriesFixture;
using test::Column;

TEST_F(SeriesTest, ANewSeriesGetsItsIdBackSoTheNextSaveUpdatesTheSameRow) {
    int id = 0;
    ASSERT_EQ(results.PutSeriesDetails(id, "Summer Evening", "Thursdays", 1, "1"), "");
    ASSERT_GT(id, 0);
    EXPECT_TRUE(db.Stamped());

    const int first = id;
    ASSERT_EQ(results.PutSeriesDetails(id, "O'Neil's Summer Cup", "", 1, "1"), "");
    EXPECT_EQ(id, first);
    EXPECT_EQ(db.Count("Series"), 1);

    RowSet rows;
    ASSERT_EQ(results.GetSeriesDetails(id, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("series/series.txt", "details"));
}

TEST_F(SeriesTest, MinimumTcfIsNullWhenBlankAndANumberOtherwise) {
    const int series = AddSeries("Spring");
    const int irc = AddHandicapType("IRC");
    ASSERT_EQ(results.PutClassDetails(0, series, "Class 1", "", static_cast<short>(irc)), "");
    ASSERT_EQ(results.PutClassDetails(0, series, "Class 1", "1.05", static_cast<short>(irc)), "");
    // Two saves of a new class add two rows: the new Id is not handed back.
    EXPECT_EQ(db.Count("Class"), 2);
    EXPECT_EQ(db.Count("Class", "MinTCF IS NULL"), 1);

    RowSet rows;
    ASSERT_EQ(results.GetClassDetails(2, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("series/series.txt", "class"));
    ASSERT_EQ(results.PutClassDetails(2, series, "Class 1 - IRC", "", static_cast<short>(irc)), "");
    EXPECT_EQ(db.Count("Class", "MinTCF IS NULL"), 2);
    EXPECT_EQ(db.Text("SELECT ClassName FROM Class WHERE Id=2"), "Class 1 - IRC");

    RowSet untouched;
    untouched.AddRow({Value("kept")});
    ASSERT_EQ(results.GetClassDetails(99, untouched), "");
    EXPECT_EQ(untouched(0, 0).ToText(), "kept");
}

TEST_F(SeriesTest, ClassSplitsAreListedByNameTypeAndHighestMinimumFirst) {
    const int series = AddSeries("Spring");
    const int other = AddSeries("Autumn");
    const int irc = AddHandicapType("IRC");
    const int club = AddHandicapType("Club");
    for (const auto& row : test::DataFileRows("series/class-splits.tsv"))
        ASSERT_EQ(results.PutClassDetails(0, series, row.at(0), row.at(2),
                                          static_cast<short>(row.at(1) == "IRC" ? irc : club)),
                  "");
    ASSERT_EQ(results.PutClassDetails(0, other, "Class 1", "", static_cast<short>(irc)), "");
    // A class whose handicap type is gone is not listed.
    ASSERT_EQ(results.PutClassDetails(0, series, "Orphan", "", 77), "");
    RowSet rows;
    ASSERT_EQ(results.GetClassSplits(rows, series), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("series/series.txt", "class splits"));
}

TEST_F(SeriesTest, EntryClassesAreOrderedByNameAndASeriesWithoutClassesSaysSo) {
    const int series = AddSeries("Spring");
    RowSet rows;
    EXPECT_EQ(results.GetClassSplits(rows, series), "");
    EXPECT_TRUE(rows.IsEmpty());
    rows.AddRow({Value("kept")});
    EXPECT_EQ(results.GetEntryClasses(series, rows), "I-There are no classes in this series");
    EXPECT_EQ(results.GetEntryClasses(0, rows), "");
    EXPECT_EQ(rows(0, 0).ToText(), "kept");

    const int irc = AddHandicapType("IRC");
    AddClass(series, "Sportsboats", irc);
    AddClass(series, "Class 1", irc);
    ASSERT_EQ(results.GetEntryClasses(series, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("series/series.txt", "entry classes"));
}

TEST_F(SeriesTest, AClassIsKeptUntilItsEntrantIsGoneAndRemovalsLeaveTheStampAlone) {
    db.Exec(test::DataFile("series/race-with-entry.sql"));
    const int series = 1, race = 1, classId = 1, entrant = 1;

    EXPECT_EQ(results.RemoveClass(classId),
              "E-It is not possible to remove this class as there are boats entered in it.");
    EXPECT_EQ(db.Count("Class"), 1);
    EXPECT_EQ(db.Count("Entrant"), 1);

    ASSERT_EQ(results.RemoveEntrant(entrant), "");
    EXPECT_EQ(results.RemoveClass(classId), "");
    EXPECT_EQ(db.Count("Class"), 0);
    // Removing the series deletes its row only.
    ASSERT_EQ(results.RemoveSeries(series), "");
    EXPECT_EQ(db.Count("Series"), 0);
    EXPECT_EQ(db.Count("Schedule", "Id=" + std::to_string(race)), 1);
    EXPECT_FALSE(db.Stamped());
}

TEST_F(SeriesTest, OnlyTheRemovalsShowAMissingDatabaseThemselves) {
    test::RecordingMessages messages;
    DataFile = db.folder() + "/gone.db";
    RowSet rows;
    int id = 0;
    const std::vector<std::pair<std::string, bool>> outcomes = {
        {results.GetClassSplits(rows, 1), false},
        {results.PutSeriesDetails(id, "Summer", "", 1, "1"), false},
        {results.RemoveClass(1), false},
        {results.RemoveSeries(1), true},
        {results.RemoveEntrant(1), true},
    };
    std::size_t shown = 0;
    for (const auto& [Msg, showsItself] : outcomes) {
        EXPECT_NE(Msg.find(" in ConnectDb"), std::string::npos) << Msg;
        if (showsItself)
            ++shown;
    }
    EXPECT_EQ(messages.shown.size(), shown);
}

// Each boat goes to the class of its class's handicap type whose minimum is the highest not
// above its TCF on its entry date; the class without a minimum takes the rest; a boat without
// such a handicap keeps its class and is listed; another type's classes are no choice.
TEST_F(ClassSplit, AssignsEachBoatByItsTcfOnItsEntryDate) {
    db.Exec(test::DataFile("series/class-split.sql"));
    RowSet moves, unrated;
    ASSERT_EQ(results.GetClassSplitMoves(1, moves, unrated), "");
    EXPECT_EQ(Column(unrated, 0), (std::vector<std::string>{"Rated after entry", "Unrated"}));
    EXPECT_EQ(Column(moves, 4), (std::vector<std::string>{"Big", "Small", "Big", "Middle"}));
    ASSERT_EQ(results.PutClassSplit(1, moves), "");
    // The boats in turn: exactly big and above big to Big, middle to Middle, the three
    // below every minimum, already small or rated after entry to Small; the unrated boat and
    // the club boat stay.
    EXPECT_EQ(db.Column("SELECT Class FROM Entrant ORDER BY Id"),
              (std::vector<std::string>{"1", "1", "2", "3", "3", "3", "2", "4"}));
}

}  // namespace
}  // namespace tb
