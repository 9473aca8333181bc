// Where the program finds its shipped files, and what a fresh account gets on its first start.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/FirstStart.h"
#include "app/Globals.h"
#include "support/Checks.h"
#include "support/ChildProcess.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

namespace fs = std::filesystem;

void Touch(const fs::path& file, const std::string& text = "") {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

TEST(ProgramFolder, IsTheBuildFolderOrTheInstalledShareFolderWhereverTheTreeIs) {
    test::TempFolder root;
    const fs::path r = root.path();
    Touch(r / "build/bin/Tallyboard.ini");
    Touch(r / "usr/share/tallyboard/Tallyboard.ini");
    fs::create_directories(r / "usr/bin");
    fs::create_directories(r / "lonely/bin");
    fs::create_directories(r / "moved");
    fs::copy(r / "usr", r / "moved/opt", fs::copy_options::recursive);
    for (const auto& row : test::DataFileRows("app/program-folders.tsv"))
        EXPECT_EQ(ProgramFolderFor((r / row.at(0)).string()), (r / row.at(1)).string()) << row[0];
}

class FirstStartTest : public ::testing::Test {
protected:
    FirstStartTest() {
        ::setenv("XDG_DATA_HOME", (fs::path(root.path()) / "home-data").c_str(), 1);
        Touch(fs::path(root.path()) / "shipped/Reports/results.xsl", "shipped");
        Touch(fs::path(root.path()) / "shipped/Reports/notes.txt");
    }
    ~FirstStartTest() override {
        SetProgramFolder("");
        ::unsetenv("XDG_DATA_HOME");
    }
    // A program folder of the given kind holding the shipped sheets; returns it.
    std::string ProgramFolderAt(const std::string& relative) {
        const fs::path folder = fs::path(root.path()) / relative;
        fs::create_directories(folder.parent_path());
        fs::copy(fs::path(root.path()) / "shipped", folder, fs::copy_options::recursive);
        SetProgramFolder(folder.string());
        return folder.string();
    }
    test::TempFolder root;
};

TEST_F(FirstStartTest, TheDefaultsLieBesideAWritableProgramElseInTheUsersDataFolder) {
    const std::string user = root.path() + "/home-data/Tallyboard";
    const std::string build = ProgramFolderAt("build/bin");
    EXPECT_EQ(DefaultDataFile(), build + "/Data/Tallyboard.db");
    EXPECT_EQ(DefaultReportPath(), build + "/Reports/");

    ProgramFolderAt("usr/share/tallyboard");
    EXPECT_EQ(DefaultDataFile(), user + "/Tallyboard.db");
    EXPECT_EQ(DefaultReportPath(), user + "/Reports/");

    const std::string readOnly = ProgramFolderAt("read-only");
    ::chmod(readOnly.c_str(), 0555);
    EXPECT_EQ(test::RunUnprivileged([] { return DefaultDataFile() + "|" + DefaultReportPath(); }),
              user + "/Tallyboard.db|" + user + "/Reports/");
}

TEST_F(FirstStartTest, MakesAReadyDatabaseAndGivesTheReportFolderTheMissingSheets) {
    ProgramFolderAt("usr/share/tallyboard");
    const std::string data = DefaultDataFile();
    ASSERT_EQ(CreateFirstDatabase(data), "");
    EXPECT_EQ(test::Scalar(data, "SELECT group_concat(Description) FROM HandicapType"), "TCF");
    EXPECT_EQ(test::Scalar(data, "SELECT count(*) FROM Status"), "9");
    EXPECT_NE(CreateFirstDatabase(data), "") << "an existing database is never written over";

    const fs::path reports = DefaultReportPath();
    ASSERT_EQ(ProvideStyleSheets(reports.string()), "");
    EXPECT_EQ(test::ReadFile(reports / "results.xsl"), "shipped");
    EXPECT_FALSE(fs::exists(reports / "notes.txt"));
    Touch(reports / "results.xsl", "the club's own");
    ASSERT_EQ(ProvideStyleSheets(reports.string()), "");
    EXPECT_EQ(test::ReadFile(reports / "results.xsl"), "the club's own");
}

}  // namespace
}  // namespace tb
