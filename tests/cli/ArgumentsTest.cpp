// What both programs say and how they end for help, version and wrong arguments.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <regex>
#include <string>

#include "app/Globals.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

// Runs a program of the build with the arguments (shell words); its exit status and what it
// wrote to stdout and stderr.
std::pair<int, std::string> RunProgram(const std::string& program, const std::string& arguments) {
    const std::string command =
        "QT_QPA_PLATFORM=offscreen " + ProgramFolder() + "/" + program + " " + arguments + " 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    std::string output;
    std::array<char, 4096> buffer{};
    for (std::size_t n; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        output.append(buffer.data(), n);
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

// The rows run in order, so a file one row makes is there for the next.
TEST(CommandLine, HelpAndVersionEndWellAndAWrongArgumentSaysWhatWasExpected) {
    test::TempFolder folder;
    const std::regex placeholder("\\{folder\\}");
    for (const auto& row : test::DataFileRows("cli/arguments.tsv")) {
        const std::string arguments = std::regex_replace(row.at(1), placeholder, folder.path());
        const auto [status, output] = RunProgram(row.at(0), arguments);
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
