// A club moved onto its server and back: the same records give the same reports, byte for byte,
// on the file, on the server and on the copy brought back.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/ReportMenu.h"
#include "cli/Commands.h"
#include "reports/ReportFixture.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

int RunCommand(const std::string& command, std::vector<std::string> args, std::string& out) {
    args.insert(args.begin(), command);
    testing::internal::CaptureStdout();
    const int status = cli::Run(args);
    out = testing::internal::GetCapturedStdout();
    return status;
}

TEST(ServerCopy, AClubMovedOntoItsServerAndBackGivesTheSameReports) {
    if (!test::TestDatabase::OnServer())
        GTEST_SKIP() << "moves a club onto the test server";
    test::TempFolder folder;
    test::RecordingMessages messages;
    test::TestDatabase server;
    const std::string file = folder.path() + "/club.db";
    const std::string back = folder.path() + "/back.db";
    const std::string reports = folder.path() + "/Reports";
    const std::string menu = folder.path() + "/menu.ini";
    std::string ini;
    for (const char kind : std::string(kReportLetters))
        ini += std::string("[") + kind + "]\nseries=,,,0,0\n";
    test::WriteFile(menu, ini);

    std::string out;
    ASSERT_EQ(RunCommand("demo", {file, "--boats", "40", "--races", "6", "--classes", "2"}, out),
              0);
    ASSERT_EQ(RunCommand("copy", {file, server.path()}, out), 0);
    ASSERT_EQ(RunCommand("copy", {server.path(), back}, out), 0);
    EXPECT_EQ(RunCommand("copy", {file, server.path()}, out), 1) << "the server holds a club";
    messages.Clear();

    std::vector<std::string> made;
    for (const std::string& data : {file, server.path(), back}) {
        for (const char kind : std::string(kReportLetters)) {
            ASSERT_EQ(RunCommand("report",
                                 {"--data", data, "--reports", reports, "--race", "6", "--kind",
                                  std::string(1, kind), "--ini", menu},
                                 out),
                      0)
                << data << " " << kind;
            made.push_back(test::WithoutReportTime(test::ReadFile(out.substr(0, out.find('\n')))));
        }
    }
    const std::size_t kinds = made.size() / 3;
    for (std::size_t k = 0; k < kinds; ++k) {
        EXPECT_EQ(made[kinds + k], made[k]) << "on the server: " << kReportLetters[k];
        EXPECT_EQ(made[2 * kinds + k], made[k]) << "brought back: " << kReportLetters[k];
    }
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{});
}

}  // namespace
}  // namespace tb
