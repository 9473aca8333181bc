// The command line's demonstration season, race list and reports, and the pages a browser shows.

#include <SQLiteCpp/Database.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "app/Globals.h"
#include "app/ReportMenu.h"
#include "cli/Commands.h"
#include "reports/ReportFixture.h"
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

TEST(DemoCommand, MakesTheSameSeasonForTheSameSeed) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    std::string out;
    const std::string a = folder.path() + "/a.db", b = folder.path() + "/b.db",
                      c = folder.path() + "/c.db";
    ASSERT_EQ(RunCommand("demo", {a, "--boats", "30", "--races", "8", "--seed", "7"}, out), 0);
    ASSERT_EQ(RunCommand("demo", {b, "--races", "8", "--seed", "7", "--boats", "30"}, out), 0);
    ASSERT_EQ(RunCommand("demo", {c, "--boats", "30", "--races", "8", "--seed", "8"}, out), 0);
    const std::string fingerprint = test::DataFile("cli/season-fingerprint.sql");
    EXPECT_EQ(Scalar(a, fingerprint), Scalar(b, fingerprint));
    EXPECT_NE(Scalar(a, fingerprint), Scalar(c, fingerprint));
    EXPECT_EQ(RunCommand("demo", {a}, out), 1) << "an existing file is never written over";
}

TEST(DemoCommand, HoldsAPlausibleSeason) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    const std::string file = folder.path() + "/demo.db";
    std::string out;
    ASSERT_EQ(RunCommand("demo", {file, "--boats", "60", "--races", "12", "--classes", "3"}, out),
              0);
    for (const auto& row : test::DataFileRows("cli/demo-season-facts.tsv"))
        EXPECT_EQ(Scalar(file, row.at(0)), row.at(1)) << row.at(0);
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
    EXPECT_EQ(out, test::DataFile("cli/races.txt"));
}

