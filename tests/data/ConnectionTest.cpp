#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <SQLiteCpp/Database.h>

#include "app/Globals.h"
#include "data/Schema.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::RecordingMessages;
using test::TempFolder;

// Files that are not a Tallyboard database: each gives the ConnectDb error and is left as it was.
TEST(ConnectDb, RefusesWhatIsNotATallyboardDatabase) {
    TempFolder folder;
    const std::string empty = folder.path() + "/empty.db";
    const std::string text = folder.path() + "/notes.db";
    const std::string foreign = folder.path() + "/other.db";
    std::ofstream(empty).close();
    std::ofstream(text) << "Club notes, not a database\n";
    {
        SQLite::Database other(foreign, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("CREATE TABLE Accounts (Id INTEGER, Name TEXT)");
    }
    for (const std::string& path :
         {folder.path(), empty, text, foreign, folder.path() + "/missing.db"}) {
        SCOPED_TRACE(path);
        const bool isFile = std::filesystem::is_regular_file(path);
        const std::string before = isFile ? test::ReadFile(path) : "";
        DataFile = path;
        clResults results;
        std::string value;
        EXPECT_TRUE(test::IsRunTimeError(results.GetSetting("Header", value), "ConnectDb"));
        EXPECT_FALSE(results.Connected());
        if (isFile) {
            EXPECT_EQ(test::ReadFile(path), before);
        }
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/missing.db"));
}

TEST(ConnectDb, ConnectsOnceTheFileAppearsWithoutRestarting) {
    TempFolder folder;
    DataFile = folder.path() + "/later.db";
    clResults results;
    std::string value;
    EXPECT_NE(results.GetSetting("Version", value), "");
    ASSERT_EQ(CreateDatabase(DataFile), "");
    EXPECT_EQ(results.GetSetting("Version", value), "");
    EXPECT_TRUE(results.Connected());
    EXPECT_EQ(value, "1.0");
}

TEST(SqlQuote, DoublesApostrophesOnly) {
    EXPECT_EQ(clResults::SqlQuote("O'Neil & \"Co\""), "O''Neil & \"Co\"");
}

// A message the operation gave is kept even when an error is pending.
TEST(ErrorText, KeepsTheOperationsOwnMessage) {
    const PendingError pending{19, "SQLite", "UNIQUE constraint failed"};
    EXPECT_EQ(ErrorText("E-Please specify a name", "PutSeriesDetails", &pending),
              "E-Please specify a name");
}

TEST(ShowMessage, ChoosesIconAndTitleByTheKindLetter) {
    RecordingMessages messages;
    for (const auto& row : test::DataFileRows("data/shown-messages.tsv")) {
        messages.Clear();
        ShowMessage(row.at(0));
        std::string shown;
        for (std::size_t i = 0; i < messages.shown.size(); ++i)
            shown += messages.Texts()[i] + "|" + messages.shown[i].title;
        EXPECT_EQ(shown, row.at(1));
    }
}

}  // namespace
}  // namespace tb
