#include <gtest/gtest.h>

#include <filesystem>

#include "cli/Commands.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

TEST(CreateDbCommand, MakesADatabaseOnceAndThenRefuses) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    const std::string path = folder.path() + "/club.db";
    EXPECT_EQ(cli::Run({"createdb", path}), 0);
    EXPECT_TRUE(std::filesystem::is_regular_file(path));
    EXPECT_EQ(cli::Run({"createdb", path}), 1);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_NE(messages.shown[0].text.find("already exists"), std::string::npos);
    EXPECT_EQ(cli::Run({"createdb"}), 2);
    EXPECT_EQ(cli::Run({"createdb", path, "extra"}), 2);
}

}  // namespace
}  // namespace tb
