// Names and notes with markup characters, quotes, separators, letters beyond Latin, tabs, line
// breaks and great length, typed through the stores and shown by every report.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/Browser.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

namespace fs = std::filesystem;

const std::string kMarks = "Me & You <Skip> \"Ahoy\" 'O'Hara', a;b";
const std::string kLetters = "Łódź Müller 日本";
const std::string kBreaks = "Tab\there\r\nnext\nline";
constexpr int kSeriesResults = 4;

// 2,000 characters, many of them more than one byte.
std::string LongText() {
    const std::vector<std::string> letters = {"A", "&", "<", "ł", "日", ";", " ", "ü"};
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += letters[static_cast<std::size_t>(i) % letters.size()];
    return text;
}
const std::string kLong = LongText();

// The text as a browser writes out the text of an element: each tab and line break a blank (CR LF
// one), the markup characters in escape.
std::string AsPageText(const std::string& text) {
    std::string out = std::regex_replace(text, std::regex("\r\n|[\t\r\n]"), " ");
    for (const auto& [c, escape] : {std::pair{"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}})
        out = std::regex_replace(out, std::regex(c), escape);
    return out;
}

class HostileText : public ::testing::Test {
protected:
    HostileText() : savedReportPath_(ReportPath) {
        ReportPath = folder.path() + "/Reports/";
        fs::copy(ProgramFolder() + "/Reports", ReportPath, fs::copy_options::recursive);
    }
    ~HostileText() override { ReportPath = savedReportPath_; }

    // Adds a helm, a boat with a handicap and its entry to the race through the stores.
    int Enter(const std::string& boatName, const std::string& firstname,
              const std::string& lastname, const std::string& nameOnResults,
              const std::string& sailNo) {
        int person = 0;
        EXPECT_EQ(
            results.PutPersonalDetails(person, kMarks, firstname, lastname, kBreaks, kLetters,
                                       kLong, kMarks, kLetters, kMarks, "", "", "", true, kMarks),
            "");
        int boat = 0;
        EXPECT_EQ(results.PutBoatDetails(boat, boatName, sailNo, model, person), "");
        EXPECT_EQ(results.PutHandicapDetails(0, boat, static_cast<short>(handicapType), "1.000",
                                             "01/01/2026", ""),
                  "");
        std::vector<int> races = {race};
        EXPECT_EQ(results.PutEntryDetails(boat, series, person, classId, "01/05/2026", 0,
                                          nameOnResults, races),
                  "");
        return std::stoi(db.Text("SELECT Id FROM Entrant WHERE Boat = " + std::to_string(boat)));
    }

    test::TestDatabase db;
    test::RecordingMessages messages;
    test::TempFolder folder;
    clResults results;
    int handicapType = 0, model = -1, series = 0, classId = 0, race = 0;

private:
    std::string savedReportPath_;
};

TEST_F(HostileText, IsStoredAsTypedAndEveryReportShowsIt) {
    ASSERT_EQ(results.PutOptions(kMarks, kBreaks, kLetters, handicapType, kMarks + kLetters), "");
    ASSERT_EQ(results.PutModelDetails(model, kLong, 4.2, 0.8), "");
    ASSERT_EQ(results.PutSeriesDetails(series, kMarks, kLetters, 1, "1"), "");
    ASSERT_EQ(results.PutClassDetails(0, series, kMarks + kLetters, "", handicapType), "");
    classId = std::stoi(db.Text("SELECT max(Id) FROM Class"));
    ASSERT_EQ(results.PutScheduleDetails(0, series, kBreaks, "01/06/2026", true, kMarks), "");
    race = std::stoi(db.Text("SELECT max(Id) FROM Schedule"));
    const int first = Enter(kMarks, kLetters, kMarks, "", "GBR 1");
    const int second = Enter(kLong, kBreaks, kLetters, kLong, "日本 2");

    RowSet starts;
    ASSERT_EQ(results.GetStartTimes(series, race, starts), "");
    const DateTime ten =
        std::chrono::sys_days{std::chrono::June / 1 / 2026} + std::chrono::hours(10);
    // The class footnote is written into the report as it stands, markup and all, by rule.
    ASSERT_EQ(results.PutStartTime(static_cast<int>(starts(2, 0).AsInt()), Value(ten), kLetters,
                                   "See the notice"),
              "");
    ASSERT_EQ(
        results.PutResult(race, first, "110000", "01 Jun 2026", 9, "5", "", "", kMarks + kBreaks),
        "");
    ASSERT_EQ(results.PutResult(race, second, "111500", "01 Jun 2026", 9, "", "", "", kLong), "");

    const std::map<std::string, std::string> named = {
        {"marks", kMarks}, {"letters", kLetters}, {"breaks", kBreaks}, {"long", kLong}, {"|", "|"}};
    for (const auto& row : test::DataFileRows("reports/hostile-stored.tsv")) {
        std::string typed;
        std::istringstream words(row.at(1));
        for (std::string word; words >> word;)
            typed += named.at(word);
        EXPECT_EQ(db.Text(row.at(0)), typed) << row.at(0);
    }

    ASSERT_EQ(results.ReadReportMenu(ProgramFolder() + "/Tallyboard.ini"), "");
    test::TempFolder profile;
    const std::string helm = kLetters + " " + kMarks;
    for (int kind = 0; kind < 6; ++kind) {
        std::string page;
        ASSERT_EQ(results.CreateReport(kind, 2, 1, race, page), "") << kind;
        const auto dom = test::BrowserView(page, profile.path());
        if (!dom)
            GTEST_SKIP() << "chromium is not installed";
        // Series standings name boats, not helms.
        std::vector<std::string> shown = {kMarks, kLong, kMarks + kLetters};
        if (kind != kSeriesResults)
            shown.push_back(helm);
        for (const std::string& text : shown)
            EXPECT_NE(dom->find(AsPageText(text)), std::string::npos)
                << "report " << kind << " does not show " << text.substr(0, 40);
    }
}

}  // namespace
}  // namespace tb
