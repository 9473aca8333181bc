#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "app/Globals.h"
#include "data/Connection.h"
#include "data/PgConnection.h"
#include "data/Schema.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::TempFolder;
using test::TestDatabase;

// The same SQL text runs on both engines: the server gets SQLite's placeholders and Null order
// in its own words, and nothing inside quotes changes.
TEST(ServerSql, PlaceholdersAndNullOrderAreTranslated) {
    for (const auto& row : test::DataFileRows("data/server-sql.tsv")) {
        int count = 0;
        EXPECT_EQ(NumberedPlaceholders(SqliteNullOrder(row.at(0)), count), row.at(1));
    }
}

TEST(CheckDataFile, TakesAServerAddressWithoutAPassword) {
    for (const auto& row : test::DataFileRows("data/data-file-texts.tsv"))
        EXPECT_EQ(clResults::CheckDataFile(row.at(0)), row.size() > 1 ? row[1] : "") << row[0];
}

// Whatever is not a usable Tallyboard database gives the ConnectDb error with the engine's own
// words, and is left as it was: nothing is made and nothing written.
TEST(ConnectDb, NamesWhyTheDatabaseCannotBeUsedAndWritesNothing) {
    TempFolder folder;
    const std::string in = folder.path() + "/";
    test::WriteFile(in + "empty.db", "");
    test::WriteFile(in + "notes.db", "Club notes, not a database\n");
    OpenOrCreateConnection(in + "other.db")->Exec("CREATE TABLE Accounts (Id INTEGER, Name TEXT)");
    const std::string files = test::ReadFile(in + "notes.db") + test::ReadFile(in + "other.db");
    TestDatabase missingATable;
    missingATable.Exec("DROP TABLE EntryList");
    const char* server = std::getenv("TALLYBOARD_TEST_POSTGRES");
    const std::string maintenance = server == nullptr ? "" : server;
    const std::map<std::string, std::string> targets = {
        {"a folder", folder.path()},
        {"a missing file", in + "missing.db"},
        {"an empty file", in + "empty.db"},
        {"a text file", in + "notes.db"},
        {"another program's database", in + "other.db"},
        {"a database missing a table", missingATable.path()},
        {"an unreachable server", "postgresql:///club?host=/no/such/folder"},
        {"an unknown login", maintenance +
                                 (maintenance.find('?') == std::string::npos ? "?" : "&") +
                                 "user=nobody_here"},
        {"an empty server database", maintenance}};
    for (const auto& row : test::DataFileRows("data/refused-databases.tsv")) {
        if (row.at(1) == "server" && server == nullptr)
            continue;
        DataFile = targets.at(row.at(0));
        clResults results;
        const std::string Msg = results.PutSetting("Header", "Evening series");
        EXPECT_TRUE(Msg.starts_with(row.at(2))) << row[0] << ": " << Msg;
        EXPECT_NE(Msg.find(row.at(3)), std::string::npos) << row[0] << ": " << Msg;
        EXPECT_FALSE(results.Connected()) << row[0];
    }
    EXPECT_EQ(test::ReadFile(in + "empty.db"), "");
    EXPECT_EQ(test::ReadFile(in + "notes.db") + test::ReadFile(in + "other.db"), files);
    EXPECT_FALSE(std::filesystem::exists(in + "missing.db"));
    EXPECT_EQ(missingATable.Lines("SELECT Parameter FROM Settings WHERE Value IS NOT NULL"),
              std::vector<std::string>{"Version"});
}

// Every row of every table, as text, sorted: the same for a database and its copy.
std::vector<std::string> Everything(const std::string& dataFile) {
    auto db = OpenConnection(dataFile);
    std::vector<std::string> lines;
    for (const char* table : kTallyboardTables) {
        auto st = db->Prepare(std::string("SELECT * FROM ") + table);
        while (st->Step()) {
            std::string line = table;
            for (int c = 0; c < st->Columns(); ++c)
                line += " | " + (st->Read(c).IsNull() ? "-" : st->Read(c).ToText());
            lines.push_back(line);
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

// A copy holds every row with its Id, dates and Yes/No values as they were, and goes on
// numbering after the highest Id; a target that exists or cannot be made is refused whole.
TEST(CopyDatabase, KeepsEveryRowAndIdAndRefusesAnExistingTarget) {
    TestDatabase db;
    db.Exec(
        "INSERT INTO People (Id, Firstname, Lastname, ClubMember) VALUES (41, 'Ann', 'O''Neil', "
        "1)");
    db.Exec(
        "INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries) VALUES (7, 1, "
        "'Race 1', '2024-06-22 14:05:09', 1)");
    db.Exec("INSERT INTO Results (Schedule, Entrant, Handicap, Points) VALUES (7, 3, 0.985, 2.5)");
    TempFolder folder;
    const std::string copy = folder.path() + "/copy.db";
    clResults results;
    ASSERT_EQ(results.CopyDatabase(copy), "");
    EXPECT_EQ(Everything(copy), Everything(db.path()));

    EXPECT_EQ(results.CopyDatabase(copy),
              "E-The file " + copy + " already exists; a new database is never written over it");
    EXPECT_NE(results.CopyDatabase(folder.path() + "/no/such/folder/copy.db"), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()),
                            std::filesystem::directory_iterator()),
              1);

    DataFile = copy;
    clResults onCopy;
    int id = 0;
    ASSERT_EQ(onCopy.PutPersonalDetails(id, "", "Bo", "Lee", "", "", "", "", "", "", "", "", "",
                                        false, ""),
              "");
    EXPECT_EQ(id, 42);
}

}  // namespace
}  // namespace tb
