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
    for (const char* name : {"John Smith", "Ann O'Neil", "Tom Oakes", "Jo Smithers"}) {
        const std::string full = name;
        AddPerson(full.substr(0, full.find(' ')), full.substr(full.find(' ') + 1));
    }
    for (const auto& row : test::DataFileRows("data/people-found.tsv")) {
        RowSet people;
        ASSERT_EQ(row.at(0) == "name" ? results.FindName(row.at(1), row.at(2), people)
                                      : results.FindPerson(row.at(1), people),
                  "");
        std::string ids;
        for (std::size_t r = 0; r < people.Rows(); ++r)
            ids += (r ? "," : "") + (people(0, r).IsNull() ? "<null>" : ToText(people(0, r)));
        EXPECT_EQ(ids, row.at(3)) << row[1] << " " << row[2];
    }
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
    RowSet boats;
    ASSERT_EQ(results.GetBoatsOwned(helm, boats), "");
    EXPECT_EQ(test::Rendered(series) + test::Rendered(boats),
              test::Expected("data/people.txt", "series and boats"));

    ASSERT_EQ(results.RemovePerson(helm), "");
    EXPECT_EQ(db.Count("People"), 0);
    EXPECT_EQ(db.Count("Boat"), 1);
    EXPECT_EQ(db.Count("Entrant"), 3);
    ASSERT_EQ(results.GetPeople(boats), "");
    EXPECT_TRUE(boats.IsEmpty());
}

}  // namespace
}  // namespace tb
