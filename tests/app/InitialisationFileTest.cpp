#include <gtest/gtest.h>

#include <fstream>

#include "app/Globals.h"
#include "data/clResults.h"
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

    test::TempFolder folder;
    clResults results;
};

TEST_F(InitialisationFileTest, TakesActionLinesApart) {
    Write(
        "[Entry list]\nResults=a.xsl,,out.htm,1,2\nBare=,,,1,1\nWeb=w.xsl,publish,page.htm,0,3\n");
    ASSERT_EQ(results.GetInitialisationInfo(), "");
    const ReportSection& s = results.ReportMenu()[0];
    EXPECT_EQ(s.Title, "Entry list");
    ASSERT_EQ(s.Actions.size(), 3u);
    EXPECT_EQ(s.Actions[0].Caption, "Results");
    EXPECT_EQ(s.Actions[0].StyleSheet, "a.xsl");
    EXPECT_EQ(s.Actions[0].OutputObject, "");
    EXPECT_EQ(s.Actions[0].OutputFile, "out.htm");
    EXPECT_EQ(s.Actions[0].Option, 1);
    EXPECT_EQ(s.Actions[0].Viewer, 2);
    EXPECT_EQ(s.Actions[1].StyleSheet, "");
    EXPECT_EQ(s.Actions[2].OutputObject, "publish");
    EXPECT_EQ(s.Actions[2].Viewer, 3);
}

TEST_F(InitialisationFileTest, ToleratesBlankLinesCrLfByteOrderMarkAndPadding) {
    Write("\xEF\xBB\xBF[Results]\r\n\r\n   \r\n  Series=r.xsl,,,0,1   \r\n" +
          std::string(5000, ' ') + "\r\n[Series, combined]\r\n");
    ASSERT_EQ(results.GetInitialisationInfo(), "");
    EXPECT_EQ(results.ReportMenu()[0].Title, "Results");
    ASSERT_EQ(results.ReportMenu()[0].Actions.size(), 1u);
    EXPECT_EQ(results.ReportMenu()[0].Actions[0].Caption, "Series");
    EXPECT_EQ(results.ReportMenu()[1].Title, "Series, combined");
}

// Each malformed line stops the reading with its trimmed text; what came before stays.
TEST_F(InitialisationFileTest, MalformedLinesAreNamed) {
    const std::pair<const char*, const char*> cases[] = {
        {"A,B=x,y,z,1,1", "comma inside the caption"},
        {"Results=a.xsl,,out.htm,1", "missing second digit"},
        {"Results=a.xsl,,out.htm,1,", "separator without digit"},
        {"Results=a.xsl,out.htm,1,1", "too few commas"},
        {"Results a.xsl,,out.htm,1,1", "no equals sign"},
        {"Results=a.xsl,,out.htm,x,1", "letter for the option"},
        {"Results=a.xsl,,out.htm,1,1,", "no problem: trailing text ignored"},
    };
    for (const auto& [line, why] : cases) {
        SCOPED_TRACE(why);
        clResults fresh;
        Write(std::string("[Kept]\nGood=g.xsl,,,0,1\n  ") + line + "  \n[Never]\n");
        const std::string Msg = fresh.GetInitialisationInfo();
        if (std::string(why).rfind("no problem", 0) == 0) {
            EXPECT_EQ(Msg, "");
            continue;
        }
        EXPECT_EQ(Msg, std::string("E-Error in initialisation file entry: ") + line);
        EXPECT_EQ(fresh.ReportMenu()[0].Title, "Kept");
        EXPECT_EQ(fresh.ReportMenu()[0].Actions.size(), 1u);
        EXPECT_EQ(fresh.ReportMenu()[1].Title, "");
    }
}

TEST_F(InitialisationFileTest, AnActionBeforeAnySectionIsAnError) {
    Write("Results=a.xsl,,,1,1\n[Late]\n");
    EXPECT_EQ(results.GetInitialisationInfo(),
              "E-Error in initialisation file entry: Results=a.xsl,,,1,1");
}

TEST_F(InitialisationFileTest, TheEleventhSectionIsTheFaultyEntry) {
    std::string text;
    for (int i = 0; i < 11; ++i)
        text += "[Section " + std::to_string(i) + "]\nA=a.xsl,,,0,1\n";
    Write(text);
    EXPECT_EQ(results.GetInitialisationInfo(),
              "E-Error in initialisation file entry: [Section 10]");
    EXPECT_EQ(results.ReportMenu()[9].Title, "Section 9");
    EXPECT_EQ(results.ReportMenu()[9].Actions.size(), 1u);
}

TEST_F(InitialisationFileTest, IsReadOncePerRunUnlessTheFirstSlotIsFree) {
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

TEST_F(InitialisationFileTest, AMissingFileIsARunTimeErrorAndIsTriedAgain) {
    const std::string Msg = results.GetInitialisationInfo();
    EXPECT_EQ(Msg.rfind("C-Error ", 0), 0u);
    EXPECT_NE(Msg.find(" in GetInitialisationInfo\r"), std::string::npos);
    EXPECT_EQ(results.ReportMenu()[0].Title, "");
    Write("[Arrived]\n");
    EXPECT_EQ(results.GetInitialisationInfo(), "");
    EXPECT_EQ(results.ReportMenu()[0].Title, "Arrived");
}

}  // namespace
}  // namespace tb
