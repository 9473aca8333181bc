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

double Adjusted(std::initializer_list<double> counted) {
    double total = 0;
    for (double p : counted)
        total += p - std::pow(10.0, -(p + 2));
    return total;
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
        const std::map<std::string, int> byName = {{"Alpha", a1}, {"Bravo", a2}, {"Charlie", a3},
                                                   {"Delta", a4}, {"Echo", b1},  {"Foxtrot", b2},
                                                   {"Golf", b3}};
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
};

TEST_F(SeasonTest, RacePointsOfEveryRaceAfterTheLast) {
    ASSERT_EQ(Score(race[4], 2), "");
    struct Expected {
        int entrant;
        double points[5];  // negative: discarded
    };
    const Expected expected[] = {
        // Alpha: 1, 1, 1.5 (tie: (1+2)/2), 0 (no start), 5 (3rd + 2 places) -> the 5 discarded.
        {a1, {1, 1, 1.5, 0, -5}},
        // Bravo: 2, 4 (3960 s is slowest), 1.5, 0, 5 (DNE: 4 entrants + 1, never discarded)
        // -> the 4 is discarded instead.
        {a2, {2, -4, 1.5, 0, 5}},
        // Charlie: 3, 3 (3800 s), 3, 0, 1 -> of three 3s the latest race is discarded.
        {a3, {3, 3, -3, 0, 1}},
        // Delta: DNF (4 entrants + 1), 2, 4, 0, 1 (2nd with 1 place redress) -> DNF discarded.
        {a4, {-5, 2, 4, 0, 1}},
        // Echo: 1.5 (tie), 2, 1, 2, 3 -> the 3 discarded.
        {b1, {1.5, 2, 1, 2, -3}},
        // Foxtrot: 1.5, 1, 2, 4 (DNS: 3 entrants + 1), 1 -> the 4 discarded.
        {b2, {1.5, 1, 2, -4, 1}},
        // Golf: DNF 4, 3 (not entered: did-not-compete = 2 on the list + 1), 3, 1, 2.
        {b3, {-4, 3, 3, 1, 2}},
    };
    for (const auto& e : expected) {
        for (int i = 0; i < 5; ++i) {
            EXPECT_DOUBLE_EQ(season.Points(race[i], e.entrant), e.points[i])
                << "entrant " << e.entrant << " race " << i + 1;
        }
    }
}

TEST_F(SeasonTest, SeriesTotalsAndPositions) {
    ASSERT_EQ(Score(race[4], 2), "");
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a1), Adjusted({1, 1, 1.5, 0}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a2), Adjusted({5, 2, 1.5, 0}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a3), Adjusted({3, 3, 0, 1}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a4), Adjusted({2, 4, 0, 1}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(b1), Adjusted({1.5, 2, 1, 2}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(b2), Adjusted({1.5, 1, 2, 1}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(b3), Adjusted({3, 3, 1, 2}));

    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(race[4], 2, rows), "");
    // Class A standings: Alpha 3.49, Delta 6.988899, Charlie 6.98898, Bravo 8.49. Class B:
    // Foxtrot 5.49, Echo 6.49, Golf 8.99. Races the class did not start are left out.
    std::vector<std::pair<std::string, long long>> order;
    for (std::size_t r = 0; r < rows.Rows(); ++r) {
        if (order.empty() || order.back().first != rows(3, r).ToText()) {
            order.emplace_back(rows(3, r).ToText(), rows(9, r).AsInt());
        }
    }
    const std::vector<std::pair<std::string, long long>> expected = {
        {"Alpha", 1},   {"Delta", 2}, {"Charlie", 3}, {"Bravo", 4},
        {"Foxtrot", 1}, {"Echo", 2},  {"Golf", 3}};
    EXPECT_EQ(order, expected);
    EXPECT_EQ(rows.Rows(), 4u * 4 + 3 * 5);  // class A did not start in race 4
    // Alpha's discarded fifth race reads 5*.
    bool sawDiscard = false;
    for (std::size_t r = 0; r < rows.Rows(); ++r) {
        if (rows(3, r).ToText() == "Alpha" && rows(6, r).ToText() == "Race 5") {
            EXPECT_EQ(rows(7, r).ToText(), "5*");
            sawDiscard = true;
        }
    }
    EXPECT_TRUE(sawDiscard);
}