TEST_F(ReportCommandTest, EveryShippedActionWritesItsReport) {
    const std::string web = Reports() + "-web";
    ::setenv("TALLYBOARD_WEB_FOLDER", web.c_str(), 1);
    fs::copy(ProgramFolder() + "/Reports", Reports(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    const auto boats = test::DataFileRows("cli/race-4-boats.txt");
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
        // The path printed is where the report is, published ones included.
        const std::string path = Lines(out).at(0);
        EXPECT_TRUE(fs::is_regular_file(path)) << line;
        const bool published = line.find("publish-to-web-folder") != std::string::npos;
        EXPECT_TRUE(
            path.starts_with(published ? web + "/summer-series-2026/" : Reports() + "/2026/"))
            << path;
        // A page of every entrant shows every boat of every class.
        for (std::size_t b = 0; line.starts_with("All entrants=") && b < boats.size(); ++b)
            EXPECT_NE(test::ReadFile(path).find(">" + boats[b].at(0) + "<"), std::string::npos)
                << boats[b][0];
        if (path.ends_with(".pdf")) {
            EXPECT_EQ(std::system(("pdftoppm -r 20 -png '" + path + "' '" + path + "'").c_str()),
                      0);
            EXPECT_TRUE(fs::exists(path + "-1.png")) << path;
        }
        ++action;
        ++written;
    }
    ::unsetenv("TALLYBOARD_WEB_FOLDER");
    EXPECT_EQ(kind, 5) << "six report kinds";
    EXPECT_GE(written, 18);
}

// Publishing race 4, then race 5, with their standings: both race pages, the series page and an
// index linking them, newest first; unsettled handicaps stop publishing with exit status 1.
TEST_F(ReportCommandTest, PublishingKeepsAnArchiveOfTheSeasonsPages) {
    const std::string web = folder_->path() + "/web";
    ::setenv("TALLYBOARD_WEB_FOLDER", web.c_str(), 1);
    fs::copy(ProgramFolder() + "/Reports", Reports(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    const std::string series = web + "/summer-series-2026/";
    auto publish = [&](const std::string& data, const char* race, const char* kind) {
        std::string out;
        const int status = RunCommand("report",
                                      {"--data", data, "--reports", Reports(), "--race", race,
                                       "--kind", kind, "--action", "5"},
                                      out);
        return std::to_string(status) + " " + out;
    };
    EXPECT_EQ(publish(Data(), "4", "R"), "0 " + series + "race-4.htm\n");
    EXPECT_EQ(publish(Data(), "4", "S"), "0 " + series + "index.htm\n");
    EXPECT_EQ(publish(Data(), "5", "R"), "0 " + series + "race-5.htm\n");
    // The index of every season's pages, newest race first.
    EXPECT_EQ(test::ReadFile(web + "/index.htm"), test::DataFile("cli/published-index.htm"));
    for (const char* page : {"race-4.htm", "race-5.htm"}) {
        const std::string text = test::ReadFile(series + page);
        EXPECT_NE(text.find(test::DataFile("cli/published-links.htm")), std::string::npos);
        EXPECT_NE(test::ReadFile(series + "index.htm").find(std::string("href=\"") + page),
                  std::string::npos);
        EXPECT_EQ(text.find("<nav class=\"archive\""), text.rfind("<nav class=\"archive\""))
            << "the links are put in place of the earlier ones";
    }

    const std::string unsettled = folder_->path() + "/unsettled.db";
    fs::copy_file(Data(), unsettled);
    {
        SQLite::Database db(unsettled, SQLite::OPEN_READWRITE);
        db.exec("UPDATE Handicap SET Expires = '2026-01-01 00:00:00'");
    }
    messages.Clear();
    EXPECT_TRUE(publish(unsettled, "6", "R").starts_with("1 " + Reports() + "/2026/"));
    ASSERT_EQ(messages.Texts().size(), 1u);
    EXPECT_TRUE(messages.Texts()[0].starts_with("E-The results were not published"));
    EXPECT_FALSE(fs::exists(series + "race-6.htm"));
    ::unsetenv("TALLYBOARD_WEB_FOLDER");
}

// A season of sixty races read on a desktop screen, on a phone and on paper: the columns a sailor
// looks for first are in view without scrolling sideways, and every printed page carries a table
// header (so none holds only a heading, and the standings show the total on each).
TEST(ReportLayout, ASixtyRaceSeasonReadsOnScreenPhoneAndPaper) {
    test::TempFolder folder;
    test::RecordingMessages messages;
    const std::string data = folder.path() + "/season.db", reports = folder.path() + "/Reports";
    std::string out;
    ASSERT_EQ(RunCommand("demo", {data, "--boats", "60", "--races", "60", "--classes", "2"}, out),
              0);
    fs::copy(ProgramFolder() + "/Reports", reports, fs::copy_options::recursive);
    auto page = [&](const char* kind) {
        EXPECT_EQ(RunCommand("report",
                             {"--data", data, "--reports", reports, "--race", "60", "--kind", kind,
                              "--action", "0"},
                             out),
                  0);
        return Lines(out).at(0);
    };
    const std::map<std::string, std::string> pages = {
        {"S", page("S")}, {"R", page("R")}, {"E", page("E")}};
    test::TempFolder profile;
    for (const auto& row : test::DataFileRows("cli/layout.tsv")) {
        const std::string& shown = pages.at(row.at(1));
        if (row.at(0) == "screen") {
            const std::string checked = folder.path() + "/checked.htm";
            std::ofstream(checked)
                << std::ifstream(shown).rdbuf() << "<script>const wanted = [" << row.at(3) << "];\n"
                << test::DataFile("reports/columns-in-view.js") << "</script>";
            const auto dom = test::BrowserView(checked, profile.path(), std::stoi(row.at(2)));
            if (!dom)
                GTEST_SKIP() << "chromium is not installed";
            EXPECT_NE(dom->find("<pre id=\"layout\">" + row.at(4) + "</pre>"), std::string::npos)
                << row[1] << " at " << row[2]
                << " px: " << dom->substr(std::min(dom->size(), dom->find("<pre id=\"layout\">")));
            continue;
        }
        const auto printed = test::PrintedPages(shown, profile.path());
        if (!printed)
            GTEST_SKIP() << "chromium or pdftotext is not installed";
        EXPECT_GT(printed->size(), 1u) << row[1];
        for (std::size_t p = 0; p < printed->size(); ++p)
            EXPECT_NE((*printed)[p].find(row.at(2)), std::string::npos)
                << row[1] << " page " << p + 1;
        EXPECT_NE(printed->back().find(row.at(3)), std::string::npos) << row[1];
    }
}

}  // namespace
}  // namespace tb
