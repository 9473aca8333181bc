// Scoring and discard systems as the scoring editor saves, lists and removes them.

#include <gtest/gtest.h>

#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

// The seeded systems of a new database.
constexpr int kLowPoints = 1;
constexpr int kSeededDiscards = 1;

std::string Expected(const std::string& name) {
    return test::Expected("scoring/scoring-systems.txt", name);
}

class ScoringSystemsTest : public ::testing::Test {
protected:
    // Places 1-7 score 10, 20, ... 70; DNF/DNS/OCS/RAF 7 (minimum 1), BFD/DNE/DSQ 8 (minimum
    // 2), DNC 9 (minimum 3): every figure differs, so a value in the wrong row shows.
    clResults::ScoringValues values{"10", "20", "30", "40", "50", "60", "70",
                                    "7",  "8",  "9",  "1",  "2",  "3"};
    clResults::DiscardLines lines{{{"4", "8", "", "", ""}, {"1", "2", "", "", ""}}};

    std::string Save(int scoringId, const std::string& scoringName, int discardId,
                     const std::string& discardName, short base1 = 1, short base2 = 0) {
        return results.PutScoring(scoringId, scoringName, discardId, discardName, base1, base2,
                                  base1, values, lines);
    }
    // The rows of Scoring, Points, DiscardSystem and Discards.
    std::string Counts() {
        std::string counts;
        for (const char* table : {"Scoring", "Points", "DiscardSystem", "Discards"})
            counts += (counts.empty() ? "" : " ") + std::to_string(db.Count(table));
        return counts;
    }
    // The scoring systems, then the discard systems, as listed.
    std::string Listed() {
        std::string listed;
        for (auto list : {&clResults::GetScoring, &clResults::GetDiscards}) {
            EXPECT_EQ((results.*list)(rows), "");
            listed += test::Rendered(rows);
        }
        return listed;
    }
    int IdOf(const std::string& table, const std::string& description) {
        return std::stoi(
            db.Text("SELECT Id FROM " + table + " WHERE Description='" + description + "'"));
    }

    test::TestDatabase db;
    clResults results;
    RowSet rows;
};

TEST_F(ScoringSystemsTest, NewSystemHasFifteenRowsInTheFixedLayoutAndASecondSaveAddsNone) {
    ASSERT_EQ(Save(0, "Club points", 0, "One in five"), "");
    const int scoring = IdOf("Scoring", "Club points");
    EXPECT_NE(scoring, kLowPoints);
    EXPECT_TRUE(db.Stamped());
    values[0] = "0.75";
    const int discards = IdOf("DiscardSystem", "One in five");
    ASSERT_EQ(Save(scoring, "Club points", discards, "One in five"), "");
    EXPECT_EQ(Counts(), "2 30 2 10");
    ASSERT_EQ(results.GetScoringDetail(scoring, rows), "");
    EXPECT_EQ(test::Rendered(rows), Expected("club points"));

    // Bases are given per group: DNF/DNS/OCS/RAF, BFD/DNE/DSQ, DNC.
    ASSERT_EQ(Save(scoring, "Club points", discards, "One in five", 0, 1), "");
    ASSERT_EQ(results.GetScoringDetail(scoring, rows), "");
    EXPECT_EQ(test::Rendered(rows), Expected("club points, bases swapped"));
}

TEST_F(ScoringSystemsTest, NamesHeldByAnotherSystemAreRefused) {
    for (const char* name : {"Low points", "LOW POINTS"}) {
        EXPECT_EQ(Save(0, name, 0, "Fresh rule"),
                  std::string("E-Another scoring system named '") + name + "' already exists");
        EXPECT_EQ(Counts(), "1 15 1 5");
        EXPECT_EQ(db.Count("Points", "Value=10"), 0);
    }

    // A discard name held by another system: the scoring system is saved all the same.
    ASSERT_EQ(Save(0, "Other rule owner", 0, "Taken"), "");
    EXPECT_EQ(Save(kLowPoints, "Renamed low points", kSeededDiscards, "Taken"),
              "E-Another discard system named 'Taken' already exists");
    EXPECT_EQ(db.Count("Points", "Scoring=1 AND Place=1 AND Value=10"), 1);
    const std::string listed = Listed();
    ASSERT_EQ(results.GetDiscardDetail(kSeededDiscards, rows), "");
    EXPECT_EQ(listed + test::Rendered(rows), Expected("renamed scoring, seeded discards kept"));
}

