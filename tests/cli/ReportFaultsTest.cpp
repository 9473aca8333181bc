// Reports under faults: a report folder the program may not write to, and a report write that
// fails part-way.

#include <gtest/gtest.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/ChildProcess.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

namespace fs = std::filesystem;
using test::Scalar;

constexpr int kRaceAndSeriesResults = 5;
constexpr int kAllEntrantsPage = 2;
constexpr int kEntryListByHandicap = 0;

// Creates the report of the kind and action for the race from the data file into the report
// folder, as the program does; the message, and the file written in path.
std::string MakeReport(const std::string& data, const std::string& reports, int kind, int action,
                       int race, std::string& path) {
    DataFile = data;
    ReportPath = reports + "/";
    clResults results;
    std::string Msg = results.ReadReportMenu(ProgramFolder() + "/Tallyboard.ini");
    if (Msg.empty()) {
        const auto& chosen = results.ReportMenu()[static_cast<std::size_t>(kind)]
                                 .Actions[static_cast<std::size_t>(action)];
        Msg = results.CreateReport(kind, action, chosen.Viewer, race, path);
    }
    return Msg;
}

// Every file under the folder, by path.
std::vector<std::string> FilesUnder(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

class ReportFaults : public ::testing::Test {
protected:
    ~ReportFaults() override {
        DataFile = savedDataFile_;
        ReportPath = savedReportPath_;
    }

    // A demonstration season of the size given, with the shipped style sheets in a report folder.
    void MakeSeason(const std::string& boats, const std::string& races) {
        testing::internal::CaptureStdout();
        const int status =
            cli::Run({"demo", data, "--boats", boats, "--races", races, "--seed", "11"});
        testing::internal::GetCapturedStdout();
        ASSERT_EQ(status, 0);
        fs::copy(ProgramFolder() + "/Reports", reports, fs::copy_options::recursive);
        lastRace = std::stoi(Scalar(data, "SELECT max(Id) FROM Schedule"));
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

TEST_F(ReportFaults, AReadOnlyReportFolderGivesAMessageAndNoReport) {
    MakeSeason("12", "3");
    // The report computes into the data file, which the unprivileged child may write.
    chmod(folder.path().c_str(), 0777);
    for (const char* part : {"", "-wal", "-shm"})
        chmod((data + part).c_str(), 0666);
    const std::vector<std::string> before = FilesUnder(reports);
    chmod(reports.c_str(), 0555);

    for (const int kind : {kEntryListByHandicap, kRaceAndSeriesResults}) {
        const std::string Msg = test::RunUnprivileged([&] {
            std::string path;
            return MakeReport(data, reports, kind, kAllEntrantsPage, lastRace, path);
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
        return MakeReport(data, reports, kEntryListByHandicap, kAllEntrantsPage, lastRace, path);
    });
    EXPECT_TRUE(
        Msg.starts_with("C-Error 75 raised by Tallyboard in CreateReport\r"
                        "Path/File access error: " +
                        reports + "/2026/"))
        << Msg;
    EXPECT_EQ(FilesUnder(reports), before);
}

TEST_F(ReportFaults, AWriteThatFailsPartWayLeavesTheEarlierReport) {
    MakeSeason("150", "3");
    std::string path;
    ASSERT_EQ(MakeReport(data, reports, kEntryListByHandicap, kAllEntrantsPage, lastRace, path),
              "");
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
        return MakeReport(data, reports, kEntryListByHandicap, kAllEntrantsPage, lastRace, again);
    });
    EXPECT_EQ(Msg, "C-Error 61 raised by Tallyboard in CreateReport\rDisk full: " + path);
    EXPECT_EQ(test::ReadFile(path), earlier);
    EXPECT_EQ(FilesUnder(reports), files);
}

}  // namespace
}  // namespace tb
