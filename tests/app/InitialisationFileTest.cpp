#include <gtest/gtest.h>

#include <fstream>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class InitialisationFileTest : public ::testing::Test {
protected:
    void SetUp() override { SetProgramFolder(folder.path()); }
    void TearDown() override { SetProgramFolder(""); }

    void Write(const std::string& text) {
        std::ofstream(folder.path() + "/Tallyboard.ini", std::ios::binary) << text;
    }
    // The section's title, then each action's fields separated by '|', one a line.
    std::string Section(const clResults& read, std::size_t slot) {
        const ReportSection& s = read.ReportMenu()[slot];
        std::string text = s.Title + "\n";
        for (const ReportAction& a : s.Actions)
            text += a.Caption + "|" + a.StyleSheet + "|" + a.OutputObject + "|" + a.OutputFile +
                    "|" + std::to_string(a.Option) + "|" + std::to_string(a.Viewer) + "\n";
        return text;
    }

    test::TempFolder folder;
    clResults results;
};

TEST_F(InitialisationFileTest, TakesActionLinesApartWhateverTheSpacingAndLineEnds) {
    Write(
        "\xEF\xBB\xBF[Entry list]\r\nResults=a.xsl,,out.htm,1,2\r\n\r\n   \r\n  Bare=,,,1,1   \n" +
        std::string(5000, ' ') + "\nWeb=w.xsl,publish,page.htm,0,3\n[Series, combined]\r\n");
    ASSERT_EQ(results.GetInitialisationInfo(), "");
    EXPECT_EQ(Section(results, 0) + Section(results, 1),
              test::Expected("app/report-menus.txt", "spacing and line ends"));
}

// Each malformed line stops the reading with its trimmed text; what came before stays.
TEST_F(InitialisationFileTest, MalformedLinesAreNamed) {
    for (const auto& row : test::DataFileRows("app/malformed-lines.tsv")) {
        const std::string& line = row.at(0);
        SCOPED_TRACE(row.at(1));
        clResults fresh;
        Write("[Kept]\nGood=g.xsl,,,0,1\n  " + line + "  \n[Never]\n");
        const std::string Msg = fresh.GetInitialisationInfo();
        if (row.at(1).starts_with("no problem")) {
            EXPECT_EQ(Msg, "");
            continue;
        }
        EXPECT_EQ(Msg, "E-Error in initialisation file entry: " + line);
        EXPECT_EQ(Section(fresh, 0), "Kept\nGood|g.xsl|||0|1\n");
        EXPECT_EQ(fresh.ReportMenu()[1].Title, "");
    }

    clResults early;
    Write("Results=a.xsl,,,1,1\n[Late]\n");
    EXPECT_EQ(early.GetInitialisationInfo(),
              "E-Error in initialisation file entry: Results=a.xsl,,,1,1");
}

TEST_F(InitialisationFileTest, TheEleventhSectionIsTheFaultyEntry) {
    std::string text;
    for (int i = 0; i < 11; ++i)
        text += "[Section " + std::to_string(i) + "]\nA=a.xsl,,,0,1\n";
    Write(text);
    EXPECT_EQ(results.GetInitialisationInfo(),
              "E-Error in initialisation file entry: [Section 10]");
    EXPECT_EQ(Section(results, 9), "Section 9\nA|a.xsl|||0|1\n");
}

TEST_F(InitialisationFileTest, IsReadOncePerRunUnlessTheFirstSlotIsFree) {
    EXPECT_TRUE(test::IsRunTimeError(results.GetInitialisationInfo(), "GetInitialisationInfo"));
    EXPECT_EQ(results.ReportMenu()[0].Title, "");
    Write("[First]\nA=a.xsl,,,0,1\n");
    ASSERT_EQ(results.GetInitialisationInfo(), "");
    Write("[Changed]\n");
    ASSERT_EQ(results.GetInitialisationInfo(), "");
    EXPECT_EQ(results.ReportMenu()[0].Title, "First");

    clResults other;
    Write("[]\nA=a.xsl,,,0,1\n");
    ASSERT_EQ(other.GetInitialisationInfo(), "");
    Write("[Now named]\n");
    ASSERT_EQ(other.GetInitialisationInfo(), "");
    EXPECT_EQ(other.ReportMenu()[0].Title, "Now named");
}

}  // namespace
}  // namespace tb
