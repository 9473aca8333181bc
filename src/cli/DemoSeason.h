#pragma once

#include <cstdint>
#include <string>

namespace tb::cli {

struct DemoSize {
    int boats = 200;
    int races = 60;
    int classes = 4;
    std::uint32_t seed = 1;
};

// Creates a new database at path holding one plausible club season: people, models, boats with
// handicaps, a series with a sub-series, classes, races, entries, class starts and finishes with
// a few retirements, penalties and a tie. The same size and seed always give the same database.
// Returns a message (empty on success).
std::string CreateDemoSeason(const std::string& path, const DemoSize& size);

}  // namespace tb::cli
