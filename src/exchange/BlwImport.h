#pragma once

// Bringing a series across from another scoring program's .blw series file: what the file says,
// turned into Tallyboard's records (planned first, with every check, then written at once).

#include <optional>
#include <string>
#include <vector>

#include "data/ResultStatus.h"
#include "data/Value.h"
#include "data/clResults.h"
#include "exchange/BlwFile.h"

namespace tb {

struct ImportedHandicap {
    double factor = 1;
    DateTime from{};
    std::optional<DateTime> expires;  // none: open-ended
};

struct ImportedResult {
    std::size_t race = 0;
    std::optional<DateTime> finish;
    int status = ResultStatus::kFinished;
};

struct ImportedEntrant {
    std::string boatName, fullSailNo, model, firstname, lastname;
    std::size_t cls = 0;
    std::vector<ImportedHandicap> handicaps;
    std::vector<ImportedResult> results;
};

struct ImportedClass {
    std::string name, handicapType;
};

struct ImportedStart {
    std::size_t race = 0, cls = 0;
    DateTime gun{};
};

// One series of the import: the primary scoring, or the entries scoring a boat a second way.
struct ImportedSeries {
    std::string title;
    std::vector<ImportedClass> classes;
    std::vector<ImportedEntrant> entrants;
    std::vector<ImportedStart> starts;
};

struct ImportedRace {
    std::string name;
    DateTime date{};
};

struct SeriesImport {
    std::vector<ImportedRace> races;
    DateTime firstDay{};  // handicaps and entries start on it: the first race's date
    std::vector<ImportedSeries> series;
    std::string scoringName;
    short baseA = 0, baseB = 0, baseC = 0;
    clResults::ScoringValues points;
    clResults::DiscardLines discards;
    // What the summary tells: everything scored differently from the file.
    std::vector<std::string> codesMapped, placesOnlyRaces, placesClosedUp, undatedRaces,
        ratingsMissing, scoringNotes, gunsUntimed;
    int leftovers = 0;
};

// What writing the import added and reused.
struct ImportCounts {
    std::vector<int> seriesIds;
    int peopleAdded = 0, peopleReused = 0, modelsAdded = 0, modelsReused = 0;
    int boatsAdded = 0, boatsReused = 0, handicapsAdded = 0, handicapsReused = 0;
    int entries = 0, results = 0;
};

// Plans the import of a read file; FileName titles a series without an event name and FileYear
// (the year the file was last written) dates races no other race gives a year to. A message
// names the row that cannot be brought across; nothing is planned then.
std::string PlanSeriesImport(const blw::SeriesFile& File, const std::string& FileName, int FileYear,
                             SeriesImport& Plan);

// The summary shown after an import.
std::string ImportSummaryText(const SeriesImport& Plan, const ImportCounts& Counts);

}  // namespace tb
