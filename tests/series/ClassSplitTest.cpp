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
    const int big = 1, middle = 2, small = 3, clubClass = 4;
    struct Row {
        const char* boat;
        double tcf;  // 0: no handicap
        const char* from;
        int classNow;
        int classAfter;
    } rows[] = {
        {"Exactly big", 1.05, "2002-01-01", small, big},
        {"Above big", 1.2, "2002-01-01", middle, big},
        {"Middle", 0.99, "2002-01-01", big, middle},
        {"Below every minimum", 0.8, "2002-01-01", middle, small},
        {"Already small", 0.9, "2002-01-01", small, small},
        {"Rated after entry", 1.2, "2002-07-01", small, small},
        {"Unrated", 0, "", middle, middle},
        {"Club boat", 0.6, "2002-01-01", clubClass, clubClass},
    };
    std::vector<int> entrants;
    for (const Row& row : rows) {
        const int boat = AddBoat(row.boat, row.boat, owner);
        if (row.tcf > 0)
            AddHandicap(boat, row.classNow == clubClass ? club : irc, row.tcf, row.from);
        entrants.push_back(AddEntrant(series, boat, row.classNow, owner));
    }
    RowSet moves, unrated;
    ASSERT_EQ(results.GetClassSplitMoves(series, moves, unrated), "");
    EXPECT_EQ(Column(unrated, 0), (std::vector<std::string>{"Rated after entry", "Unrated"}));
    EXPECT_EQ(Column(moves, 4), (std::vector<std::string>{"Big", "Small", "Big", "Middle"}));
    ASSERT_EQ(results.PutClassSplit(series, moves), "");
    for (std::size_t i = 0; i < entrants.size(); ++i) {
        EXPECT_EQ(db.Text("SELECT Class FROM Entrant WHERE Id=" + std::to_string(entrants[i])),
                  std::to_string(rows[i].classAfter))
            << rows[i].boat;
    }
}

}  // namespace
}  // namespace tb::test
