// Where reports are written, what goes wrong on the way, the problem report, the style-sheet
// transform and the output objects.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <iterator>
#include <regex>

#include "app/Globals.h"
#include "reports/ReportFixture.h"
#include "support/Checks.h"

namespace tb {
namespace {

namespace fs = std::filesystem;
using test::ReadFile;
using test::ReportFixture;
using test::WriteFile;

std::ptrdiff_t FilesIn(const std::string& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

void WriteScript(const std::string& path, const std::string& body) {
    WriteFile(path, "#!/bin/sh\n" + body + "\n");
    ::chmod(path.c_str(), 0755);
}

constexpr const char* kProgPathSheet = R"(<?xml version="1.0"?>
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:output method="html"/>
<xsl:param name="ProgPath"/>
<xsl:template match="/"><p><xsl:value-of select="$ProgPath"/>|<xsl:value-of select="/*/@Race"/></p></xsl:template>
</xsl:stylesheet>
)";

using ReportFilesTest = ReportFixture;

TEST_F(ReportFilesTest, ReportsAreNamedByRaceDateStartSelectionAndKindAndRefusalsWriteNone) {
    WriteFile(reports() + "plain.xsl", kProgPathSheet);
    WriteFile(reports() + "broken.xsl",
              "<xsl:stylesheet version=\"1.0\" "
              "xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">\n"
              "<xsl:template match=\"/\"><p></xsl:template>\n</xsl:stylesheet>\n");
    WriteFile(reports() + "page.xsl", "<html><body/></html>\n");
    const int race3 = season.AddRace("Race 3", "2024-06-29");
    db.Exec("INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (2, 'Winter', 1, 1)");
    const int classless = db.Insert(
        "INSERT INTO Schedule (Series, RaceName, RaceDate) VALUES (2, 'Frostbite', "
        "'2024-12-01 00:00:00')");
    auto filled = [&](const std::string& text) {
        return std::regex_replace(text, std::regex("\\{folder\\}"), folder.path());
    };
    for (const auto& row : test::DataFileRows("reports/report-files.tsv")) {
        fs::remove_all(yearFolder());
        UseMenu(filled(row.at(2)));
        const int kind = static_cast<int>(std::string(kReportLetters).find(row.at(1).at(0)));
        const bool named = row.at(0) == "named";
        const int race = named || row.at(3) == "2" ? race2 : row[3] == "3" ? race3 : classless;
        std::string path;
        EXPECT_EQ(results.CreateReport(kind, 0, 1, race, path), named ? "" : filled(row.back()))
            << row.at(2);
        if (named) {
            EXPECT_EQ(path, filled(row.at(3)));
            EXPECT_TRUE(fs::is_regular_file(path)) << path;
            EXPECT_TRUE(fs::is_directory(yearFolder())) << "the year folder is made in every case";
        } else {
            EXPECT_FALSE(fs::exists(yearFolder()) && FilesIn(yearFolder()) > 0) << row.at(2);
        }
    }
    // A kind or an action outside the menu.
    std::string path;
    for (const auto& [kind, action] : {std::pair{6, 0}, std::pair{3, 1}}) {
        EXPECT_EQ(results.CreateReport(kind, action, 1, race2, path),
                  "C-Error 9 raised by Tallyboard in CreateReport\rSubscript out of range");
    }
}

// A footnote is kept as markup only when it is well-formed; any other is written as text, and a
// name another program wrote in some other charset reads with U+FFFD: the report is made.
TEST_F(ReportFilesTest, StrayMarkupAndBytesAreWrittenAsText) {
    fs::copy(ProgramFolder() + "/Reports", reports(),
             fs::copy_options::overwrite_existing | fs::copy_options::recursive);
    // A file may hold a byte that is no UTF-8; the server refuses one.
    const bool strayByte = !test::TestDatabase::OnServer();
    if (strayByte)
        db.Exec("UPDATE Boat SET BoatName = 'Gull' || CAST(X'FF' AS TEXT) WHERE BoatName = 'Gull'");
    for (const auto& row : test::DataFileRows("reports/footnotes.tsv")) {
        const std::string& footnote = row.at(0);
        db.Exec("UPDATE Start SET Footnote = '" + clResults::SqlQuote(footnote) + "'" +
                " WHERE Footnote IS NOT NULL");
        std::string path;
        UseMenu("x=,,,0,1");
        ASSERT_EQ(Make('R', path), "") << footnote;
        EXPECT_NE(ReadFile(path).find("<ClassFootNote>" + row.at(1) + "</ClassFootNote>"),
                  std::string::npos)
            << footnote;
        UseMenu("x=results.xsl,,,0,1");
        ASSERT_EQ(Make('R', path), "") << footnote;
        EXPECT_NE(ReadFile(path).find(row.at(2)), std::string::npos) << footnote;
        EXPECT_TRUE(!strayByte || ReadFile(path).find(">Gull\xEF\xBF\xBD<") != std::string::npos);
        for (const char* shown :
             {"DNF +5min Hit mark", "Jo \"Skip\" O'Hara", "Riverside &amp; District \"SC\""})
            EXPECT_NE(ReadFile(path).find(shown), std::string::npos) << shown;
    }
}

TEST_F(ReportFilesTest, UnsettledHandicapsShowTheProblemReportInWindowsCharset) {
    const int visitor = season.AddEntrant("Café € Łódź", class1);
    db.Exec(
        "UPDATE Handicap SET Expires = '2024-06-01 00:00:00' WHERE Boat = "
        "(SELECT Boat FROM Entrant WHERE Id = " +
        std::to_string(visitor) + ")");
    season.Enter(visitor, race2);
    db.Exec(test::DataFile("reports/problems.sql"));
    // The output object must not run while there are problems.
    const std::string recorder = folder.path() + "/recorder";
    WriteScript(recorder, "touch \"$0.called\"");
    UseMenu("x=,,,0,1");
    std::string path;
    ASSERT_EQ(Make('R', path), "");
    EXPECT_EQ(path, yearFolder() + "0622_Problem.htm");
    const std::string resultsFile = yearFolder() + "0622_1000_0R.xml";
    EXPECT_TRUE(fs::is_regular_file(resultsFile)) << "the results are written all the same";

    // The golden holds "{results}" where the link names the results file.
    std::string page = ReadFile(path);
    page.replace(page.find(resultsFile), resultsFile.size(), "{results}");
    EXPECT_EQ(page, test::DataFile("R0-problem.htm"));

    // A publishing action stops there, and the problem page says so at its top.
    UseMenu("x=," + recorder + ",,0,1");
    std::string again;
    EXPECT_EQ(Make('R', again),
              "E-The results were not published: the handicaps listed on the problem page are "
              "not settled. See " +
                  path);
    EXPECT_EQ(again, path);
    EXPECT_FALSE(fs::exists(recorder + ".called"));
    EXPECT_NE(ReadFile(path).find("PROBLEM REPORT</B><P>&nbsp;</P>\r\n<P><B>The results were "
                                  "not published"),
              std::string::npos);
}

class OutputObjectTest : public ReportFixture {
protected:
    OutputObjectTest() { WriteFile(reports() + "plain.xsl", kProgPathSheet); }
    ~OutputObjectTest() override { SetProgramFolder(""); }
};

TEST_F(OutputObjectTest, ReceivesTheFileNameTheHtmlAndTheXml) {
    const std::string recorder = folder.path() + "/recorder";
    WriteScript(recorder,
                "printf '%s' \"$1\" > \"$0.name\"; cp \"$2\" \"$0.html\"; cp \"$3\" \"$0.xml\"; "
                "echo \"$TALLYBOARD_REPORT_FILE\" > \"$0.report\"; echo; echo /web/club.htm");
    UseMenu("x=plain.xsl," + recorder + ",club.htm,0,1");
    std::string path;
    ASSERT_EQ(Make('R', path), "");
    EXPECT_EQ(path, "/web/club.htm") << "where the object says it published the page";
    EXPECT_EQ(ReadFile(recorder + ".report"), yearFolder() + "club.htm\n");
    EXPECT_FALSE(fs::exists(yearFolder() + "club.htm")) << "the object writes the output";
    EXPECT_EQ(ReadFile(recorder + ".name"), "club.htm");
    EXPECT_EQ(ReadFile(recorder + ".html"), "<p>" + ProgramFolder() + "/|Race 2</p>\n");
    EXPECT_TRUE(
        ReadFile(recorder + ".xml").starts_with("<?xml version=\"1.0\" ?>\r\n<RaceResults"));
}

TEST_F(OutputObjectTest, IsFoundBesideTheProgramAndItsFailuresAreReported) {
    const std::string program = folder.path() + "/program";
    fs::create_directories(program + "/OutputObjects");
    SetProgramFolder(program);
    for (const auto& row : test::DataFileRows("reports/output-objects.tsv")) {
        if (!row.at(1).empty())
            WriteScript(program + "/OutputObjects/" + row[0], row[1]);
        UseMenu("x=plain.xsl," + row[0] + ",,0,1");
        std::string path;
        EXPECT_EQ(Make('S', path), row.at(2));
    }
    EXPECT_TRUE(fs::exists(program + "/OutputObjects/publish.called"));
}

}  // namespace
}  // namespace tb
