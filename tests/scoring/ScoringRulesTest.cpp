// The single rules of timing and scoring, each on the smallest race that shows it.

#include <gtest/gtest.h>

#include "data/clResults.h"
#include "scoring/SeasonBuilder.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::SeasonBuilder;

class ScoringRulesTest : public ::testing::Test {
protected:
    // One class, one race on the given date, every entrant on the entry list and started.
    void OneRace(const std::string& isoDate, int boats) {
        classA = season.AddClass("A");
        for (int i = 0; i < boats; ++i) {
            entrant.push_back(season.AddEntrant("Boat " + std::string(1, char('A' + i)), classA));
        }
        raceId = season.AddRace("Race", isoDate);
        season.EnterAll(raceId);
        season.Start(raceId, classA);
    }

    std::string Score() {
        RowSet problems;
        std::string Msg = results.ComputeResultTimes(raceId, problems);
        return Msg.empty() ? results.ComputePoints(raceId, 2) : Msg;
    }

    double Points(std::size_t i) { return season.Points(raceId, entrant[i]); }
    std::vector<double> AllPoints() {
        std::vector<double> points;
        for (std::size_t i = 0; i < entrant.size(); ++i)
            points.push_back(Points(i));
        return points;
    }
    // Finishes the first boats in turn, each the given seconds after the start.
    void Finishes(const std::vector<int>& seconds) {
        for (std::size_t i = 0; i < seconds.size(); ++i)
            season.Finish(raceId, entrant[i], seconds[i]);
    }

    test::TestDatabase db;
    SeasonBuilder season{db};
    clResults results;
    int classA = 0;
    int raceId = 0;
    std::vector<int> entrant;
};

TEST_F(ScoringRulesTest, ATieBefore2006TakesTheBestPlace) {
    OneRace("2005-06-12", 4);
    Finishes({3500, 3600, 3600, 3700});
    ASSERT_EQ(Score(), "");
    EXPECT_EQ(AllPoints(), std::vector<double>({1, 2, 2, 4}));
}

TEST_F(ScoringRulesTest, TiesFrom2006ShareThePointsOfThePlacesTheyTake) {
    OneRace("2006-01-01", 5);
    Finishes({3600, 3600, 3600});
    season.Finish(raceId, entrant[3], 3700, "PenaltyPoints=-1");  // redress does not reach the tie
    season.Finish(raceId, entrant[4], 3700);
    ASSERT_EQ(Score(), "");
    // Three tie for first: (1 + 2 + 3) / 3. The pair for fourth: one with a place of redress
    // scores the first tied place less one (3rd), the other keeps the group's mean of the
    // places both take: (4 + 5) / 2.
    EXPECT_EQ(AllPoints(), std::vector<double>({2, 2, 2, 3, 4.5}));
}

TEST_F(ScoringRulesTest, PlacesBeyondTheTableScoreOneMoreEach) {
    OneRace("2010-06-12", 10);
    for (int i = 0; i < 10; ++i)
        season.Finish(raceId, entrant[i], 3600 + 10 * i);
    ASSERT_EQ(Score(), "");
    EXPECT_DOUBLE_EQ(Points(9), 10);
    // With 7th place worth 8, 10th is worth 11.
    season.Exec("UPDATE Points SET Value=8 WHERE Scoring=1 AND Place=7");
    ASSERT_EQ(Score(), "");
    EXPECT_DOUBLE_EQ(Points(6), 8);
    EXPECT_DOUBLE_EQ(Points(9), 11);
}

TEST_F(ScoringRulesTest, StatusPointsCountStartersOrEntrantsWithAFloor) {
    OneRace("2010-06-12", 8);
    Finishes({3600, 3601, 3602, 3603, 3604, 3605});
    season.Status(raceId, entrant[6], 4);  // DNF
    // DNF group: starters + 1. Seven starters (the DNF started; the eighth boat has no result).
    season.Exec("UPDATE Points SET Base=1, Value=1, MinValue=0 WHERE Scoring=1 AND Status=4");
    ASSERT_EQ(Score(), "");
    EXPECT_DOUBLE_EQ(Points(6), 8);
    // The boat without a result was given did-not-compete: 8 entrants + 1.
    EXPECT_DOUBLE_EQ(Points(7), 9);
    season.Exec("UPDATE Points SET Value=-10, MinValue=5 WHERE Scoring=1 AND Status=4");
    ASSERT_EQ(Score(), "");
    EXPECT_DOUBLE_EQ(Points(6), 5);
}

TEST_F(ScoringRulesTest, FinishersWithoutATimeRankAfterTimedFinishers) {
    OneRace("2010-06-12", 3);
    season.Finish(raceId, entrant[0], 3700);
    season.Status(raceId, entrant[1], 9);
    season.Finish(raceId, entrant[2], 3600);
    ASSERT_EQ(Score(), "");
    EXPECT_EQ(AllPoints(), std::vector<double>({2, 3, 1}));
}