TEST_F(ScoringSystemsTest, RenamingKeepsTheIdAndNamesMayHoldApostrophes) {
    ASSERT_EQ(Save(kLowPoints, "Commodore's points", kSeededDiscards, "low points' rule"), "");
    ASSERT_EQ(Save(kLowPoints, "commodore's POINTS", kSeededDiscards, "low points' rule"), "");
    EXPECT_EQ(Listed(), Expected("names with apostrophes"));
    EXPECT_EQ(Counts(), "1 15 1 5");
}

TEST_F(ScoringSystemsTest, DiscardLinesWithBlanksAreNullAndListedLast) {
    lines = {{{"", "8", "x", "4", ""}, {"", "2", "", "1", "3"}}};
    ASSERT_EQ(Save(kLowPoints, "Low points", kSeededDiscards, "Rule"), "");
    ASSERT_EQ(results.GetDiscardDetail(kSeededDiscards, rows), "");
    EXPECT_EQ(test::Rendered(rows), Expected("discards with blanks"));
}

TEST_F(ScoringSystemsTest, ValuesThatDoNotConvertStoreNothing) {
    for (const auto& [index, text] : {std::pair<std::size_t, const char*>{0, "first"}, {12, ""}}) {
        clResults::ScoringValues typed = values;
        typed[index] = text;
        EXPECT_TRUE(test::IsRunTimeError(
            results.PutScoring(0, "New", 0, "New rule", 0, 0, 0, typed, lines), "PutScoring"));
    }
    lines[0][2] = "40000";  // more races than a short integer holds
    EXPECT_TRUE(test::IsRunTimeError(Save(0, "New", 0, "New rule"), "PutScoring"));
    EXPECT_EQ(Counts(), "1 15 1 5");
}

TEST_F(ScoringSystemsTest, RemovalTakesTheRowsAndEmptyListsAreNoError) {
    ASSERT_EQ(results.RemoveScoring(kLowPoints), "");
    ASSERT_EQ(results.RemoveDiscardSystem(kSeededDiscards), "");
    EXPECT_EQ(Counts(), "0 0 0 0");
    RowSet lists[4];
    EXPECT_EQ(results.GetScoring(lists[0]) + results.GetDiscards(lists[1]) +
                  results.GetScoringDetail(kLowPoints, lists[2]) +
                  results.GetDiscardDetail(kSeededDiscards, lists[3]),
              "");
    for (const RowSet& empty : lists)
        EXPECT_TRUE(empty.IsEmpty());
}

TEST_F(ScoringSystemsTest, SeriesUsingASystemAreListedOncePerTitleWithTheirFirstRace) {
    db.Exec(
        "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Frostbite', 1, 1),"
        " (2, 'Frostbite', 1, 1), (3, 'Regatta', 1, 2), (4, 'Unscheduled', 1, 1)");
    db.Exec(
        "INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2010-01-10 00:00:00'),"
        " (2, '2009-01-11 00:00:00'), (2, '2009-02-11 00:00:00'),"
        " (3, '2010-07-01 00:00:00')");
    ASSERT_EQ(results.GetSeriesUsingScoring(kLowPoints, rows), "");
    std::string listed = test::Rendered(rows);
    ASSERT_EQ(results.GetSeriesUsingDiscard(kSeededDiscards, rows), "");
    listed += test::Rendered(rows);
    ASSERT_EQ(results.GetSeriesUsingDiscard(99, rows), "");
    EXPECT_EQ(listed + test::Rendered(rows), Expected("series using the seeded systems"));
}

}  // namespace
}  // namespace tb
