// What both programs say and how they end for help, version and wrong arguments.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>

#include "app/Globals.h"
#include "support/Checks.h"
#include "support/ChildProcess.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

// The rows run in order, so a file one row makes is there for the next.
TEST(CommandLine, HelpAndVersionEndWellAndAWrongArgumentSaysWhatWasExpected) {
    test::TempFolder folder;
    const std::regex placeholder("\\{folder\\}");
    for (const auto& row : test::DataFileRows("cli/arguments.tsv")) {
        const std::string arguments = std::regex_replace(row.at(1), placeholder, folder.path());
        const auto [status, output] =
            test::RunShell("QT_QPA_PLATFORM=offscreen " + ProgramFolder() + "/" + row.at(0) + " " +
                           arguments + " 2>&1");
        EXPECT_EQ(status, std::stoi(row.at(2))) << row.at(0) << ' ' << arguments;
        EXPECT_NE(output.find(std::regex_replace(row.at(3), placeholder, folder.path())),
                  std::string::npos)
            << row.at(0) << ' ' << arguments << ":\n"
            << output;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/x.db"));
}

}  // namespace
}  // namespace tb
