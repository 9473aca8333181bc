// Scoring and discard systems as the scoring editor saves, lists and removes them.

#include <gtest/gtest.h>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

// The seeded systems of a new database.
constexpr int kLowPoints = 1;
constexpr int kSeededDiscards = 1;

class ScoringSystemsTest : public ::testing::Test {
protected:
    // Places 1-7 score 10, 20, ... 70; DNF/DNS/OCS/RAF 7 (minimum 1), BFD/DNE/DSQ 8 (minimum
    // 2), DNC 9 (minimum 3): every figure differs, so a value in the wrong row shows.
    clResults::ScoringValues values{"10", "20", "30", "40", "50", "60", "70",
                                    "7",  "8",  "9",  "1",  "2",  "3"};
    clResults::DiscardLines lines{{{"4", "8", "", "", ""}, {"1", "2", "", "", ""}}};

    std::string Save(int scoringId, const std::string& scoringName, int discardId,
                     const std::string& discardName) {
        return results.PutScoring(scoringId, scoringName, discardId, discardName, 1, 0, 1, values,
                                  lines);
    }
    // The rows of Scoring, Points, DiscardSystem and Discards.
    std::string Counts() {
        std::string counts;
        for (const char* table : {"Scoring", "Points", "DiscardSystem", "Discards"})
            counts += (counts.empty() ? "" : " ") + std::to_string(db.Count(table));
        return counts;
    }
    int IdOf(const std::string& table, const std::string& description) {
        return std::stoi(
            db.Text("SELECT Id FROM " + table + " WHERE Description='" + description + "'"));
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(ScoringSystemsTest, NewSystemHasFifteenRowsInTheFixedLayoutAndASecondSaveAddsNone) {
    ASSERT_EQ(Save(0, "Club points", 0, "One in five"), "");
    const int scoring = IdOf("Scoring", "Club points");
    EXPECT_NE(scoring, kLowPoints);
    EXPECT_EQ(db.Count("Points", "Scoring=" + std::to_string(scoring)), 15);
    EXPECT_TRUE(db.Stamped());

    values[0] = "0.75";
    ASSERT_EQ(Save(scoring, "Club points", IdOf("DiscardSystem", "One in five"), "One in five"),
              "");
    EXPECT_EQ(Counts(), "2 30 2 10");

    RowSet points;
    ASSERT_EQ(results.GetScoringDetail(scoring, points), "");
    ASSERT_EQ(points.Rows(), 15u);
    // Status, Place, Base, Value, MinValue; "-" is Null.
    const char* expected[15][5] = {
        {"1", "-", "0", "8", "2"},  {"2", "-", "1", "9", "3"},  {"3", "-", "0", "8", "2"},
        {"4", "-", "1", "7", "1"},  {"5", "-", "1", "7", "1"},  {"6", "-", "0", "8", "2"},
        {"7", "-", "1", "7", "1"},  {"8", "-", "1", "7", "1"},  {"9", "1", "-", "0.75", "-"},
        {"9", "2", "-", "20", "-"}, {"9", "3", "-", "30", "-"}, {"9", "4", "-", "40", "-"},
        {"9", "5", "-", "50", "-"}, {"9", "6", "-", "60", "-"}, {"9", "7", "-", "70", "-"}};
    for (std::size_t r = 0; r < 15; ++r) {
        for (std::size_t c = 0; c < 5; ++c) {
            const std::string shown = points(c, r).IsNull() ? "-" : points(c, r).ToText();
            EXPECT_EQ(shown, expected[r][c]) << "row " << r << " column " << c;
        }
    }

    // Bases are given per group: DNF/DNS/OCS/RAF, BFD/DNE/DSQ, DNC.
    ASSERT_EQ(results.PutScoring(scoring, "Club points", IdOf("DiscardSystem", "One in five"),
                                 "One in five", 0, 1, 0, values, lines),
              "");
    EXPECT_EQ(db.Count("Points", "Base=1 AND Status IN (1, 3, 6)"), 3);
    EXPECT_EQ(db.Count("Points", "Base=0 AND Status IN (2, 4, 5, 7, 8) AND Scoring=" +
                                     std::to_string(scoring)),
              5);
}

TEST_F(ScoringSystemsTest, NamesHeldByAnotherSystemAreRefused) {
    for (const char* name : {"Low points", "LOW POINTS"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Save(0, name, 0, "Fresh rule"),
                  std::string("E-Another scoring system named '") + name + "' already exists");
        EXPECT_EQ(Counts(), "1 15 1 5");
        EXPECT_EQ(db.Count("Points", "Value=10"), 0);
    }

    // A discard name held by another system: the scoring system is saved all the same.
    ASSERT_EQ(Save(0, "Other rule owner", 0, "Taken"), "");
    EXPECT_EQ(Save(kLowPoints, "Renamed low points", kSeededDiscards, "Taken"),
              "E-Another discard system named 'Taken' already exists");
    EXPECT_EQ(db.Text("SELECT Description FROM Scoring WHERE Id=1"), "Renamed low points");
    EXPECT_EQ(db.Count("Points", "Scoring=1 AND Place=1 AND Value=10"), 1);
    EXPECT_EQ(db.Text("SELECT Description FROM DiscardSystem WHERE Id=1"),
              "One after 4, two after 8");
    EXPECT_EQ(db.Count("Discards", "DiscardSystem=1 AND RacesRun=4 AND Discards=1"), 1);
}

TEST_F(ScoringSystemsTest, RenamingKeepsTheIdAndNamesMayHoldApostrophes) {
    ASSERT_EQ(Save(kLowPoints, "Commodore's points", kSeededDiscards, "low points' rule"), "");
    ASSERT_EQ(Save(kLowPoints, "commodore's POINTS", kSeededDiscards, "low points' rule"), "");
    RowSet systems;
    ASSERT_EQ(results.GetScoring(systems), "");
    ASSERT_EQ(systems.Rows(), 1u);
    EXPECT_EQ(systems(0, 0).AsInt(), kLowPoints);
    EXPECT_EQ(systems(1, 0).ToText(), "commodore's POINTS");
    ASSERT_EQ(results.GetDiscards(systems), "");
    EXPECT_EQ(systems(1, 0).ToText(), "low points' rule");
    EXPECT_EQ(Counts(), "1 15 1 5");
}

TEST_F(ScoringSystemsTest, DiscardLinesWithBlanksAreNullAndListedLast) {
    lines = {{{"", "8", "x", "4", ""}, {"", "2", "", "1", "3"}}};
    ASSERT_EQ(Save(kLowPoints, "Low points", kSeededDiscards, "Rule"), "");
    EXPECT_EQ(db.Count("Discards"), 5);
    EXPECT_EQ(db.Count("Discards", "RacesRun IS NULL AND Discards IS NULL"), 2);
    RowSet detail;
    ASSERT_EQ(results.GetDiscardDetail(kSeededDiscards, detail), "");
    ASSERT_EQ(detail.Rows(), 5u);
    EXPECT_EQ(detail(0, 0).AsInt(), 4);
    EXPECT_EQ(detail(1, 0).AsInt(), 1);
    EXPECT_EQ(detail(0, 1).AsInt(), 8);
    for (std::size_t r = 2; r < 5; ++r)
        EXPECT_TRUE(detail(0, r).IsNull()) << r;
}

TEST_F(ScoringSystemsTest, ValuesThatDoNotConvertStoreNothing) {
    const struct {
        std::size_t index;
        const char* text;
    } badPoints[] = {{0, "first"}, {12, ""}};
    for (const auto& bad : badPoints) {
        SCOPED_TRACE(bad.index);
        clResults::ScoringValues typed = values;
        typed[bad.index] = bad.text;
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
    RowSet rows[4];
    EXPECT_EQ(results.GetScoring(rows[0]) + results.GetDiscards(rows[1]) +
                  results.GetScoringDetail(kLowPoints, rows[2]) +
                  results.GetDiscardDetail(kSeededDiscards, rows[3]),
              "");
    for (const RowSet& empty : rows)
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
    RowSet series;
    ASSERT_EQ(results.GetSeriesUsingScoring(kLowPoints, series), "");
    ASSERT_EQ(series.Rows(), 2u);
    EXPECT_EQ(series(0, 0).ToText(), "Frostbite");
    EXPECT_EQ(series(1, 0), Value(MakeDateTime(2009, 1, 11)));
    EXPECT_EQ(series(0, 1).ToText(), "Regatta");
    ASSERT_EQ(results.GetSeriesUsingDiscard(kSeededDiscards, series), "");
    ASSERT_EQ(series.Rows(), 1u);
    EXPECT_EQ(series(0, 0).ToText(), "Frostbite");
    ASSERT_EQ(results.GetSeriesUsingDiscard(99, series), "");
    EXPECT_TRUE(series.IsEmpty());
}

}  // namespace
}  // namespace tb
