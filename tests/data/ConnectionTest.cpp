#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <SQLiteCpp/Database.h>

#include "app/Globals.h"
#include "data/Schema.h"
#include "data/clResults.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::RecordingMessages;
using test::TempFolder;

std::string FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

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
        const std::string before = isFile ? FileBytes(path) : "";
        DataFile = path;
        clResults results;
        std::string value;
        const std::string Msg = results.GetSetting("Header", value);
        EXPECT_EQ(Msg.rfind("C-Error ", 0), 0u) << Msg;
        EXPECT_NE(Msg.find(" in ConnectDb\r"), std::string::npos) << Msg;
        EXPECT_FALSE(results.Connected());
        if (isFile) {
            EXPECT_EQ(FileBytes(path), before);
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

TEST(ErrorText, KeepsAMessageAndBuildsTheRunTimeText) {
    const PendingError pending{19, "SQLite", "UNIQUE constraint failed"};
    EXPECT_EQ(ErrorText("E-Please specify a name", "PutSeriesDetails", &pending),
              "E-Please specify a name");
    EXPECT_EQ(ErrorText("", "PutSeriesDetails", nullptr), "");
    EXPECT_EQ(ErrorText("", "PutSeriesDetails", &pending),
              "C-Error 19 raised by SQLite in PutSeriesDetails\rUNIQUE constraint failed");
}

TEST(SqlQuote, DoublesApostrophesOnly) {
    EXPECT_EQ(clResults::SqlQuote("O'Neil"), "O''Neil");
    EXPECT_EQ(clResults::SqlQuote(""), "");
    EXPECT_EQ(clResults::SqlQuote("''"), "''''");
    EXPECT_EQ(clResults::SqlQuote("Me & \"You\""), "Me & \"You\"");
}

TEST(ShowMessage, ChoosesIconAndTitleByTheKindLetter) {
    RecordingMessages messages;
    ShowMessage("");
    ShowMessage("I-Result saved");
    ShowMessage("C-Error 5 raised by SQLite in GetYears\rdatabase is locked");
    ShowMessage("E-Please specify a valid date");
    ShowMessage("X-Please choose a race first");
    ShowMessage("Q-Unknown kind");
    ASSERT_EQ(messages.shown.size(), 5u);
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Information);
    EXPECT_EQ(messages.shown[0].title, "Information");
    EXPECT_EQ(messages.shown[0].text, "Result saved");
    EXPECT_EQ(messages.shown[1].icon, MessageIcon::Critical);
    EXPECT_EQ(messages.shown[1].title, "Error");
    for (std::size_t i = 2; i < 5; ++i) {
        EXPECT_EQ(messages.shown[i].icon, MessageIcon::Exclamation);
        EXPECT_EQ(messages.shown[i].title, "Error");
    }
    EXPECT_EQ(messages.shown[4].text, "Unknown kind");
}

}  // namespace
}  // namespace tb
