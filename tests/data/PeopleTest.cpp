// The register of persons: listing, finding by name, storing and removing.

#include <gtest/gtest.h>

#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class PeopleTest : public ::testing::Test {
protected:
    int AddPerson(const std::string& firstname, const std::string& lastname,
                  const std::string& city = "") {
        int id = 0;
        EXPECT_EQ(results.PutPersonalDetails(id, "", firstname, lastname, "", "", city, "", "", "",
                                             "", "", "", false, ""),
                  "");
        return id;
    }
    std::vector<long long> Ids(const RowSet& rows) {
        std::vector<long long> ids;
        for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r)
            ids.push_back(rows(0, r).AsInt());
        return ids;
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(PeopleTest, StoreAddsThenEditsTheSameRowWithEveryColumn) {
    int id = 0;
    ASSERT_EQ(
        results.PutPersonalDetails(id, "Mrs", "Ann", "O'Neil", "1 Quay St", "", "Cowes", "PO31",
                                   "UK", "01983", "", "02380", "07700", true, "ann@example.org"),
        "");
    ASSERT_GT(id, 0);
    EXPECT_TRUE(db.Stamped());
    const int first = id;
    ASSERT_EQ(
        results.PutPersonalDetails(id, "Dr", "Ann", "O'Neil", "1 Quay St", "", "Cowes", "PO31",
                                   "UK", "01983", "", "02380", "07700", false, "ann@example.org"),
        "");
    EXPECT_EQ(id, first);
    EXPECT_EQ(db.Count("People"), 1);

    RowSet detail;
    ASSERT_EQ(results.GetPersonDetails(id, detail), "");
    EXPECT_EQ(test::Rendered(detail), test::Expected("data/people.txt", "details"));
    EXPECT_TRUE(detail(12, 0).IsBool());
    EXPECT_TRUE(detail(4, 0).IsText());  // an empty field stays an empty text

    int missing = first + 1;
    EXPECT_TRUE(test::IsRunTimeError(results.PutPersonalDetails(missing, "", "X", "Y", "", "", "",
                                                                "", "", "", "", "", "", false, ""),
                                     "PutPersonalDetails"));
    EXPECT_EQ(missing, first + 1);
    EXPECT_EQ(db.Count("People"), 1);
    EXPECT_TRUE(
        test::IsRunTimeError(results.GetPersonDetails(missing, detail), "GetPersonDetails"));
}

TEST_F(PeopleTest, ListShowsFamilyCommaFirstInNameOrder) {
    AddPerson("john", "smith", "Ryde");
    AddPerson("", "Adams");
    db.Exec("INSERT INTO People (Lastname) VALUES ('Brown')");
    AddPerson("Anne", "Smith");
    RowSet people;
    ASSERT_EQ(results.GetPeople(people), "");
    EXPECT_EQ(test::Rendered(people), test::Expected("data/people.txt", "list"));
}

TEST_F(PeopleTest, FindsIgnoreCaseTakeApostrophesAndGiveAnEmptyIdForNobody) {
    const int smith = AddPerson("John", "Smith");
    const int oneil = AddPerson("Ann", "O'Neil");
    const int oakes = AddPerson("Tom", "Oakes");
    const int smithers = AddPerson("Jo", "Smithers");

    const struct {
        const char* first;
        const char* last;
        std::vector<long long> ids;
    } names[] = {{"John", "SMITH", {smith}},
                 {"ann", "o'neil", {oneil}},
                 {"John", "Smithers", {}},
                 {"Jo", "Smith", {}}};
    for (const auto& n : names) {
        SCOPED_TRACE(std::string(n.first) + " " + n.last);
        RowSet people;
        ASSERT_EQ(results.FindName(n.first, n.last, people), "");
        if (n.ids.empty()) {
            ASSERT_EQ(people.Rows(), 1u);
            EXPECT_TRUE(people(0, 0).IsNull());
        } else {
            EXPECT_EQ(Ids(people), n.ids);
        }
    }

    const struct {
        const char* start;
        std::vector<long long> ids;
    } starts[] = {{"O'", {oneil}},  // an apostrophe sorts before the letters
                  {"o", {oneil, oakes}},
                  {"smith", {smith, smithers}},
                  {"", {oneil, oakes, smith, smithers}}};
    for (const auto& s : starts) {
        SCOPED_TRACE(s.start);
        RowSet people;
        ASSERT_EQ(results.FindPerson(s.start, people), "");
        EXPECT_EQ(Ids(people), s.ids);
    }
    RowSet nobody;
    ASSERT_EQ(results.FindPerson("Z", nobody), "");
    ASSERT_EQ(nobody.Rows(), 1u);
    EXPECT_EQ(nobody(0, 0).AsInt(), 0);
}

TEST_F(PeopleTest, SeriesOfAPersonNeedARaceAndRemovalLeavesBoatsAndEntries) {
    const int helm = AddPerson("Ann", "Lee");
    db.Exec("INSERT INTO Series (Id, Title) VALUES (1, 'Spring'), (2, 'No races'), (3, 'Summer')");
    db.Exec(
        "INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2010-04-01 00:00:00'),"
        " (3, '2010-07-01 00:00:00'), (3, '2010-06-01 00:00:00')");
    for (int series = 1; series <= 3; ++series) {
        db.Exec("INSERT INTO Entrant (Series, Boat, Entrant) VALUES (" + std::to_string(series) +
                ", 1, " + std::to_string(helm) + ")");
    }
    db.Exec("INSERT INTO Boat (BoatName, Owner) VALUES ('Swift', " + std::to_string(helm) + ")");

    RowSet series;
    ASSERT_EQ(results.GetSeriesForPerson(helm, series), "");
    ASSERT_EQ(series.Rows(), 2u);
    EXPECT_EQ(series(1, 0).ToText(), "Summer");
    EXPECT_EQ(series(0, 0), Value(MakeDateTime(2010, 6, 1)));
    EXPECT_EQ(series(1, 1).ToText(), "Spring");
    RowSet boats;
    ASSERT_EQ(results.GetBoatsOwned(helm, boats), "");
    EXPECT_EQ(boats.Rows(), 1u);

    ASSERT_EQ(results.RemovePerson(helm), "");
    EXPECT_EQ(db.Count("People"), 0);
    EXPECT_EQ(db.Count("Boat"), 1);
    EXPECT_EQ(db.Count("Entrant"), 3);
    ASSERT_EQ(results.GetPeople(boats), "");
    EXPECT_TRUE(boats.IsEmpty());
}

}  // namespace
}  // namespace tb
