#pragma once

// The import and export commands on values already parsed from the command line.

#include <string>

#include "exchange/Columns.h"

namespace tb::cli {

// Imports FILE into the database (finishes into race RaceId) and prints one summary line per
// kind; 1 with the problems on stderr when anything is wrong, and then nothing is imported.
int ImportFile(const std::string& dataFile, CsvKind kind, const std::string& file, bool update,
               int raceId);
// Writes the kind as CSV to the output file, or to standard output when it is empty.
int ExportFile(const std::string& dataFile, CsvKind kind, int raceId, const std::string& output);

}  // namespace tb::cli
