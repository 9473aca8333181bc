// The single rules of timing and scoring, each on the smallest race that shows it.

#include <gtest/gtest.h>

#include <sstream>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "scoring/SeasonBuilder.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::SeasonBuilder;

// One class in one race, every entrant on the entry list and started.
struct SmallRace {
    void OneRace(const std::string& isoDate, std::size_t boats) {
        classA = season.AddClass("A");
        for (std::size_t i = 0; i < boats; ++i)
            entrant.push_back(season.AddEntrant("Boat " + std::string(1, char('A' + i)), classA));
        raceId = season.AddRace("Race", isoDate);
        season.EnterAll(raceId);
        season.Start(raceId, classA);
    }

    std::string Score() {
        RowSet problems;
        std::string Msg = results.ComputeResultTimes(raceId, problems);
        return Msg.empty() ? results.ComputePoints(raceId, 2) : Msg;
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

class ScoringRulesTest : public ::testing::Test, protected SmallRace {};

// Each row of the data file on a database of its own.
TEST(ScoringRules, PointsOfEachRuleOnTheSmallestRaceThatShowsIt) {
    for (const auto& row : test::DataFileRows("scoring/rules.tsv")) {
        std::vector<std::string> boats;
        std::istringstream words(row.at(2));
        for (std::string word; words >> word;)
            boats.push_back(word);
        SmallRace race;
        race.OneRace(row.at(1), boats.size());
        auto& season = race.season;
        const auto& entrants = race.entrant;
        for (std::size_t i = 0; i < boats.size(); ++i) {
            const std::string& boat = boats[i];
            if (boat.starts_with('u'))
                season.Exec("DELETE FROM EntryList WHERE Entrant=" + std::to_string(entrants[i]));
            if (boat.starts_with('s'))
                season.Status(race.raceId, entrants[i], std::stoi(boat.substr(1)));
            else if (boat != "-")
                season.Finish(race.raceId, entrants[i],
                              std::stoi(boat.substr(boat.starts_with('u'))),
                              boat.ends_with('r') ? "PenaltyPoints=-1" : "");
        }
        if (!row.at(3).empty())
            season.Exec(row[3]);
        ASSERT_EQ(race.Score(), "") << row[0];
        std::string points;
        for (const int entrant : entrants)
            points +=
                (points.empty() ? "" : " ") + NumberToText(season.Points(race.raceId, entrant));
        EXPECT_EQ(points, row.at(4)) << row[0];
    }
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
    EXPECT_EQ(test::Rendered(problems), test::Expected("scoring/handicap-problems.txt", "race"));
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
