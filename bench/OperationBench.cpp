// The operations a race officer waits on between reports: recording one boat's finish, listing a
// race's entries, and the main window coming back to the front.

#include <benchmark/benchmark.h>

#include <stdexcept>

#include "Seasons.h"
#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb::bench {

namespace {

void Check(const std::string& Msg) {
    if (!Msg.empty())
        throw std::runtime_error(Msg);
}

// The first boat of the last race, finishing again at the time it has, committed each time.
void PutResultOfOneBoat(benchmark::State& state, const Season& (*which)()) {
    const Season& season = which();
    DataFile = season.path;
    clResults db;
    RowSet entries;
    Check(db.GetEntriesForRace(season.lastRace, entries));
    const int entrant = static_cast<int>(entries(0, 0).AsInt());
    RowSet result;
    Check(db.GetResult(season.lastRace, entrant, result));
    const Value& finish = result(1, 0);
    const std::string finishTime = finish.IsNull() ? std::string() : Format(finish, "hhnnss");
    const std::string finishDate = finish.IsNull() ? std::string() : Format(finish, "dd mmm yyyy");
    const int status = result(2, 0).IsNull() ? 9 : static_cast<int>(result(2, 0).AsInt());
    for (auto _ : state) {
        Check(
            db.PutResult(season.lastRace, entrant, finishTime, finishDate, status, "", "", "", ""));
    }
    state.SetLabel(season.name);
}

void EntriesForRace(benchmark::State& state) {
    const Season& season = NormalSeason();
    DataFile = season.path;
    clResults db;
    RowSet entries;
    for (auto _ : state) {
        Check(db.GetEntriesForRace(season.lastRace, entries));
        benchmark::DoNotOptimize(entries);
    }
    state.counters["entries"] = static_cast<double>(entries.Rows());
    state.SetLabel(season.name);
}

// What the main window asks for each time it is activated: the years with the remembered one,
// that year's series with the remembered one, its races with the remembered one, and when the
// data last changed.
void MainWindowActivation(benchmark::State& state) {
    const Season& twenty = TwentySeasons();
    DataFile = twenty.path;
    clResults db;
    RowSet years;
    RowSet series;
    RowSet races;
    for (auto _ : state) {
        std::string year;
        Check(db.GetCurrentYear(years, year));
        int currentSeries = 0;
        Check(db.GetCurrentSeries(series, currentSeries, year));
        int currentRace = 0;
        Check(db.GetCurrentSchedule(races, currentSeries, currentRace));
        std::string stamp;
        Check(db.GetSetting("LastModified", stamp));
        benchmark::DoNotOptimize(stamp);
    }
    state.counters["years"] = static_cast<double>(years.Rows());
    state.counters["races"] = static_cast<double>(races.Rows());
    state.SetLabel(twenty.name);
}

const Season& SeasonOnServer() {
    return OnServer(NormalSeason());
}

BENCHMARK_CAPTURE(PutResultOfOneBoat, season, NormalSeason)
    ->Name("PutResult/season")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
[[maybe_unused]] const bool registered = HaveServer() && [] {
    benchmark::RegisterBenchmark("PutResult/season_on_server", PutResultOfOneBoat, SeasonOnServer)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    return true;
}();
BENCHMARK(EntriesForRace)
    ->Name("GetEntriesForRace/season")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(MainWindowActivation)
    ->Name("Activation/twenty_seasons")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

}  // namespace tb::bench
