// Series brought across from another scoring program's .blw files: the project's own small files
// for every mapping, the faults a file can have, and real club files scored again here.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <tuple>

#include "data/Conversions.h"
#include "exchange/BlwImport.h"
#include "support/Checks.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

const std::string kData = std::string(TALLYBOARD_TEST_DATA) + "/blw/";

// Everything an import writes, one line a record.
std::string Imported(test::TestDatabase& db) {
    std::string text;
    for (const auto& row : test::DataFileRows("exchange/imported.sql")) {
        for (const std::string& line : db.Lines(row.at(0)))
            text += line + "\n";
        text += "--\n";
    }
    return text;
}

// Codes, ratings (Portsmouth, TCF, per-race progressive and places only), the date forms, guns
// with and without selectors, the discard list, aliases, excluded competitors and leftovers.
// A discard list that rises more often than a discard system holds rules keeps its first five.
TEST(BlwImport, BringsTheSeasonAcrossAsTheFileHasIt) {
    for (const std::string name : {"season", "discards"}) {
        test::TestDatabase db;
        clResults results;
        std::string summary;
        ASSERT_EQ(results.ImportSeriesFile(kData + name + ".blw", summary), "");
        EXPECT_EQ(summary + "==\n" + Imported(db), test::DataFile("blw-" + name + ".txt"));
    }
}

TEST(BlwImport, AFaultyFileNamesItsRowAndWritesNothing) {
    for (const auto& row : test::DataFileRows("blw-faults.txt")) {
        SCOPED_TRACE(row.at(0));
        test::TestDatabase db;
        clResults results;
        std::string summary;
        EXPECT_EQ(results.ImportSeriesFile(kData + row[0], summary), row.at(1));
        EXPECT_EQ(db.Count("Series") + db.Count("Boat") + db.Count("People") + db.Count("Scoring"),
                  1);
    }
}

TEST(BlwImport, ReadsDatesAndTimesAsOtherProgramsWriteThem) {
    for (const auto& row : test::DataFileRows("exchange/loose-dates.tsv")) {
        const auto date = ParseLooseDate(row.at(0), row.at(1), 2025, row.at(2) == "1");
        EXPECT_EQ(date ? FormatDate(*date, "dd/mm/yyyy") : "-", row.at(3)) << row[0];
    }
    // The same reader in both forms: this file's and the finishes a timing app writes.
    for (const auto& row : test::DataFileRows("conversions/clock-times.tsv")) {
        for (const auto& [form, column] :
             {std::pair{ClockForm::Loose, 1}, {ClockForm::Strict, 2}}) {
            const auto seconds = ParseClockTime(row[0], form);
            EXPECT_EQ(seconds ? std::to_string(*seconds) : "-", row[column]) << row[0];
        }
    }
}

const std::string kSamples = std::string(TALLYBOARD_SAMPLES) + "/blw/";

