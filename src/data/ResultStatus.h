#pragma once

// The result statuses that the scoring and the windows test for, by their Id in the Status
// table. Statuses 1 to 8 are the ways of not finishing; a status above 8 finished.
namespace tb::ResultStatus {

constexpr int kDidNotCompete = 2;   // DNC; a result without a status counts as one
constexpr int kNeverDiscarded = 3;  // DNE: a disqualification no discard may drop
constexpr int kDidNotFinish = 4;
constexpr int kDidNotStart = 5;
constexpr int kFinished = 9;
constexpr int kLastNotFinishing = 8;

constexpr bool Finished(long long status) {
    return status > kLastNotFinishing;
}

}  // namespace tb::ResultStatus
