#pragma once

#include <array>
#include <string>
#include <vector>

namespace tb {

// One line of a report section of the initialisation file.
struct ReportAction {
    std::string Caption;
    std::string StyleSheet;    // XSL file in the report folder; empty leaves the report as XML
    std::string OutputObject;  // program that publishes the output; may be empty
    std::string OutputFile;    // empty: the report generator makes a name up
    short Option = 0;          // entrant selection
    short Viewer = 0;          // 1 or 3 browser, 2 spreadsheet, other values: not opened
};

struct ReportSection {
    std::string Title;  // empty marks a free slot
    std::vector<ReportAction> Actions;
};

// Slots 0 to 5 are the report kinds E, A, C, R, S and B; 6 to 9 are read but not offered.
using ReportMenuTable = std::array<ReportSection, 10>;

inline constexpr const char* kReportLetters = "EACRSB";

}  // namespace tb