TEST_F(ScoringRulesTest, HandicapsChosenAndProblemsListed) {
    OneRace("2010-06-12", 3);
    // Boat B has no handicap; boat C has two valid ones (the later start date wins).
    season.Exec("DELETE FROM Handicap WHERE Boat=2");
    season.Exec(
        "INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) "
        "VALUES (3, 1, 0.9, '2010-01-01 00:00:00')");
    Finishes({3600, 3600, 4000});
    RowSet problems;
    ASSERT_EQ(results.ComputeResultTimes(raceId, problems), "");
    ASSERT_EQ(problems.Rows(), 2u);
    EXPECT_EQ(problems(1, 0).ToText(), "Boat B");
    EXPECT_EQ(problems(2, 0).AsInt(), 0);
    EXPECT_EQ(problems(1, 1).ToText(), "Boat C");
    EXPECT_EQ(problems(2, 1).AsInt(), 2);
    // Without a handicap: 9.999, so far behind; with two, the later one.
    EXPECT_EQ(db.Lines("SELECT Handicap, CorrectedTime FROM Results WHERE Entrant IN (2, 3) "
                       "ORDER BY Entrant",
                       "/"),
              (std::vector<std::string>{"9.999/35996.4", "0.9/3600.0"}));
}

TEST_F(ScoringRulesTest, LaterRacesBringDidNotCompeteResultsForEveryEarlierRace) {
    OneRace("2010-06-12", 2);
    const int second = season.AddRace("Second", "2010-06-19");
    const int late = season.AddEntrant("Late", classA);
    season.EnterAll(second);
    season.Start(second, classA);
    season.Finish(second, late, 3600);
    RowSet problems;
    ASSERT_EQ(results.ComputeResultTimes(second, problems), "");
    EXPECT_EQ(db.Count("Results", "Status=2"), 5);  // 3 boats x 2 races, one finish
    EXPECT_EQ(db.Count("Results", "Entrant=" + std::to_string(late)), 2);
    ASSERT_EQ(results.ComputeResultTimes(second, problems), "");
    EXPECT_EQ(db.Count("Results"), 6);
}

TEST_F(ScoringRulesTest, OnlyBoatsOnTheEntryListAreRankedAndCounted) {
    OneRace("2010-06-12", 3);
    // Recorded as finishing first, but not on this race's entry list.
    const int unlisted = season.AddEntrant("Unlisted", classA);
    entrant.push_back(unlisted);
    season.Finish(raceId, unlisted, 3500);
    Finishes({3600, 3700});
    ASSERT_EQ(Score(), "");
    // Did not compete, among three entrants: 3 + 1, for the boat without a result and for the
    // boat that was not entered alike.
    EXPECT_EQ(AllPoints(), std::vector<double>({1, 2, 4, 4}));
}

TEST_F(ScoringRulesTest, NoStartTimeMeansNoTimesAndNoPoints) {
    OneRace("2010-06-12", 2);
    season.Exec("UPDATE Start SET StartTime=NULL");
    season.Finish(raceId, entrant[0], 3600);
    ASSERT_EQ(Score(), "");
    EXPECT_EQ(db.Lines("SELECT ElapsedTime, CorrectedTime, Points FROM Results WHERE Entrant=" +
                           std::to_string(entrant[0]),
                       "/"),
              std::vector<std::string>{"0.0/0.0/0.0"});
}

TEST_F(ScoringRulesTest, RaceResultsShareEqualPointsAndShowTheHelm) {
    OneRace("2010-06-12", 4);
    Finishes({3600, 3700, 3700});
    season.Finish(raceId, entrant[3], 3725, "Notes='Me & You'");
    season.Exec("UPDATE Entrant SET NameOnResults='O''Neil crew' WHERE Id=" +
                std::to_string(entrant[1]));
    ASSERT_EQ(Score(), "");
    RowSet classes, boats;
    ASSERT_EQ(results.GetRaceResults(raceId, 2, classes, boats), "");
    EXPECT_EQ(test::Column(boats, 11), std::vector<std::string>({"1", "2", "2", "4"}));
    EXPECT_EQ(boats(4, 0).ToText(), "Helm No1");
    EXPECT_EQ(boats(4, 1).ToText(), "O'Neil crew");
    EXPECT_EQ(boats(8, 3).ToText(), "1:02:05");
    EXPECT_EQ(boats(12, 3).ToText(), "Me & You");
    EXPECT_TRUE(boats(6, 0).IsDate());
}

TEST_F(ScoringRulesTest, MessagesWhenThereIsNothingToReport) {
    OneRace("2010-06-12", 1);
    const int empty = season.AddRace("Empty", "2010-06-19");
    RowSet classes, boats, discards;
    EXPECT_EQ(results.GetRaceResults(empty, 2, classes, boats), "I-No results were found for race");
    season.Exec("DELETE FROM Discards");
    EXPECT_EQ(results.ComputeSeriesPoints(raceId, 2, discards),
              "No discard rules were found for this series");
    season.Exec("DELETE FROM Start");
    EXPECT_EQ(results.ComputeSeriesPoints(raceId, 2, discards),
              "I-No results were found for this race");
}

TEST_F(ScoringRulesTest, ARunTimeErrorLeavesTheResultsAsTheyWere) {
    OneRace("2010-06-12", 2);
    Finishes({3600, 3700});
    ASSERT_EQ(Score(), "");
    season.Exec("DELETE FROM Points WHERE Scoring=1 AND Place=7");  // a broken scoring system
    const std::vector<std::string> before = db.Column("SELECT Points FROM Results ORDER BY Id");
    EXPECT_TRUE(test::IsRunTimeError(results.ComputePoints(raceId, 2), "ComputePoints"));
    EXPECT_EQ(db.Column("SELECT Points FROM Results ORDER BY Id"), before);
}

}  // namespace
}  // namespace tb
