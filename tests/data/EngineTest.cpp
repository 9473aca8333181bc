#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

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

// A server that cannot be reached, a refused login, a database that is not a Tallyboard database
// and one missing a table each give the ConnectDb error with the engine's own words, and nothing
// is made or written.
TEST(ConnectDb, NamesWhyTheDatabaseCannotBeUsedAndWritesNothing) {
    struct Case {
        std::string uri;
        std::string start;
        std::string words;
    };
    TestDatabase missingATable;
    missingATable.Exec("DROP TABLE EntryList");
    std::vector<Case> cases = {
        {"postgresql:///club?host=/no/such/folder",
         "C-Error 08001 raised by PostgreSQL in ConnectDb\r", "/no/such/folder/.s.PGSQL"},
        {missingATable.path(), "C-Error 3078 raised by Tallyboard in ConnectDb\r", "'EntryList'"}};
    if (TestDatabase::OnServer()) {
        const std::string maintenance = std::getenv("TALLYBOARD_TEST_POSTGRES");
        cases.push_back({maintenance + (maintenance.find('?') == std::string::npos ? "?" : "&") +
                             "user=nobody_here",
                         "C-Error 08001 raised by PostgreSQL in ConnectDb\r", "nobody_here"});
        cases.push_back({maintenance, "C-Error 3078 raised by Tallyboard in ConnectDb\r",
                         "cannot find the input table 'People'"});
    }
    for (const Case& c : cases) {
        DataFile = c.uri;
        clResults results;
        const std::string Msg = results.PutSetting("Header", "Evening series");
        EXPECT_TRUE(Msg.starts_with(c.start)) << Msg;
        EXPECT_NE(Msg.find(c.words), std::string::npos) << Msg;
        EXPECT_FALSE(results.Connected());
    }
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
