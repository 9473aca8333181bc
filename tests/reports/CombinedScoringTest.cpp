// The combined report scores the race, the discards and the standings in one pass over the
// results; run one by one, the computations must leave the same figures.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/ReportFixture.h"

namespace tb::test {
namespace {

constexpr int kCombined = 5;

class CombinedScoringTest : public ReportFixture {
protected:
    CombinedScoringTest() {
        // A third race on race 2's date. Corrected times: Tern 3135, Fish 3600, Gull 3675, so
        // Fish scores 2 in every race and Gull 3 in races 1 and 3.
        race3 = season.AddRace("Race 3", "2024-06-22", true);
        season.EnterAll(race3);
        season.Start(race3, class1);
        season.Start(race3, multihull);
        season.Finish(race3, fish, 3600);
        season.Finish(race3, gull, 3500);
        season.Finish(race3, tern, 3300);
        season.Finish(race3, catOne, 3000);
        season.Status(race3, catTwo, 5);
        RowSet problems;
        EXPECT_EQ(results.ComputeResultTimes(race2, problems), "");
        // Series entrants, sub-series entrants and every entrant, as report data.
        UseMenu("series=,,,0,0\nsub=,,,1,0\nall=,,,2,0");
    }

    // Every result's points in Id order, then every entrant's series total.
    std::vector<double> Stored() {
        return db.Numbers(
            "SELECT Points, 0 AS Part, Id FROM Results UNION ALL "
            "SELECT SeriesPoints, 1, Id FROM Entrant ORDER BY 2, 3");
    }

    int race3 = 0;
};

TEST_F(CombinedScoringTest, LeavesWhatTheComputationsOneByOneLeave) {
    for (short option : {0, 1, 2}) {
        std::string path;
        ASSERT_EQ(results.CreateReport(kCombined, option, 0, race3, path), "") << option;
        const std::vector<double> byReport = Stored();
        RowSet standingsByReport;
        ASSERT_EQ(results.GetCumulativeResults(race3, option, standingsByReport), "");

        RowSet discards;
        ASSERT_EQ(results.ComputePoints(race3, option), "");
        ASSERT_EQ(results.ComputeSeriesPoints(race3, option, discards), "");
        RowSet standings;
        ASSERT_EQ(results.GetCumulativeResults(race3, option, standings), "");
        EXPECT_EQ(Stored(), byReport) << option;
        EXPECT_EQ(standings, standingsByReport) << option;
    }
}

TEST_F(CombinedScoringTest, OfEqualWorstPointsTheLaterRaceIsDiscarded) {
    std::string path;
    ASSERT_EQ(results.CreateReport(kCombined, 2, 0, race3, path), "");
    // Fish's then Gull's points, race by race. Gull's 3s: race 3 is the later date. Fish's 2s:
    // races 2 and 3 share a date; of those the race added first goes.
    const std::string entrants = std::to_string(gull) + ", " + std::to_string(fish);
    EXPECT_EQ(db.Numbers("SELECT Points FROM Results WHERE Entrant IN (" + entrants +
                         ") ORDER BY Entrant, Schedule"),
              (std::vector<double>{2, -2, 2, 3, 1, -3}));
}

}  // namespace
}  // namespace tb::test
