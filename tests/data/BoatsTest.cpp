// The boat register: boats with their sail numbers, models, handicap systems and handicaps.

#include <gtest/gtest.h>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::IsRunTimeError;

class BoatsTest : public ::testing::Test {
protected:
    int AddBoat(const std::string& name, const std::string& sailNo, int model = 0) {
        int id = 0;
        EXPECT_EQ(results.PutBoatDetails(id, name, sailNo, model, 0), "");
        return id;
    }
    int AddModel(const std::string& model) {
        int id = -1;
        EXPECT_EQ(results.PutModelDetails(id, model, 4.2, 0.8), "");
        return id;
    }
    int AddHandicapType(const std::string& description) {
        return db.Insert("INSERT INTO HandicapType (Description) VALUES (?1)", {description});
    }
    int AddHandicap(int boat, int type, const std::string& tcf, const std::string& from,
                    const std::string& expires = "") {
        EXPECT_EQ(results.PutHandicapDetails(0, boat, static_cast<short>(type), tcf, from, expires),
                  "");
        return std::stoi(db.Text("SELECT max(Id) FROM Handicap"));
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(BoatsTest, SailNumberSortsByItsDigitsWhereverTheyStand) {
    for (const auto& row : test::DataFileRows("data/sail-numbers.tsv")) {
        SCOPED_TRACE(row.at(0));
        const std::string id = std::to_string(AddBoat("Boat", row.at(0)));
        EXPECT_EQ(db.Text("SELECT SailNo FROM Boat WHERE Id=" + id), row.at(1));
        EXPECT_EQ(db.Text("SELECT FullSailNo FROM Boat WHERE Id=" + id), row.at(0));
    }
}

TEST_F(BoatsTest, SailNumberBeyondALongIntegerStoresNothing) {
    const int kept = AddBoat("Kept", "GBR 1");
    for (int id : {0, kept}) {
        SCOPED_TRACE(id);
        int requested = id;
        const std::string Msg =
            results.PutBoatDetails(requested, "Too long", "GBR 2147483648", 0, 0);
        EXPECT_TRUE(IsRunTimeError(Msg, "PutBoatDetails")) << Msg;
        EXPECT_NE(Msg.find("Overflow"), std::string::npos) << Msg;
        EXPECT_EQ(requested, id);
        EXPECT_EQ(db.Count("Boat"), 1);
        EXPECT_EQ(db.Text("SELECT BoatName FROM Boat"), "Kept");
    }
}

TEST_F(BoatsTest, StoreAddsThenEditsTheSameRowAndStampsTheChange) {
    int id = 0;
    ASSERT_EQ(results.PutBoatDetails(id, "Swift", "GBR 7", 0, 3), "");
    EXPECT_GT(id, 0);
    EXPECT_TRUE(db.Stamped());
    const int first = id;
    ASSERT_EQ(results.PutBoatDetails(id, "Swifter", "GBR 8", 0, 3), "");
    EXPECT_EQ(id, first);
    RowSet detail;
    ASSERT_EQ(results.GetBoatDetails(id, detail), "");
    EXPECT_EQ(detail(0, 0).ToText(), "Swifter");
    EXPECT_EQ(db.Count("Boat"), 1);

    int missing = first + 10;
    EXPECT_TRUE(
        IsRunTimeError(results.PutBoatDetails(missing, "Ghost", "1", 0, 0), "PutBoatDetails"));
    EXPECT_TRUE(IsRunTimeError(results.GetBoatDetails(missing, detail), "GetBoatDetails"));
    EXPECT_EQ(db.Count("Boat"), 1);
}

TEST_F(BoatsTest, BoatsListKeepsBoatsWithoutAModelAndSortsSailNumbersAsNumbers) {
    const int laser = AddModel("Laser");
    const int gone = AddModel("Wayfarer");
    AddBoat("Bravo", "GBR 200", laser);
    AddBoat("Bravo", "GBR 30", laser);
    AddBoat("Alpha", "1", laser);
    AddBoat("alpha", "2", gone);
    AddBoat("Alpha", "3", 0);
    ASSERT_EQ(results.RemoveModel(gone), "");
    RowSet boats;
    ASSERT_EQ(results.GetBoats(boats), "");
    EXPECT_EQ(test::Rendered(boats), test::Expected("data/boats.txt", "list"));
}

TEST_F(BoatsTest, FindBoatComparesTheWholeSailNumberAndTakesApostrophes) {
    AddBoat("Quoted", "O'DAY 7");
    AddBoat("Plain", "GBR1234");
    for (const auto& row : test::DataFileRows("data/boats-found.tsv")) {
        RowSet boats;
        ASSERT_EQ(results.FindBoat(row.at(0), boats), "");
        EXPECT_EQ(test::Rendered(boats), row.size() > 1 ? row[1] + "\n" : "") << row[0];
    }
}

TEST_F(BoatsTest, ModelsAreAddedWithMinusOneAndZeroIsNoModel) {
    int zero = 0;
    EXPECT_TRUE(
        IsRunTimeError(results.PutModelDetails(zero, "Topper", 3.4, 0.2), "PutModelDetails"));
    EXPECT_EQ(zero, 0);
    EXPECT_EQ(db.Count("BoatType"), 0);

    int id = -1;
    ASSERT_EQ(results.PutModelDetails(id, "Topper", 3.4, 0.2), "");
    EXPECT_GT(id, 0);
    const int first = id;
    ASSERT_EQ(results.PutModelDetails(id, "Topper 2", 3.5, 0), "");
    EXPECT_EQ(id, first);
    RowSet detail;
    ASSERT_EQ(results.GetModelDetails(id, detail), "");
    EXPECT_EQ(detail(0, 0).ToText(), "Topper 2");
    EXPECT_EQ(detail(1, 0).AsDouble(), 3.5);
    EXPECT_TRUE(IsRunTimeError(results.GetModelDetails(first + 1, detail), "GetModelDetails"));
}

TEST_F(BoatsTest, NewAndRevisedHandicapsStartTodayAndEndWithTheYear) {
    const DateTime today = Today();
    const std::string thisYear =
        FormatDate(today, "dd/mm/yyyy") + " | 31/12/" + std::to_string(YearOf(today)) + "\n";
    const int boat = AddBoat("Swift", "1");
    const int irc = AddHandicapType("IRC");
    const int stored = AddHandicap(boat, irc, "0.985", "01/04/2009", "31/03/2010");
    // Type, TCF, from and to of the detail shown for the id.
    auto detail = [&](int id) {
        RowSet rows;
        EXPECT_EQ(results.GetHandicapDetail(id, rows), "");
        return test::Rendered(rows);
    };
    EXPECT_EQ(detail(0), "<null> | <null> | " + thisYear);
    EXPECT_EQ(detail(-stored), std::to_string(irc) + " | 0.985 | " + thisYear);
    EXPECT_EQ(detail(stored), std::to_string(irc) + " | 0.985 | 01/04/2009 | 31/03/2010\n");
}

TEST_F(BoatsTest, RevisionEndsTheOldHandicapTheDayBeforeAndBadTextsStoreNothing) {
    const int boat = AddBoat("Swift", "1");
    const int irc = AddHandicapType("IRC");
    const int old = AddHandicap(boat, irc, "0.985", "01/04/2009");
    EXPECT_EQ(db.Text("SELECT Expires FROM Handicap WHERE Id=" + std::to_string(old)), "");
    ASSERT_EQ(old, 1);
    for (const auto& row : test::DataFileRows("data/bad-handicaps.tsv")) {
        EXPECT_TRUE(IsRunTimeError(
            results.PutHandicapDetails(std::stoi(row.at(0)), boat, static_cast<short>(irc),
                                       row.at(1), row.at(2), row.at(3)),
            "PutHandicapDetails"))
            << row[0] << " " << row[1];
        EXPECT_EQ(db.Count("Handicap", "Expires IS NULL AND Handicap=0.985"), 1);
    }
    EXPECT_EQ(db.Count("Handicap"), 1);

    ASSERT_EQ(
        results.PutHandicapDetails(-old, boat, static_cast<short>(irc), "0.990", "01/04/2010", ""),
        "");
    EXPECT_EQ(db.Count("Handicap"), 2);
    EXPECT_EQ(db.Count("Handicap", "ModifyDate IS NULL"), 0);

    RowSet handicaps;
    ASSERT_EQ(results.GetHandicaps(boat, handicaps), "");
    EXPECT_EQ(test::Rendered(handicaps), test::Expected("data/boats.txt", "handicaps"));
}

// What uses a boat or a handicap system; a series without a race is never listed. Removing the
// boat takes its handicaps and no other boat's.
TEST_F(BoatsTest, UsageListsFollowEntriesClassesAndHandicapsAndRemovalTakesTheBoatsHandicaps) {
    const int irc = AddHandicapType("IRC");
    const int boat = AddBoat("Swift", "1");
    AddBoat("swift", "2");
    AddHandicap(boat, irc, "1.0", "01/01/2009");
    AddHandicap(boat, irc, "1.0", "01/01/2010");
    AddHandicap(boat + 1, irc, "1.0", "01/01/2010");
    db.Exec(test::DataFile("data/boat-usage.sql"));
    for (int series = 1; series <= 4; ++series)
        db.Exec("INSERT INTO Entrant (Series, Boat) VALUES (" + std::to_string(series) + ", " +
                std::to_string(boat) + ")");
    RowSet rows;
    ASSERT_EQ(results.GetSeriesForBoat(boat, rows), "");
    std::string listed = test::Rendered(rows);
    ASSERT_EQ(results.GetBoatsUsingHandicap(irc, rows), "");
    listed += test::Rendered(rows);
    ASSERT_EQ(results.GetSeriesUsingHandicap(irc, rows), "");
    EXPECT_EQ(listed + test::Rendered(rows), test::Expected("data/boats.txt", "usage"));

    ASSERT_EQ(results.RemoveBoat(boat), "");
    EXPECT_EQ(
        db.Lines("SELECT Boat.Id, Handicap.Boat FROM Boat, Handicap"),
        std::vector<std::string>{std::to_string(boat + 1) + " | " + std::to_string(boat + 1)});
}

}  // namespace
}  // namespace tb
