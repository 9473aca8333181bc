#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/clResults.h"
#include "scoring/SeasonBuilder.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb::test {

// A small club series of two races on 15 and 22 June 2024 with a report folder and a report
// menu of the test's own. Class 1: "Fish & Chips", "Gull" (helm Jo "Skip" O'Hara) and "Tern"
// (DNF in race 2 with a penalty and a note); Multihull: "Cat <One>" and "Cat Two"; Fleet: "Lonely",
// whose class has no start time in race 2. One discard from two races run.
class ReportFixture : public ::testing::Test {
protected:
    ReportFixture();
    ~ReportFixture() override;

    // Reads a menu that gives every report kind these action lines.
    void UseMenu(const std::string& actions);
    // Runs CreateReport for race 2 with the kind letter and action 0.
    std::string Make(char letter, std::string& path, int action = 0, int viewer = 1);

    std::string reports() const { return folder.path() + "/Reports/"; }
    std::string yearFolder() const { return reports() + "2024/"; }

    TestDatabase db;
    SeasonBuilder season{db};
    TempFolder folder;
    RecordingMessages messages;
    clResults results;
    int class1 = 0, multihull = 0, fleet = 0;
    int fish = 0, gull = 0, tern = 0, catOne = 0, catTwo = 0, lonely = 0;
    int race1 = 0, race2 = 0;

private:
    std::string savedReportPath_;
};

// An initialisation file's text that gives every report kind these action lines.
std::string EveryKindMenu(const std::string& actions);

// The text with the report's own date and time blanked out, for comparing with a fixed text.
std::string WithoutReportTime(std::string xml);

}  // namespace tb::test
