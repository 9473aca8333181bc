// The command line's demonstration season, race list and reports, and the pages a browser shows.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "app/Globals.h"
#include "app/ReportMenu.h"
#include "cli/Commands.h"
#include "support/Browser.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

namespace fs = std::filesystem;
using test::Scalar;

// Runs a command and returns its exit status, with what it printed in out.
int RunCommand(const std::string& command, std::vector<std::string> args, std::string& out) {
    args.insert(args.begin(), command);
    testing::internal::CaptureStdout();
    const int status = cli::Run(args);
    out = testing::internal::GetCapturedStdout();
    return status;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// Everything that tells one season from another.
constexpr const char* kSeasonFingerprint = R"sql(
SELECT (SELECT group_concat(BoatName || Handicap, ',') FROM Boat JOIN Handicap ON Boat = Boat.Id)
    || (SELECT group_concat(ifnull(FinishTime, '-') || Status || Notes, ',') FROM Results)
    || (SELECT group_concat(Entrant || ':' || Schedule, ',') FROM EntryList))sql";

TEST(DemoCommand, MakesTheSameSeasonForTheSameSeed) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    std::string out;
    const std::string a = folder.path() + "/a.db", b = folder.path() + "/b.db",
                      c = folder.path() + "/c.db";
    ASSERT_EQ(RunCommand("demo", {a, "--boats", "30", "--races", "8", "--seed", "7"}, out), 0);
    ASSERT_EQ(RunCommand("demo", {b, "--races", "8", "--seed", "7", "--boats", "30"}, out), 0);
    ASSERT_EQ(RunCommand("demo", {c, "--boats", "30", "--races", "8", "--seed", "8"}, out), 0);
    EXPECT_EQ(Scalar(a, kSeasonFingerprint), Scalar(b, kSeasonFingerprint));
    EXPECT_NE(Scalar(a, kSeasonFingerprint), Scalar(c, kSeasonFingerprint));
    EXPECT_EQ(RunCommand("demo", {a}, out), 1) << "an existing file is never written over";
}

TEST(DemoCommand, HoldsAPlausibleSeason) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    const std::string file = folder.path() + "/demo.db";
    std::string out;
    ASSERT_EQ(RunCommand("demo", {file, "--boats", "60", "--races", "12", "--classes", "3"}, out),
              0);
    const std::pair<const char*, const char*> facts[] = {
        {"SELECT count(*) FROM Boat", "60"},
        {"SELECT count(*) FROM Entrant", "60"},
        {"SELECT count(*) FROM Schedule", "12"},
        {"SELECT count(*) FROM Class", "3"},
        {"SELECT count(DISTINCT SubseriesTitle) FROM Series", "1"},
        {"SELECT count(*) > 0 FROM Schedule WHERE InSubSeries = 1", "1"},
        {"SELECT count(DISTINCT EntrantType) FROM Entrant", "4"},
        // Most boats finish most races; some retire or do not start; a few are penalised.
        {"SELECT 10 * sum(Status = 9) > 8 * count(*) FROM EntryList JOIN Results "
         "USING (Schedule, Entrant)",
         "1"},
        {"SELECT count(*) > 0 FROM Results WHERE Status = 4", "1"},
        {"SELECT count(*) > 0 FROM Results WHERE Status = 5", "1"},
        {"SELECT count(*) > 0 FROM Results WHERE PenaltyMins + PenaltyPercent + PenaltyPoints > 0",
         "1"},
        // A dead heat on corrected time, and every race's times already worked out.
        {"SELECT count(*) FROM Results a JOIN Results b ON a.Schedule = b.Schedule "
         "AND a.Entrant < b.Entrant AND a.CorrectedTime = b.CorrectedTime "
         "JOIN Entrant ea ON ea.Id = a.Entrant JOIN Entrant eb ON eb.Id = b.Entrant "
         "WHERE a.Status = 9 AND b.Status = 9 AND ea.Class = eb.Class",
         "1"},
        {"SELECT count(*) FROM Results WHERE Status = 9 AND CorrectedTime = 0", "0"},
    };
    for (const auto& [sql, expected] : facts)
        EXPECT_EQ(Scalar(file, sql), expected) << sql;
}

TEST(DemoCommand, RefusesWrongArguments) {
    test::TempFolder folder;
    const std::string file = folder.path() + "/x.db";
    std::string out;
    for (const std::vector<std::string>& args :
         std::vector<std::vector<std::string>>{{},
                                               {"--boats", "3"},
                                               {file, "--boats"},
                                               {file, "--boats", "0"},
                                               {file, "--boats", "ten"},
                                               {file, "--fleets", "2"},
                                               {file, "--seed", "1", "--seed", "2"}}) {
        EXPECT_EQ(RunCommand("demo", args, out), 2);
    }
    EXPECT_FALSE(fs::exists(file));
}

class ReportCommandTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder_ = new test::TempFolder;
        std::string out;
        ASSERT_EQ(RunCommand("demo", {Data(), "--boats", "24", "--races", "6"}, out), 0);
    }
    static void TearDownTestSuite() {
        delete folder_;
        folder_ = nullptr;
    }
    static std::string Data() { return folder_->path() + "/demo.db"; }
    static std::string Reports() { return folder_->path() + "/Reports"; }

    test::RecordingMessages messages;
    static test::TempFolder* folder_;
};

test::TempFolder* ReportCommandTest::folder_ = nullptr;

TEST_F(ReportCommandTest, RacesAreListedOnePerLine) {
    std::string out;
    ASSERT_EQ(RunCommand("races", {"--data", Data()}, out), 0);
    const auto lines = Lines(out);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0], "1\t1\tSummer Series 2026\tRace 1\t01/04/2026");
    EXPECT_EQ(lines[5], "6\t1\tSummer Series 2026\tRace 6\t29/08/2026");
    EXPECT_EQ(RunCommand("races", {}, out), 2);
    EXPECT_EQ(RunCommand("races", {"--data", folder_->path() + "/missing.db"}, out), 1);
}

TEST_F(ReportCommandTest, EveryShippedActionWritesItsReport) {
    const std::string web = Reports() + "-web";
    ::setenv("TALLYBOARD_WEB_FOLDER", web.c_str(), 1);
    fs::copy(ProgramFolder() + "/Reports", Reports(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    std::ifstream ini(ProgramFolder() + "/Tallyboard.ini");
    int kind = -1;
    int action = 0;
    int written = 0;
    for (std::string line; std::getline(ini, line);) {
        if (line.starts_with("[")) {
            ++kind;
            action = 0;
            continue;
        }
        const std::string letter(1, kReportLetters[kind]);
        std::string out;
        ASSERT_EQ(RunCommand("report",
                             {"--data", Data(), "--reports", Reports(), "--race", "4", "--kind",
                              letter, "--action", std::to_string(action)},
                             out),
                  0)
            << line;
        const std::string path = Lines(out).at(0);
        if (line.find("publish-to-web-folder") != std::string::npos) {
            EXPECT_TRUE(fs::exists(web + "/" + fs::path(path).filename().string())) << line;
        } else {
            EXPECT_TRUE(fs::is_regular_file(path)) << line;
            EXPECT_TRUE(path.starts_with(Reports() + "/2026/")) << path;
        }
        ++action;
        ++written;
    }
    ::unsetenv("TALLYBOARD_WEB_FOLDER");
    EXPECT_EQ(kind, 5) << "six report kinds";
    EXPECT_GE(written, 18);
}

TEST_F(ReportCommandTest, WrongRequestsAreRefused) {
    std::string out;
    const std::vector<std::string> base = {"--data", Data(), "--reports", Reports()};
    auto with = [&](std::vector<std::string> more) {
        std::vector<std::string> args = base;
        args.insert(args.end(), more.begin(), more.end());
        return args;
    };
    for (const std::vector<std::string>& wrong :
         std::vector<std::vector<std::string>>{{"--kind", "R"},
                                               {"--race", "1", "--kind", "X"},
                                               {"--race", "1", "--kind", "RS"},
                                               {"--race", "1", "--kind", "R", "--action", "99"}})
        EXPECT_EQ(RunCommand("report", with(wrong), out), 2);
    EXPECT_EQ(
        RunCommand("report", with({"--race", "1", "--kind", "R", "--ini", "/no/such.ini"}), out),
        1);
    messages.Clear();
    EXPECT_EQ(RunCommand("report", with({"--race", "999", "--kind", "E"}), out), 1);
    EXPECT_EQ(messages.Texts(),
              std::vector<std::string>{"I-No schedule or class was found for this race"});
    EXPECT_EQ(out, "");
}

TEST_F(ReportCommandTest, ABrowserShowsEveryBoatOfEveryClass) {
    fs::copy(ProgramFolder() + "/Reports", Reports(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    std::set<std::string> boats;
    {
        SQLite::Database db(Data(), SQLite::OPEN_READONLY);
        SQLite::Statement st(db,
                             "SELECT BoatName FROM Boat JOIN Entrant ON Entrant.Boat = Boat.Id "
                             "JOIN EntryList ON EntryList.Entrant = Entrant.Id "
                             "WHERE EntryList.Schedule = 4");
        while (st.executeStep())
            boats.insert(st.getColumn(0).getString());
    }
    ASSERT_GT(boats.size(), 10u);
    test::TempFolder profile;
    for (const char* kind : {"E", "A", "C", "R", "S", "B"}) {
        std::string out;
        ASSERT_EQ(RunCommand("report",
                             {"--data", Data(), "--reports", Reports(), "--race", "4", "--kind",
                              kind, "--action", "2"},
                             out),
                  0);
        const auto dom = test::BrowserView(Lines(out).at(0), profile.path());
        if (!dom)
            GTEST_SKIP() << "chromium is not installed";
        ASSERT_NE(dom->find("</table>"), std::string::npos) << kind;
        for (const std::string& boat : boats)
            EXPECT_NE(dom->find(">" + boat + "<"), std::string::npos) << kind << ": " << boat;
    }
}

}  // namespace
}  // namespace tb
