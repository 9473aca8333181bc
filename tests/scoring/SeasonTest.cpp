// A whole season worked by hand: two classes, five races of May 2010 (shared points for ties).
// Its rows are scoring/season.sql; every expected figure was worked out on paper (the working is
// beside the figures in scoring/season.txt), not by the code.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

// The entrants (their Ids as the arranged rows give them) and the races 1-5 (Ids 1-5).
enum Entrant { Alpha = 1, Bravo, Charlie, Delta, Echo, Foxtrot, Golf };

class SeasonTest : public ::testing::Test {
protected:
    void SetUp() override { db.Exec(test::DataFile("scoring/season.sql")); }

    // As a club does it: each race's report was made on its evening, which timed that race.
    // The series totals follow only when asked for, as for a series report.
    std::string Score(int raceId, short option, bool seriesToo = true) {
        RowSet problems;
        std::string Msg;
        for (int race = 1; race <= raceId && Msg.empty(); ++race)
            Msg = results.ComputeResultTimes(race, problems);
        if (Msg.empty())
            Msg = results.ComputePoints(raceId, option);
        if (Msg.empty() && seriesToo)
            Msg = results.ComputeSeriesPoints(raceId, option, discards);
        return Msg;
    }
    double Points(int race, Entrant entrant) {
        return db
            .Numbers("SELECT Points FROM Results WHERE Schedule=? AND Entrant=?",
                     {std::to_string(race), std::to_string(entrant)})
            .at(0);
    }

    RowSet discards;
    test::TestDatabase db;
    clResults results;
};

TEST_F(SeasonTest, RacePointsSeriesTotalsAndPositionsAfterTheLastRace) {
    ASSERT_EQ(Score(5, 2), "");
    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(5, 2, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("scoring/season.txt", "standings"));
}

TEST_F(SeasonTest, DiscardsComeOnlyAfterTheFourthRaceRun) {
    ASSERT_EQ(Score(4, 2), "");
    EXPECT_EQ(test::Rendered(discards),
              test::Expected("scoring/season.txt", "discards after race 4"));
    EXPECT_DOUBLE_EQ(Points(1, Delta), 5);
    EXPECT_DOUBLE_EQ(Points(1, Golf), -4);
    // Computing again starts from fresh race points, so the totals stay the same.
    const std::string totals = "SELECT SeriesPoints FROM Entrant ORDER BY Id";
    const std::vector<std::string> before = db.Column(totals);
    ASSERT_EQ(results.ComputePoints(4, 2), "");
    ASSERT_EQ(results.ComputeSeriesPoints(4, 2, discards), "");
    EXPECT_EQ(db.Column(totals), before);
}

TEST_F(SeasonTest, SubSeriesCountsOnlyItsRacesAndEntrants) {
    ASSERT_EQ(Score(5, 2), "");
    const double deltaRace5 = Points(5, Delta);
    const double deltaRace3 = Points(3, Delta);
    ASSERT_EQ(Score(5, 1), "");
    // Races 3 and 5 only; Delta (series only) is not an entrant: class A has three entrants.
    // Race 3: Alpha and Bravo tie for first (1.5 each), Charlie 3. Race 5: Charlie 1st; Alpha 2nd
    // + 2 places = 4; Bravo DNE = 3 entrants + 1 = 4. Two races run: nothing discarded.
    // Delta's rows are left as the series computation left them.
    EXPECT_DOUBLE_EQ(Points(5, Delta), deltaRace5);
    EXPECT_DOUBLE_EQ(Points(3, Delta), deltaRace3);

    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(5, 1, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("scoring/season.txt", "sub-series standings"));
}

TEST_F(SeasonTest, ARedressPastFirstPlaceIsReportedButThePointsAreWritten) {
    // Series entrants only: Charlie (sub-series only) is out, so Delta finishes first in race 5
    // and cannot be given its place of redress.
    EXPECT_EQ(Score(5, 0, false),
              "I-It is not possible to give redress of 1 places for a boat in position 1");
    EXPECT_DOUBLE_EQ(Points(5, Delta), 1);
    EXPECT_DOUBLE_EQ(Points(5, Alpha), 4);  // 2nd + 2 places
}

TEST_F(SeasonTest, RaceResultsOfTheLastRace) {
    ASSERT_EQ(Score(5, 2, false), "");
    RowSet classes, boats;
    ASSERT_EQ(results.GetRaceResults(5, 2, classes, boats), "");
    // Class A: four entrants and four starters (DNE counts as a starter); Charlie 1 and Delta 1
    // (redress) share first, Alpha 5 and Bravo 5 share third.
    EXPECT_EQ(test::Rendered(classes) + test::Rendered(boats),
              test::Expected("scoring/season.txt", "race 5"));
}

}  // namespace
}  // namespace tb
