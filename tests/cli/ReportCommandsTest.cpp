// The command line's demonstration season, race list and reports, the pages a browser shows, and
// reports under faults: a report folder the program may not write to, and a report write that
// fails part-way.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "app/Globals.h"
#include "app/ReportMenu.h"
#include "cli/Commands.h"
#include "data/clResults.h"
#include "reports/ReportFixture.h"
#include "support/Browser.h"
#include "support/Checks.h"
#include "support/ChildProcess.h"
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

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
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

constexpr int kEntryListByHandicap = 0;
constexpr int kRaceAndSeriesResults = 5;
constexpr int kAllEntrantsPage = 2;

// Every file under the folder, by path.
std::vector<std::string> FilesUnder(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

// A demonstration season made by the command line, with the shipped style sheets in its report
// folder.
class CommandLineSeason : public ::testing::Test {
protected:
    ~CommandLineSeason() override {
        DataFile = savedDataFile_;
        ReportPath = savedReportPath_;
    }
    void MakeSeason(std::vector<std::string> options) {
        options.insert(options.begin(), data);
        std::string out;
        ASSERT_EQ(RunCommand("demo", options, out), 0);
        fs::copy(ProgramFolder() + "/Reports", reports, fs::copy_options::recursive);
        lastRace = std::stoi(Scalar(data, "SELECT max(Id) FROM Schedule"));
    }
    // Runs the report command on the data file (the season's unless named); its exit status, a
    // blank, and what it printed.
    std::string Report(const std::string& race, const std::string& kind, const std::string& action,
                       const std::string& file = "") {
        std::string out;
        const int status = RunCommand("report",
                                      {"--data", file.empty() ? data : file, "--reports", reports,
                                       "--race", race, "--kind", kind, "--action", action},
                                      out);
        return std::to_string(status) + " " + out;
    }
    // Creates the every-entrant page of the kind for the last race, as the program does; the
    // message, and the file written in path.
    std::string MakeReport(int kind, std::string& path) {
        DataFile = data;
        ReportPath = reports + "/";
        clResults results;
        std::string Msg = results.ReadReportMenu(ProgramFolder() + "/Tallyboard.ini");
        if (Msg.empty()) {
            const auto& chosen =
                results.ReportMenu()[static_cast<std::size_t>(kind)].Actions[kAllEntrantsPage];
            Msg = results.CreateReport(kind, kAllEntrantsPage, chosen.Viewer, lastRace, path);
        }
        return Msg;
    }

    test::TempFolder folder;
    test::RecordingMessages messages;
    const std::string data = folder.path() + "/season.db";
    const std::string reports = folder.path() + "/Reports";
    int lastRace = 0;

private:
    const std::string savedDataFile_ = DataFile;
    const std::string savedReportPath_ = ReportPath;
};

// The season's races listed one a line, and every action of the shipped menu on race 4.
TEST_F(CommandLineSeason, EveryShippedActionWritesItsReport) {
    MakeSeason({"--boats", "24", "--races", "6"});
    std::string listed;
    ASSERT_EQ(RunCommand("races", {"--data", data}, listed), 0);
    EXPECT_EQ(listed, test::DataFile("cli/races.txt"));
    const std::string web = reports + "-web";
    ::setenv("TALLYBOARD_WEB_FOLDER", web.c_str(), 1);
    const auto boats = test::DataFileRows("cli/race-4-boats.txt");
    std::ifstream ini(ProgramFolder() + "/Tallyboard.ini");
    int kind = -1;
    int action = 0;
    for (std::string line; std::getline(ini, line);) {
        if (line.starts_with("[")) {
            ++kind;
            action = 0;
            continue;
        }
        const std::string letter(1, kReportLetters[kind]);
        const std::string printed = Report("4", letter, std::to_string(action));
        ASSERT_TRUE(printed.starts_with("0 ")) << line << ": " << printed;
        // The path printed is where the report is, published ones included.
        const std::string path = FirstLine(printed.substr(2));
        EXPECT_TRUE(fs::is_regular_file(path)) << line;
        const bool published = line.find("publish-to-web-folder") != std::string::npos;
        EXPECT_TRUE(path.starts_with(published ? web + "/summer-series-2026/" : reports + "/2026/"))
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
    }
    ::unsetenv("TALLYBOARD_WEB_FOLDER");
    EXPECT_EQ(kind, 5) << "six report kinds";
}

// Publishing race 4, then race 5, with their standings: both race pages, the series page and an
// index linking them, newest first; unsettled handicaps stop publishing with exit status 1.
TEST_F(CommandLineSeason, PublishingKeepsAnArchiveOfTheSeasonsPages) {
    MakeSeason({"--boats", "24", "--races", "6"});
    const std::string web = folder.path() + "/web";
    ::setenv("TALLYBOARD_WEB_FOLDER", web.c_str(), 1);
    const std::string series = web + "/summer-series-2026/";
    EXPECT_EQ(Report("4", "R", "5"), "0 " + series + "race-4.htm\n");
    EXPECT_EQ(Report("4", "S", "5"), "0 " + series + "index.htm\n");
    EXPECT_EQ(Report("5", "R", "5"), "0 " + series + "race-5.htm\n");
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

    const std::string unsettled = folder.path() + "/unsettled.db";
    fs::copy_file(data, unsettled);
    {
        SQLite::Database db(unsettled, SQLite::OPEN_READWRITE);
        db.exec("UPDATE Handicap SET Expires = '2026-01-01 00:00:00'");
    }
    messages.Clear();
    EXPECT_TRUE(Report("6", "R", "5", unsettled).starts_with("1 " + reports + "/2026/"));
    ASSERT_EQ(messages.Texts().size(), 1u);
    EXPECT_TRUE(messages.Texts()[0].starts_with("E-The results were not published"));
    EXPECT_FALSE(fs::exists(series + "race-6.htm"));
    ::unsetenv("TALLYBOARD_WEB_FOLDER");
}

TEST_F(CommandLineSeason, HoldsAPlausibleSeason) {
    MakeSeason({"--boats", "60", "--races", "12", "--classes", "3"});
    for (const auto& row : test::DataFileRows("cli/demo-season-facts.tsv"))
        EXPECT_EQ(Scalar(data, row.at(0)), row.at(1)) << row.at(0);
}

// A season of sixty races read on a desktop screen, on a phone and on paper: the columns a sailor
// looks for first are in view without scrolling sideways, and every printed page carries a table
// header (so none holds only a heading, and the standings show the total on each).
TEST_F(CommandLineSeason, ASixtyRaceSeasonReadsOnScreenPhoneAndPaper) {
    MakeSeason({"--boats", "60", "--races", "60", "--classes", "2"});
    auto page = [&](const char* kind) {
        const std::string printed = Report("60", kind, "0");
        EXPECT_TRUE(printed.starts_with("0 ")) << printed;
        return FirstLine(printed.substr(2));
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

TEST_F(CommandLineSeason, AReadOnlyReportFolderGivesAMessageAndNoReport) {
    MakeSeason({"--boats", "12", "--races", "3", "--seed", "11"});
    // The report computes into the data file, which the unprivileged child may write.
    chmod(folder.path().c_str(), 0777);
    for (const char* part : {"", "-wal", "-shm"})
        chmod((data + part).c_str(), 0666);
    const std::vector<std::string> before = FilesUnder(reports);
    chmod(reports.c_str(), 0555);

    for (const int kind : {kEntryListByHandicap, kRaceAndSeriesResults}) {
        const std::string Msg = test::RunUnprivileged([&] {
            std::string path;
            return MakeReport(kind, path);
        });
        EXPECT_TRUE(Msg.starts_with("C-Error ")) << Msg;
        EXPECT_NE(Msg.find("Permission denied"), std::string::npos) << Msg;
    }
    // A year folder that exists but may not be written to.
    chmod(reports.c_str(), 0755);
    fs::create_directory(reports + "/2026");
    chmod((reports + "/2026").c_str(), 0555);
    const std::string Msg = test::RunUnprivileged([&] {
        std::string path;
        return MakeReport(kEntryListByHandicap, path);
    });
    EXPECT_TRUE(
        Msg.starts_with("C-Error 75 raised by Tallyboard in CreateReport\r"
                        "Path/File access error: " +
                        reports + "/2026/"))
        << Msg;
    EXPECT_EQ(FilesUnder(reports), before);
}

TEST_F(CommandLineSeason, AWriteThatFailsPartWayLeavesTheEarlierReport) {
    MakeSeason({"--boats", "150", "--races", "3", "--seed", "11"});
    std::string path;
    ASSERT_EQ(MakeReport(kEntryListByHandicap, path), "");
    const std::string earlier = test::ReadFile(path);
    const std::vector<std::string> files = FilesUnder(reports);

    // The entry list only reads the data file, and this open connection keeps the file's shared
    // memory at full size, so the limit catches the report alone.
    SQLite::Database open(data, SQLite::OPEN_READONLY);
    ASSERT_TRUE(SQLite::Statement(open, "SELECT count(*) FROM Boat").executeStep());
    const rlim_t limit = earlier.size() / 2;
    const std::string Msg = test::RunInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit size{limit, limit};
        if (setrlimit(RLIMIT_FSIZE, &size) != 0)
            return std::string("<no limit>");
        std::string again;
        return MakeReport(kEntryListByHandicap, again);
    });
    EXPECT_EQ(Msg, "C-Error 61 raised by Tallyboard in CreateReport\rDisk full: " + path);
    EXPECT_EQ(test::ReadFile(path), earlier);
    EXPECT_EQ(FilesUnder(reports), files);
}

// A club moved onto its server and back: the same records give the same reports, byte for byte,
// on the file, on the server and on the copy brought back.
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
    test::WriteFile(menu, test::EveryKindMenu("series=,,,0,0"));

    std::string out;
    ASSERT_EQ(RunCommand("demo", {file, "--boats", "40", "--races", "6", "--classes", "2"}, out),
              0);
    ASSERT_EQ(RunCommand("copy", {file, server.path()}, out), 0);
    ASSERT_EQ(RunCommand("copy", {server.path(), back}, out), 0);
    EXPECT_EQ(RunCommand("copy", {file, server.path()}, out), 1) << "the server holds a club";
    messages.Clear();

    // The reports of every kind made on the file, on the server and on the copy brought back.
    std::map<std::string, std::vector<std::string>> made;
    for (const std::string& data : {file, server.path(), back}) {
        for (const char kind : std::string(kReportLetters)) {
            ASSERT_EQ(RunCommand("report",
                                 {"--data", data, "--reports", reports, "--race", "6", "--kind",
                                  std::string(1, kind), "--ini", menu},
                                 out),
                      0)
                << data << " " << kind;
            made[data].push_back(test::WithoutReportTime(test::ReadFile(FirstLine(out))));
        }
    }
    EXPECT_EQ(made[server.path()], made[file]) << "on the server";
    EXPECT_EQ(made[back], made[file]) << "brought back";
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{});
}

}  // namespace
}  // namespace tb
