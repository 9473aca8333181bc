#include "scoring/ScopeFilters.h"

namespace tb {

std::string SubSeriesFilter(short Option) {
    return Option == 1 ? " AND S1.InSubSeries<>0" : "";
}

std::string EntrantTypeFilter(short Option) {
    if (Option == 0)
        return " AND Entrant.EntrantType IN (0, 3)";
    if (Option == 1)
        return " AND Entrant.EntrantType<2";
    return "";
}

}  // namespace tb
