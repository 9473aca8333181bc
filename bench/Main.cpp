// Runs the benchmarks over this run's databases, prints the medians against the targets, then
// removes the databases.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Seasons.h"
#include "app/Globals.h"

extern char** environ;

namespace tb::bench {

namespace {

struct Median {
    double real = 0;  // milliseconds
    double cpu = 0;
};

double MedianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 == 1 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Shows the usual table and keeps each benchmark's median: the "median" aggregate when there
// were repetitions, else the median of the runs seen.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    // Colours only on a terminal, so that a saved run reads cleanly.
    MedianReporter() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Defaults : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& reports) override {
        ConsoleReporter::ReportRuns(reports);
        for (const Run& run : reports) {
            if (run.error_occurred)
                continue;
            const std::string& name = run.run_name.function_name;
            if (run.run_type == Run::RT_Aggregate) {
                if (run.aggregate_name == "median")
                    medians_[name] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
            } else {
                real_[name].push_back(run.GetAdjustedRealTime());
                cpu_[name].push_back(run.GetAdjustedCPUTime());
            }
        }
    }

    const Median* Find(const std::string& name) {
        if (medians_.count(name) == 0 && real_.count(name) != 0)
            medians_[name] = {MedianOf(real_[name]), MedianOf(cpu_[name])};
        const auto it = medians_.find(name);
        return it == medians_.end() ? nullptr : &it->second;
    }

private:
    std::map<std::string, Median> medians_;
    std::map<std::string, std::vector<double>> real_;
    std::map<std::string, std::vector<double>> cpu_;
};

// Runs the program with the arguments and gives its peak resident memory in MiB, or -1 when it
// could not run or failed. A child's peak counts the memory of the process that started it, so
// this is measured before the benchmarks make this process grow.
double PeakMemoryOf(std::vector<std::string> args) {
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argv[0], &quiet, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&quiet);
    if (spawned != 0)
        return -1;
    int status = 0;
    rusage usage{};
    if (wait4(pid, &status, 0, &usage) < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    return static_cast<double>(usage.ru_maxrss) / 1024;  // ru_maxrss is in KiB
}

// The peak memory of tallyboard-cli making the combined report of a season it made itself.
double ReportPeakMemory() {
    const std::string cli = ProgramFolder() + "/tallyboard-cli";
    const std::string season = RunFolder() + "/peak-memory-season.db";
    if (PeakMemoryOf({cli, "demo", season}) < 0)
        return -1;
    return PeakMemoryOf({cli, "report", "--data", season, "--reports", RunFolder() + "/Reports",
                         "--race", std::to_string(LastRaceOf(season)), "--kind", "B"});
}

const char* Verdict(bool met) {
    return met ? "met" : "NOT MET";
}

// The server engine against the file on the same season, and both engines on the club season:
// five times the boats and results, so a cost growing linearly stays near five times.
void PrintServerTargets(MedianReporter& medians, const Median* season) {
    const Median* server = medians.Find("CreateReport/season_on_server/B");
    if (!HaveServer()) {
        std::printf("  (no PostgreSQL server: ./scripts/bench measures one it starts itself)\n");
    } else if (server != nullptr && season != nullptr) {
        const double ratio = server->real / season->real;
        std::printf(
            "  combined report, season, server %7.1f  ratio to the file %.2f (<= 5, < 500 "
            "ms): %s\n",
            server->real, ratio, Verdict(ratio <= 5 && server->real < 500));
    }
    if (const Median* put = medians.Find("PutResult/season_on_server"))
        std::printf("  PutResult, server               %7.2f  (< 5 ms): %s\n", put->real,
                    Verdict(put->real < 5));
    const std::pair<const char*, const Median*> engines[] = {{"", season}, {"_on_server", server}};
    for (const auto& [suffix, usual] : engines) {
        const Median* club = medians.Find(std::string("CreateReport/club_season") + suffix + "/B");
        if (club == nullptr || usual == nullptr)
            continue;
        const double ratio = club->real / usual->real;
        std::printf("  combined report, club season%-8s%7.1f  ratio to season %.2f (<= 5.75): %s\n",
                    *suffix != 0 ? ", server" : "", club->real, ratio, Verdict(ratio <= 5.75));
    }
}

void PrintTargets(MedianReporter& medians, double peak) {
    std::printf("\nMedians (wall-clock, ms) against the targets:\n");
    const Median* floor = medians.Find("Floor/season");
    const Median* season = medians.Find("CreateReport/season/B");
    if (season != nullptr && floor != nullptr) {
        const double ratio = season->real / floor->real;
        std::printf(
            "  combined report, season        %8.1f  floor %.1f, ratio %.2f (<= 4, < 300 ms): "
            "%s; processor time ratio %.2f\n",
            season->real, floor->real, ratio, Verdict(ratio <= 4 && season->real < 300),
            season->cpu / floor->cpu);
    }
    for (const char* bigger : {"double_season", "long_season"}) {
        const Median* report = medians.Find(std::string("CreateReport/") + bigger + "/B");
        const Median* biggerFloor = medians.Find(std::string("Floor/") + bigger);
        if (report == nullptr || season == nullptr)
            continue;
        const double ratio = report->real / season->real;
        std::printf("  combined report, %-14s%8.1f  ratio to season %.2f (<= 2.3): %s", bigger,
                    report->real, ratio, Verdict(ratio <= 2.3));
        if (biggerFloor != nullptr)
            std::printf("; ratio to its floor %.2f", report->real / biggerFloor->real);
        std::printf("\n");
    }
    for (const char* kind : {"R", "E"}) {
        const Median* report = medians.Find(std::string("CreateReport/season/") + kind);
        if (report != nullptr && floor != nullptr) {
            std::printf("  report %s, season              %8.1f  ratio to floor %.2f\n", kind,
                        report->real, report->real / floor->real);
        }
    }
    if (const Median* put = medians.Find("PutResult/season"))
        std::printf("  PutResult with its commit      %8.2f  (< 5 ms): %s\n", put->real,
                    Verdict(put->real < 5));
    if (const Median* entries = medians.Find("GetEntriesForRace/season"))
        std::printf("  GetEntriesForRace, season      %8.2f\n", entries->real);
    if (const Median* activation = medians.Find("Activation/twenty_seasons"))
        std::printf("  activation, twenty seasons     %8.2f  (< 30 ms): %s\n", activation->real,
                    Verdict(activation->real < 30));
    if (const Median* import = medians.Find("ImportCsv/club_register"))
        std::printf("  import of a club register      %8.1f  (< 1000 ms): %s\n", import->real,
                    Verdict(import->real < 1000));
    PrintServerTargets(medians, season);
    if (peak < 0)
        std::printf("  peak memory of tallyboard-cli report, season: could not be measured\n");
    else
        std::printf("  peak memory of tallyboard-cli report, season: %.1f MiB (< 64 MiB): %s\n",
                    peak, Verdict(peak < 64));
}

}  // namespace

}  // namespace tb::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    int status = 0;
    try {
        const double peak = tb::bench::ReportPeakMemory();
        tb::bench::MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        tb::bench::PrintTargets(reporter, peak);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        status = 1;
    }
    benchmark::Shutdown();
    try {
        tb::bench::DropServerSeasons();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
    }
    tb::bench::RemoveRunFolder();
    return status;
}