TEST_F(SeasonTest, DiscardsComeOnlyAfterTheFourthRaceRun) {
    ASSERT_EQ(Score(race[3], 2), "");
    // After race 4: class A has run 3 races (none discarded), class B 4 (one discarded).
    ASSERT_EQ(discards.Rows(), 2u);
    for (std::size_t r = 0; r < 2; ++r) {
        EXPECT_EQ(discards(0, r).AsInt(), discards(1, r).AsInt() == classA ? 0 : 1);
    }
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
    // Race 3: Alpha and Bravo tie for first (1.5 each), Charlie 3.
    EXPECT_DOUBLE_EQ(season.Points(race[2], a1), 1.5);
    EXPECT_DOUBLE_EQ(season.Points(race[2], a3), 3);
    // Race 5: Charlie 1st; Alpha 2nd + 2 places = 4; Bravo DNE = 3 entrants + 1 = 4.
    EXPECT_DOUBLE_EQ(season.Points(race[4], a3), 1);
    EXPECT_DOUBLE_EQ(season.Points(race[4], a1), 4);
    EXPECT_DOUBLE_EQ(season.Points(race[4], a2), 4);
    // Two races run: nothing discarded.
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a1), Adjusted({1.5, 4}));
    EXPECT_DOUBLE_EQ(season.SeriesPoints(a3), Adjusted({3, 1}));
    // Delta's rows are left as the series computation left them.
    EXPECT_DOUBLE_EQ(season.Points(race[4], a4), deltaRace5);
    EXPECT_DOUBLE_EQ(season.Points(race[2], a4), deltaRace3);

    RowSet rows;
    ASSERT_EQ(results.GetCumulativeResults(race[4], 1, rows), "");
    for (std::size_t r = 0; r < rows.Rows(); ++r) {
        EXPECT_NE(rows(3, r).ToText(), "Delta");
        EXPECT_TRUE(rows(6, r).ToText() == "Race 3" || rows(6, r).ToText() == "Race 5");
    }
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
    ASSERT_EQ(classes.Rows(), 2u);
    EXPECT_EQ(classes(8, 0).ToText(), "A");
    EXPECT_EQ(classes(1, 0).AsInt(), 4);  // entrants
    EXPECT_EQ(classes(2, 0).AsInt(), 4);  // starters: DNE counts as a starter
    ASSERT_EQ(boats.Rows(), 7u);
    // Class A: Charlie 1 and Delta 1 (redress) share first; Alpha 5 and Bravo 5 share third.
    using Texts = std::vector<std::string>;
    EXPECT_EQ(test::Column(boats, 2),
              (Texts{"Charlie", "Delta", "Alpha", "Bravo", "Foxtrot", "Golf", "Echo"}));
    EXPECT_EQ(test::Column(boats, 11), (Texts{"1", "1", "3", "3", "1", "2", "3"}));
    EXPECT_EQ(test::Column(boats, 10), (Texts{"", "", "", "DNE", "", "", ""}));
    EXPECT_EQ(boats(7, 2).ToText(), "1:05:00");  // Alpha 3900 s
    EXPECT_EQ(boats(6, 3).ToText(), "-");        // Bravo has no finish
    EXPECT_EQ(boats(8, 3).ToText(), "-");
}

TEST_F(SeasonTest, PenaltiesGiveTheCorrectedTimes) {
    RowSet problems;
    ASSERT_EQ(results.ComputeResultTimes(race[1], problems), "");
    auto corrected = [&](int entrant) {
        return db.Text("SELECT CorrectedTime FROM Results WHERE Schedule=" +
                       std::to_string(race[1]) + " AND Entrant=" + std::to_string(entrant));
    };
    EXPECT_EQ(corrected(a2), "3960.0");  // 3600 x 1.1
    EXPECT_EQ(corrected(a3), "3800.0");  // 3500 + 300
    EXPECT_TRUE(problems(0, 0).IsNull());
    EXPECT_EQ(problems.Rows(), 1u);
}

}  // namespace
}  // namespace tb
