#pragma once

#include <string>

namespace tb::bench {

// One demonstration database made for this run, with the race its reports are made for.
struct Season {
    std::string name;
    std::string path;
    int lastRace = 0;
};

// The three sizes a club grows along, each made once per run by the demonstration generator at
// a fixed seed: the usual season, twice the boats, twice the races.
const Season& NormalSeason();
const Season& DoubleSeason();
const Season& LongSeason();

// A database holding twenty seasons the size of the usual one, one a year, with the newest one
// remembered as the main window's year, series and race.
const Season& TwentySeasons();

// The last race of the first series of a demonstration database.
int LastRaceOf(const std::string& path);

// The folder of this run's databases, style sheets and reports; removed when the run ends.
const std::string& RunFolder();
void RemoveRunFolder();

}  // namespace tb::bench
