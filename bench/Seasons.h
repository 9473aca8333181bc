#pragma once

#include <string>

namespace tb::bench {

// One demonstration database made for this run, with the race its reports are made for.
struct Season {
    std::string name;
    std::string path;  // a file, or a URI on the server
    int lastRace = 0;
};

// The three sizes a club grows along, each made once per run by the demonstration generator at
// a fixed seed: the usual season, twice the boats, twice the races.
const Season& NormalSeason();
const Season& DoubleSeason();
const Season& LongSeason();

// A club's season: 1,000 boats in 20 classes, 60 races.
const Season& ClubSeason();

// Whether TALLYBOARD_TEST_POSTGRES names a PostgreSQL server's maintenance database to measure
// the server engine on (./scripts/bench starts a throwaway one).
bool HaveServer();
// The season copied into a database of its own on that server, made once per run and dropped
// at the end; the same records with the same numbers as the file.
const Season& OnServer(const Season& file);
void DropServerSeasons();

// A database holding twenty seasons the size of the usual one, one a year, with the newest one
// remembered as the main window's year, series and race.
const Season& TwentySeasons();

// The last race of the first series of a demonstration database.
int LastRaceOf(const std::string& path);

// The folder of this run's databases, style sheets and reports; removed when the run ends.
const std::string& RunFolder();
void RemoveRunFolder();

}  // namespace tb::bench
