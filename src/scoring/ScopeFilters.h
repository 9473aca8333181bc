#pragma once

#include <string>

namespace tb {

// The pieces of SQL that narrow a computation to an entrant selection: 0 series entrants
// (entrant types 0 and 3, every race), 1 sub-series entrants (types 0 and 1, sub-series races),
// anything else every entrant and race. They hold no values, only fixed SQL.
std::string SubSeriesFilter(short Option);
std::string EntrantTypeFilter(short Option);

}  // namespace tb
