#pragma once

#include <vector>

#include "data/ResultStatus.h"
#include "data/Value.h"

namespace tb {

// A result of the race or an earlier race of its series for an entrant of the selection, with
// the points it holds in the database. The race scoring reads every one of them; the report
// hands them on to the discards and the standings so that they are read once, not three times.
struct ScopeResult {
    long long id = 0;
    long long race = 0;
    long long entrant = 0;
    long long classId = 0;
    long long status = ResultStatus::kDidNotCompete;  // where none was given
    Value points;
};

using ScopeResults = std::vector<ScopeResult>;

}  // namespace tb
