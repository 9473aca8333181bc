// What both programs say and how they end for help, version and wrong arguments.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

#include "app/Globals.h"

namespace tb {
namespace {

struct Outcome {
    int status;
    std::string output;
};

// Runs a program of the build with the arguments (shell words) and gathers stdout and stderr.
Outcome RunProgram(const std::string& program, const std::string& arguments) {
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

TEST(CommandLine, HelpAndVersionEndWellAndAWrongArgumentSaysWhatWasExpected) {
    struct Row {
        const char *program, *arguments;
        int status;
        const char* says;
    } rows[] = {
        {"tallyboard-cli", "--help", 0, "Usage: tallyboard-cli"},
        {"tallyboard-cli", "report --help", 0, "--kind"},
        {"tallyboard-cli", "demo --help", 0, "--seed"},
        {"tallyboard-cli", "--version", 0, "tallyboard-cli 1.0"},
        {"tallyboard-cli", "", 2, "Usage: tallyboard-cli"},
        {"tallyboard-cli", "publish x.db", 2, "publish: no such command"},
        {"tallyboard-cli", "report --data d --reports r --race abc --kind R", 2,
         "--race: expects a whole number"},
        {"tallyboard-cli", "report --data d --reports r --race 1 --kind Q", 2,
         "--kind: expects one of the letters E, A, C, R, S, B"},
        {"tallyboard-cli", "report --data d --reports r --kind R", 2, "--race is required"},
        {"tallyboard-cli", "demo x.db --boats 0", 2, "--boats: expects a whole number from 1"},
        {"tallyboard-cli", "createdb", 2, "FILE is required"},
        {"tallyboard", "--help", 0, "--data <FILE>"},
        {"tallyboard", "--version", 0, "tallyboard 1.0"},
        {"tallyboard", "--colour blue", 2, "Unknown option 'colour'"},
        {"tallyboard", "--data", 2, "Missing value after '--data'"},
        {"tallyboard", "season.db", 2, "unexpected argument season.db"},
    };
    for (const Row& row : rows) {
        const Outcome outcome = RunProgram(row.program, row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.program << ' ' << row.arguments;
        EXPECT_NE(outcome.output.find(row.says), std::string::npos)
            << row.program << ' ' << row.arguments << ":\n"
            << outcome.output;
    }
}

}  // namespace
}  // namespace tb