// Scores every race of the imported series and compares, for each competitor with a place and
// no code, what the race report shows with what the file records: elapsed, corrected and place
// in the timed fleet; elsewhere the place among the fleet's finishers by the recorded place
// (else the ranked one). Gives how many were compared.
int CompareRaceReports(clResults& results, const std::string& name, const std::string& timed) {
    blw::SeriesFile file;
    EXPECT_EQ(blw::ReadSeriesFile(test::ReadFile(kSamples + name), file), "");
    std::vector<const blw::Race*> races;
    for (const blw::Race& race : file.races)
        if (blw::Text(race.fields, "racesailed") == "1")
            races.push_back(&race);
    std::stable_sort(races.begin(), races.end(), [](const auto* a, const auto* b) {
        return std::stod(blw::Text(a->fields, "racerank")) <
               std::stod(blw::Text(b->fields, "racerank"));
    });
    const auto fleet = [](const blw::Competitor& comp) {
        return blw::Text(comp.fields, "compfleet") + "/" + blw::Text(comp.fields, "compclass");
    };
    using Col = clResults::RaceBoatCol;
    int compared = 0;
    for (std::size_t r = 0; r < races.size(); ++r) {
        const int race = static_cast<int>(r) + 1;
        RowSet problems, classRows, boatRows;
        EXPECT_EQ(results.ComputeResultTimes(race, problems), "");
        EXPECT_EQ(results.ComputePoints(race, 0), "");
        EXPECT_EQ(results.GetRaceResults(race, 0, classRows, boatRows), "");
        std::map<std::string, std::string> shown;
        for (std::size_t b = 0; b < boatRows.Rows(); ++b)
            shown[boatRows(Col::FullSailNo, b).ToText()] =
                boatRows(Col::Elapsed, b).ToText() + " " + boatRows(Col::Corrected, b).ToText() +
                " " + boatRows(Col::Position, b).ToText();
        std::vector<std::tuple<const blw::Competitor*, const blw::Fields*, int>> placed;
        for (const blw::Competitor& comp : file.competitors) {
            const auto cell = file.cells.find({comp.handle, races[r]->handle});
            if (cell != file.cells.end() && !blw::Text(cell->second, "rpos").empty() &&
                blw::Text(cell->second, "rcod").empty()) {
                const std::string& recorded = blw::Text(cell->second, "rrecpos");
                placed.emplace_back(
                    &comp, &cell->second,
                    std::stoi(recorded.empty() ? blw::Text(cell->second, "rpos") : recorded));
            }
        }
        for (const auto& [comp, cell, place] : placed) {
            const std::string& row = shown[blw::Text(comp->fields, "compsailno")];
            const bool withTimes = !timed.empty() && blw::Text(comp->fields, "compfleet") == timed;
            const auto ahead = std::count_if(placed.begin(), placed.end(), [&](const auto& other) {
                return fleet(*std::get<0>(other)) == fleet(*comp) && std::get<2>(other) < place;
            });
            EXPECT_EQ(withTimes ? row : row.substr(row.rfind(' ') + 1),
                      withTimes ? blw::Text(*cell, "rele") + " " + blw::Text(*cell, "rcor") + " " +
                                      blw::Text(*cell, "rpos")
                                : std::to_string(ahead + 1))
                << name << " race " << race << " sail number "
                << blw::Text(comp->fields, "compsailno");
            ++compared;
        }
    }
    return compared;
}

// The dinghy series scored again here: every finisher of the Portsmouth fleet has the file's
// elapsed and corrected times and place, the places-only fleet its recorded places. A second
// import makes a second series and adds no one to the register.
TEST(BlwSamples, DinghySeriesScoresAsTheFileRecords) {
    test::TestDatabase db;
    test::RecordingMessages messages;
    clResults results;
    std::string summary;
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "dinghies-series.blw", summary), "");
    EXPECT_EQ(CompareRaceReports(results, "dinghies-series.blw", "PY"), 32);

    const long long people = db.Count("People"), boats = db.Count("Boat");
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "dinghies-series.blw", summary), "");
    EXPECT_NE(summary.find("Series 2: Howth YC Dinghy Racing S1"), std::string::npos);
    EXPECT_NE(summary.find("People: 0 added, 37 reused\nBoat models: 0 added, 7 reused\nBoats: "
                           "0 added, 37 reused\n"),
              std::string::npos)
        << summary;
    EXPECT_EQ(db.Count("People") * 1000 + db.Count("Boat"), people * 1000 + boats);
}

// The club season, places only: one class per fleet and every recorded place, with the discard
// rules the file has beyond the five a discard system holds named in the summary.
TEST(BlwSamples, PlaceOnlySeasonKeepsEveryRecordedPlace) {
    test::TestDatabase db;
    test::RecordingMessages messages;
    clResults results;
    std::string summary;
    ASSERT_EQ(results.ImportSeriesFile(kSamples + "place-only-season.blw", summary), "");
    EXPECT_EQ(summary, test::DataFile("blw-place-only-season.txt"));
    EXPECT_EQ(CompareRaceReports(results, "place-only-season.blw", ""), 314);
}

}  // namespace
}  // namespace tb
