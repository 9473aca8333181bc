#include <gtest/gtest.h>

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
