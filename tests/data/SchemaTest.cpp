#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>

#include "data/Schema.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::TempFolder;
using test::TestDatabase;

// The database format other programs read: each table with its columns in order, as
// "Table: Name TYPE, Name TYPE, ...", one table a line.
std::map<std::string, std::string> ListedFormat() {
    std::map<std::string, std::string> tables;
    for (const auto& row : test::DataFileRows("database-format.txt")) {
        const auto colon = row.at(0).find(": ");
        tables[row[0].substr(0, colon)] = row[0].substr(colon + 2);
    }
    return tables;
}

// The tables as compared: the server folds names to lower case, so there in lower case.
std::map<std::string, std::string> Comparable(const std::map<std::string, std::string>& tables) {
    if (!TestDatabase::OnServer())
        return tables;
    const auto lower = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return text;
    };
    std::map<std::string, std::string> lowered;
    for (const auto& [table, columns] : tables)
        lowered.emplace(lower(table), lower(columns));
    return lowered;
}

TEST(Schema, EveryTableHasTheListedColumnsInOrder) {
    TestDatabase db;
    const auto listed = ListedFormat();
    ASSERT_EQ(listed.size(), 18u);
    EXPECT_EQ(Comparable(db.Format()), Comparable(listed));
}

TEST(Schema, ANewDatabaseListsTheOutcomesInTheOrderTheResultsWindowExpects) {
    TestDatabase db;
    EXPECT_EQ(db.Text("SELECT Code FROM Status WHERE Id=9"), "OK");
    // Listed by code, DNC stands at position 1 and a finish (OK) at position 7: the results
    // window switches between those two as a time is typed.
    EXPECT_EQ(db.Column("SELECT Id FROM Status ORDER BY Code"),
              (std::vector<std::string>{"1", "2", "3", "4", "5", "6", "7", "9", "8"}));
    if (!TestDatabase::OnServer()) {
        EXPECT_EQ(db.Text("PRAGMA journal_mode"), "wal");
    }
}

// The invariants hold in the file itself, whatever program writes to it.
TEST(Schema, RefusesASecondRowWhereOneIsTheRule) {
    TestDatabase db;
    for (const auto& row : test::DataFileRows("data/one-row-rules.tsv")) {
        if (row.at(1) == "1")
            db.Exec(row[0]);
        EXPECT_THROW(db.Exec(row[0]), std::runtime_error) << row[0];
    }
}

TEST(CreateDatabase, NeverWritesOverAFile) {
    TempFolder folder;
    const std::string path = folder.path() + "/club.db";
    test::WriteFile(path, "precious");
    EXPECT_EQ(CreateDatabase(path).rfind("E-The file ", 0), 0u);
    EXPECT_EQ(test::ReadFile(path), "precious");
    EXPECT_NE(CreateDatabase(folder.path() + "/no/such/folder/club.db"), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()),
                            std::filesystem::directory_iterator()),
              1);
}

}  // namespace
}  // namespace tb
