#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include <filesystem>
#include <fstream>

#include "data/Schema.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::TempFolder;
using test::TestDatabase;

std::vector<std::string> Columns(TestDatabase& db, const std::string& table) {
    std::vector<std::string> names;
    SQLite::Statement st(db.raw(), "SELECT name FROM pragma_table_info(?) ORDER BY cid");
    st.bind(1, table);
    while (st.executeStep())
        names.push_back(st.getColumn(0).getString());
    return names;
}

TEST(Schema, TablesHaveTheirColumnsInOrder) {
    TestDatabase db;
    using V = std::vector<std::string>;
    EXPECT_EQ(Columns(db, "Results"), (V{"Id", "Schedule", "Entrant", "FinishTime", "Status",
                                         "PenaltyMins", "PenaltyPercent", "PenaltyPoints", "Notes",
                                         "Handicap", "ElapsedTime", "CorrectedTime", "Points"}));
    EXPECT_EQ(Columns(db, "Entrant"), (V{"Id", "Series", "Boat", "Class", "EntrantType", "Entrant",
                                         "EntryDate", "NameOnResults", "SeriesPoints"}));
    EXPECT_EQ(Columns(db, "People").size(), 15u);
    EXPECT_EQ(Columns(db, "Points"),
              (V{"Scoring", "Place", "Status", "Base", "Value", "MinValue"}));
    EXPECT_EQ(Columns(db, "Settings"), (V{"Parameter", "Value"}));
}

TEST(Schema, ANewDatabaseListsTheOutcomesInTheOrderTheResultsWindowExpects) {
    TestDatabase db;
    EXPECT_EQ(db.Text("SELECT Code FROM Status WHERE Id=9"), "OK");
    // Listed by code, DNC stands at position 1 and a finish (OK) at position 7: the results
    // window switches between those two as a time is typed.
    EXPECT_EQ(db.Text("SELECT group_concat(Id) FROM (SELECT Id FROM Status ORDER BY Code)"),
              "1,2,3,4,5,6,7,9,8");
    EXPECT_EQ(db.Text("PRAGMA journal_mode"), "wal");
}

// The invariants hold in the file itself, whatever program writes to it.
TEST(Schema, RefusesASecondRowWhereOneIsTheRule) {
    TestDatabase db;
    db.Exec("INSERT INTO Results (Schedule, Entrant) VALUES (1, 1)");
    EXPECT_THROW(db.Exec("INSERT INTO Results (Schedule, Entrant) VALUES (1, 1)"),
                 SQLite::Exception);
    db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1)");
    EXPECT_THROW(db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1)"),
                 SQLite::Exception);
    db.Exec("INSERT INTO Start (Schedule, Class) VALUES (1, 1)");
    EXPECT_THROW(db.Exec("INSERT INTO Start (Schedule, Class) VALUES (1, 1)"), SQLite::Exception);
    db.Exec("INSERT INTO Entrant (Series, Boat) VALUES (1, 1)");
    EXPECT_THROW(db.Exec("INSERT INTO Entrant (Series, Boat) VALUES (1, 1)"), SQLite::Exception);
    EXPECT_THROW(db.Exec("INSERT INTO Settings (Parameter) VALUES ('version')"), SQLite::Exception);
}

TEST(CreateDatabase, NeverWritesOverAFile) {
    TempFolder folder;
    const std::string path = folder.path() + "/club.db";
    std::ofstream(path) << "precious";
    EXPECT_EQ(CreateDatabase(path).rfind("E-The file ", 0), 0u);
    std::ifstream in(path);
    std::string content;
    in >> content;
    EXPECT_EQ(content, "precious");
    EXPECT_NE(CreateDatabase(folder.path() + "/no/such/folder/club.db"), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()),
                            std::filesystem::directory_iterator()),
              1);
}

}  // namespace
}  // namespace tb
