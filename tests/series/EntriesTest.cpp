#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "SeriesFixture.h"
#include "data/Conversions.h"
#include "support/Checks.h"

namespace tb {
namespace {

class EntriesTest : public test::SeriesFixture {
protected:
    void SetUp() override { db.Exec(test::DataFile("series/entries.sql")); }

    std::string Save(std::vector<int> entered, const std::string& name = "", int entering = 0) {
        return results.PutEntryDetails(entering ? entering : boat, series, owner, classId,
                                       "01/06/02", 0, name, entered);
    }
    std::set<long long> EnteredRaces() {
        std::set<long long> found;
        for (const std::string& race : db.Column("SELECT Schedule FROM EntryList"))
            found.insert(std::stoll(race));
        return found;
    }

    // The arranged rows: the series, its races, the class, the owner and Kestrel.
    const int series = 1;
    std::vector<int> races{1, 2, 3, 4};
    const int classId = 1;
    const int owner = 1;
    const int boat = 1;
};

TEST_F(EntriesTest, TheRaceListBecomesExactlyThePositiveIdsGiven) {
    // The race Ids in the text (races 1-4 have Ids 1-4).
    auto racesOf = [](const std::string& text) {
        std::vector<int> ids;
        std::istringstream numbers(text);
        for (int n; numbers >> n;)
            ids.push_back(n);
        return ids;
    };
    for (const auto& row : test::DataFileRows("series/race-lists.tsv")) {
        db.Exec("DELETE FROM EntryList");
        ASSERT_EQ(Save(racesOf(row.at(0))), "");
        ASSERT_EQ(Save(racesOf(row.at(1))), "");
        const auto after = racesOf(row.at(2));
        EXPECT_EQ(EnteredRaces(), std::set<long long>(after.begin(), after.end())) << row[1];
    }
    EXPECT_EQ(db.Count("Entrant"), 1);
}

TEST_F(EntriesTest, RacesThatStayEnteredAreNotRewrittenAndAreZeroedInTheList) {
    std::vector<int> first = {races[0], races[1]};
    ASSERT_EQ(Save(first), "");
    const auto storedAt = [&] {
        return db.Text(std::string("SELECT ") + db.RowLocation() +
                       " FROM EntryList WHERE Schedule=" + std::to_string(races[0]));
    };
    const std::string keptRow = storedAt();

    std::vector<int> second = {races[0], races[2]};
    ASSERT_EQ(results.PutEntryDetails(boat, series, owner, classId, "01/06/02", 0, "", second), "");
    EXPECT_EQ(second, (std::vector<int>{0, races[2]}));
    EXPECT_EQ(storedAt(), keptRow);
}

TEST_F(EntriesTest, SavingAgainUpdatesTheOneEntrantAndBlankNameIsNull) {
    ASSERT_EQ(Save({races[0]}, "Ann & Bob's boat"), "");
    EXPECT_EQ(db.Text("SELECT NameOnResults FROM Entrant"), "Ann & Bob's boat");
    ASSERT_EQ(results.PutEntryDetails(boat, series, owner, classId, "17/06/02", 3, "", races), "");
    EXPECT_EQ(db.Count("Entrant"), 1);
    EXPECT_EQ(db.Count("Entrant", "NameOnResults IS NULL AND EntrantType=3"), 1);
    EXPECT_EQ(db.Text("SELECT EntryDate FROM Entrant"), "2002-06-17 00:00:00");
    EXPECT_TRUE(db.Stamped());

    std::vector<int> none;
    EXPECT_TRUE(test::IsRunTimeError(
        results.PutEntryDetails(boat, series, owner, classId, "17/13/02", 3, "", none),
        "PutEntryDetails"));
    EXPECT_EQ(db.Count("EntryList"), 4);
}

TEST_F(EntriesTest, DetailsShowTheOwnerAndTodayUntilEnteredThenTheTcfOfEachRace) {
    int person = 0;
    int cls = 77;
    std::string date;
    short type = 2;
    std::string name = "unchanged";
    RowSet raceRows;
    raceRows.AddRow({Value(1), Value("kept")});
    // Person, class, entrant type and name, then the TCF of each race.
    auto details = [&] {
        EXPECT_EQ(results.GetEntryDetails(boat, series, person, cls, date, type, name, raceRows),
                  "");
        return std::to_string(person) + " | " + std::to_string(cls) + " | " + std::to_string(type) +
               " | " + name + "\n" + test::Rendered(raceRows);
    };
    const std::string before = details();
    EXPECT_EQ(date, FormatDate(Today(), "dd/mm/yy"));
    ASSERT_EQ(Save(races, "Kes"), "");
    person = 0;
    EXPECT_EQ(before + details(), test::Expected("series/entries.txt", "details"));
    EXPECT_EQ(date, "01/06/2002");
    ASSERT_EQ(Save(races, "", 3), "");
    ASSERT_EQ(results.GetEntryDetails(3, series, person, cls, date, type, name, raceRows), "");
    EXPECT_EQ(test::Rendered(raceRows), test::Expected("series/entries.txt", "open-ended"));
}

TEST_F(EntriesTest, EntriesAreListedByBoatNameThenSailNumber) {
    RowSet rows;
    ASSERT_EQ(results.GetEntries(series, rows), "");
    EXPECT_TRUE(rows.IsEmpty());

    for (int b : {1, 2, 3})
        ASSERT_EQ(Save({races[0]}, "", b), "");
    ASSERT_EQ(results.GetEntries(series, rows), "");
    RowSet forRace;
    ASSERT_EQ(results.GetEntriesForRace(races[0], forRace), "");
    EXPECT_EQ(test::Rendered(rows) + test::Rendered(forRace),
              test::Expected("series/entries.txt", "lists"));
    ASSERT_EQ(results.GetEntriesForRace(races[1], forRace), "");
    EXPECT_TRUE(forRace.IsEmpty());
}

TEST_F(EntriesTest, CheckResultsFindsTheEntrantAndWhetherItHasResults) {
    // The entrant found (0 for none) and whether it has results, starting from true.
    auto check = [&] {
        int boatEntrant = boat;
        bool hasResults = true;
        EXPECT_EQ(results.CheckResults(series, boatEntrant, hasResults), "");
        return std::to_string(boatEntrant) + (hasResults ? " with results" : " without");
    };
    EXPECT_EQ(check(), "0 with results") << "left as it was";
    ASSERT_EQ(Save(races), "");
    const int entrant = std::stoi(db.Text("SELECT Id FROM Entrant"));
    EXPECT_EQ(check(), std::to_string(entrant) + " without");
    AddResult(entrant, races[1]);
    AddResult(entrant, races[2]);
    EXPECT_EQ(check(), std::to_string(entrant) + " with results");
}

TEST_F(EntriesTest, RemovingAnEntrantTakesItsResultsAndRacesAndNothingElse) {
    ASSERT_EQ(Save(races), "");
    ASSERT_EQ(Save({races[0]}, "", 3), "");
    AddResult(1, races[0]);
    AddResult(2, races[0]);
    db.ForgetStamp();

    ASSERT_EQ(results.RemoveEntrant(1), "");
    EXPECT_EQ(db.Count("Entrant"), 1);
    EXPECT_EQ(db.Count("EntryList"), 1);
    EXPECT_EQ(db.Count("Results"), 1);
    EXPECT_EQ(db.Count("Results", "Entrant=2"), 1);
    EXPECT_FALSE(db.Stamped());
}

}  // namespace
}  // namespace tb
