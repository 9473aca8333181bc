#include "series/SeriesFixture.h"
#include "support/Checks.h"

namespace tb::test {
namespace {

using ClassSplit = SeriesFixture;

// Each boat goes to the class of its class's handicap type whose minimum is the highest not
// above its TCF on its entry date; the class without a minimum takes the rest; a boat without
// such a handicap keeps its class and is listed; another type's classes are no choice.
TEST_F(ClassSplit, AssignsEachBoatByItsTcfOnItsEntryDate) {
    const int irc = AddHandicapType("IRC"), club = AddHandicapType("Club");
    const int series = AddSeries("Summer");
    const int owner = AddPerson("Ann", "Lee");
    ASSERT_EQ(results.PutClassDetails(0, series, "Big", "1.05", static_cast<short>(irc)), "");
    ASSERT_EQ(results.PutClassDetails(0, series, "Middle", "0.95", static_cast<short>(irc)), "");
    ASSERT_EQ(results.PutClassDetails(0, series, "Small", "", static_cast<short>(irc)), "");
    ASSERT_EQ(results.PutClassDetails(0, series, "Club", "0.5", static_cast<short>(club)), "");
    const auto rows = DataFileRows("series/class-split.tsv");
    std::vector<int> entrants;
    for (const auto& row : rows) {
        const int boat = AddBoat(row.at(0), row.at(0), owner);
        const int classNow = std::stoi(row.at(3));
        if (row.at(1) != "0")
            AddHandicap(boat, classNow == 4 ? club : irc, std::stod(row[1]), row.at(2));
        entrants.push_back(AddEntrant(series, boat, classNow, owner));
    }
    RowSet moves, unrated;
    ASSERT_EQ(results.GetClassSplitMoves(series, moves, unrated), "");
    EXPECT_EQ(Column(unrated, 0), (std::vector<std::string>{"Rated after entry", "Unrated"}));
    EXPECT_EQ(Column(moves, 4), (std::vector<std::string>{"Big", "Small", "Big", "Middle"}));
    ASSERT_EQ(results.PutClassSplit(series, moves), "");
    for (std::size_t i = 0; i < entrants.size(); ++i) {
        EXPECT_EQ(db.Text("SELECT Class FROM Entrant WHERE Id=" + std::to_string(entrants[i])),
                  rows[i].at(4))
            << rows[i][0];
    }
}

}  // namespace
}  // namespace tb::test
