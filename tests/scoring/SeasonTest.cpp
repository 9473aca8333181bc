// A whole season worked by hand: two classes, five races of May 2010 (shared points for ties).
// Every expected figure below was worked out on paper from the finishes, not by the code.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "data/clResults.h"
#include "scoring/SeasonBuilder.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::SeasonBuilder;

// What the series total counts for p points.
double Adjusted(double p) {
    return p - std::pow(10.0, -(p + 2));
}

class SeasonTest : public ::testing::Test {
protected:
    void SetUp() override {
        classA = season.AddClass("A");
        classB = season.AddClass("B");
        a1 = season.AddEntrant("Alpha", classA, 0);
        a2 = season.AddEntrant("Bravo", classA, 0);
        a3 = season.AddEntrant("Charlie", classA, 1);  // sub-series only
        a4 = season.AddEntrant("Delta", classA, 3);    // series only
        b1 = season.AddEntrant("Echo", classB, 0);
        b2 = season.AddEntrant("Foxtrot", classB, 0);
        b3 = season.AddEntrant("Golf", classB, 0);
        for (int i = 0; i < 5; ++i) {
            race[i] = season.AddRace("Race " + std::to_string(i + 1),
                                     "2010-05-0" + std::to_string(i + 1), i == 2 || i == 4);
        }
        for (int i = 0; i < 5; ++i)
            season.EnterAll(race[i]);
        // Golf is not on the entry list of race 2.
        season.Exec("DELETE FROM EntryList WHERE Entrant=" + std::to_string(b3) +
                    " AND Schedule=" + std::to_string(race[1]));
        for (int i = 0; i < 5; ++i) {
            season.Start(race[i], classA, i != 3);  // class A did not start in race 4
            season.Start(race[i], classB);
        }
        // The finishes and statuses of the five races, with the working in the file.
        byName = {{"Alpha", a1}, {"Bravo", a2},   {"Charlie", a3}, {"Delta", a4},
                  {"Echo", b1},  {"Foxtrot", b2}, {"Golf", b3}};
        for (const auto& row : test::DataFileRows("scoring/season-finishes.tsv")) {
            const int raceId = race[std::stoi(row.at(0)) - 1];
            const int entrant = byName.at(row.at(1));
            if (row.at(2).starts_with("status "))
                season.Status(raceId, entrant, std::stoi(row.at(2).substr(7)));
            else
                season.Finish(raceId, entrant, std::stoi(row.at(2)), row.size() > 3 ? row[3] : "");
        }
    }

    // As a club does it: each race's report was made on its evening, which timed that race.
    // The series totals follow only when asked for, as for a series report.
    std::string Score(int raceId, short option, bool seriesToo = true) {
        RowSet problems;
        std::string Msg;
        for (int i = 0; i < 5 && Msg.empty() && race[i] <= raceId; ++i) {
            Msg = results.ComputeResultTimes(race[i], problems);
        }
        if (Msg.empty())
            Msg = results.ComputePoints(raceId, option);
        if (Msg.empty() && seriesToo)
            Msg = results.ComputeSeriesPoints(raceId, option, discards);
        return Msg;
    }

    RowSet discards;
    test::TestDatabase db;
    SeasonBuilder season{db};
    clResults results;
    int classA = 0, classB = 0;
    int a1 = 0, a2 = 0, a3 = 0, a4 = 0, b1 = 0, b2 = 0, b3 = 0;
    int race[5] = {};
    std::map<std::string, int> byName;
};

TEST_F(SeasonTest, RacePointsSeriesTotalsAndPositionsAfterTheLastRace) {
    ASSERT_EQ(Score(race[4], 2), "");
    for (const auto& row : test::DataFileRows("scoring/season-points.tsv")) {
        const int entrant = byName.at(row.at(0));
        for (int i = 0; i < 5; ++i)
            EXPECT_DOUBLE_EQ(season.Points(race[i], entrant), std::stod(row.at(i + 1)))
                << row[0] << " race " << i + 1;
        double total = 0;
        for (std::size_t i = 6; i < row.size(); ++i)
            total += Adjusted(std::stod(row[i]));
        EXPECT_DOUBLE_EQ(season.SeriesPoints(entrant), total) << row[0];
    }

    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(race[4], 2, rows), "");
    // Class A: Alpha 3.49, Delta 6.988899, Charlie 6.98898, Bravo 8.49; class B: Foxtrot 5.49,
    // Echo 6.49, Golf 8.99; a race the class did not start is left out; a discard reads 5*.
    EXPECT_EQ(test::Rendered(rows), test::Expected("scoring/season.txt", "standings"));
}

TEST_F(SeasonTest, DiscardsComeOnlyAfterTheFourthRaceRun) {
    ASSERT_EQ(Score(race[3], 2), "");
    EXPECT_EQ(test::Rendered(discards),
              test::Expected("scoring/season.txt", "discards after race 4"));
    EXPECT_DOUBLE_EQ(season.Points(race[0], a4), 5);
    EXPECT_DOUBLE_EQ(season.Points(race[0], b3), -4);
    // Computing again starts from fresh race points, so the totals stay the same.
    const double before = season.SeriesPoints(b1);
    ASSERT_EQ(results.ComputePoints(race[3], 2), "");
    ASSERT_EQ(results.ComputeSeriesPoints(race[3], 2, discards), "");
    EXPECT_DOUBLE_EQ(season.SeriesPoints(b1), before);
}

TEST_F(SeasonTest, SubSeriesCountsOnlyItsRacesAndEntrants) {
    ASSERT_EQ(Score(race[4], 2), "");
    const double deltaRace5 = season.Points(race[4], a4);
    const double deltaRace3 = season.Points(race[2], a4);
    ASSERT_EQ(Score(race[4], 1), "");
    // Races 3 and 5 only; Delta (series only) is not an entrant: class A has three entrants.
    // Race 3: Alpha and Bravo tie for first (1.5 each), Charlie 3. Race 5: Charlie 1st; Alpha 2nd
    // + 2 places = 4; Bravo DNE = 3 entrants + 1 = 4. Two races run: nothing discarded.
    // Delta's rows are left as the series computation left them.
    EXPECT_DOUBLE_EQ(season.Points(race[4], a4), deltaRace5);
    EXPECT_DOUBLE_EQ(season.Points(race[2], a4), deltaRace3);

    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(race[4], 1, rows), "");
    EXPECT_EQ(test::Rendered(rows), test::Expected("scoring/season.txt", "sub-series standings"));
}

TEST_F(SeasonTest, ARedressPastFirstPlaceIsReportedButThePointsAreWritten) {
    // Series entrants only: Charlie (sub-series only) is out, so Delta finishes first in race 5
    // and cannot be given its place of redress.
    EXPECT_EQ(Score(race[4], 0, false),
              "I-It is not possible to give redress of 1 places for a boat in position 1");
    EXPECT_DOUBLE_EQ(season.Points(race[4], a4), 1);
    EXPECT_DOUBLE_EQ(season.Points(race[4], a1), 4);  // 2nd + 2 places
}

TEST_F(SeasonTest, RaceResultsOfTheLastRace) {
    ASSERT_EQ(Score(race[4], 2, false), "");
    RowSet classes, boats;
    ASSERT_EQ(results.GetRaceResults(race[4], 2, classes, boats), "");
    // Class A: four entrants and four starters (DNE counts as a starter); Charlie 1 and Delta 1
    // (redress) share first, Alpha 5 and Bravo 5 share third.
    EXPECT_EQ(test::Rendered(classes) + test::Rendered(boats),
              test::Expected("scoring/season.txt", "race 5"));
}

}  // namespace
}  // namespace tb
