// Reports for the last race of a season against the floor: the least work any way of making the
// combined report must do on the same file.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "Seasons.h"
#include "app/Globals.h"
#include "data/clResults.h"

namespace tb::bench {

namespace {

// The report menu's first action of each kind: the series entrants through the shipped sheet.
constexpr int kSeriesEntrants = 0;

int KindIndex(char letter) {
    return static_cast<int>(std::strchr(kReportLetters, letter) - kReportLetters);
}

// A connection to the season, as the report window holds one, with the shipped report menu.
struct ReportRun {
    explicit ReportRun(const Season& season) {
        DataFile = season.path;
        ReportPath = RunFolder() + "/Reports/";
        const std::string Msg = db.ReadReportMenu(ProgramFolder() + "/Tallyboard.ini");
        if (!Msg.empty())
            throw std::runtime_error(Msg);
    }

    // Makes the report and gives the size of the file written.
    std::uintmax_t Make(const Season& season, char letter) {
        const int kind = KindIndex(letter);
        const int viewer =
            db.ReportMenu()[static_cast<std::size_t>(kind)].Actions[kSeriesEntrants].Viewer;
        std::string OutputPath;
        const std::string Msg =
            db.CreateReport(kind, kSeriesEntrants, viewer, season.lastRace, OutputPath);
        if (!Msg.empty())
            throw std::runtime_error(season.name + " " + letter + ": " + Msg);
        return std::filesystem::file_size(OutputPath);
    }

    clResults db;
};

// The series entrants' results of every race up to the last, as the combined report scores them.
constexpr const char* kInScopeResults = R"sql(
SELECT Results.Id, Results.Points
FROM Schedule
JOIN Schedule AS S1 ON S1.Series = Schedule.Series AND S1.RaceDate <= Schedule.RaceDate
JOIN Results ON Results.Schedule = S1.Id
JOIN Entrant ON Entrant.Id = Results.Entrant
WHERE Schedule.Id = ?1 AND Entrant.EntrantType IN (0, 3))sql";

constexpr const char* kRewritePoints = "UPDATE Results SET Points = ?1 WHERE Id = ?2";

void WriteFileOfSize(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

void CreateReportOf(benchmark::State& state, const Season& (*which)(), char letter) {
    const Season& season = which();
    ReportRun run(season);
    const std::uintmax_t bytes = run.Make(season, letter);
    for (auto _ : state)
        run.Make(season, letter);
    state.counters["report_bytes"] = static_cast<double>(bytes);
    state.SetLabel(season.name);
}

// Reads each in-scope result once and writes each back once in one durable transaction, then
// writes a file the size of the combined report.
void Floor(benchmark::State& state, const Season& (*which)()) {
    const Season& season = which();
    const std::string reportText(ReportRun(season).Make(season, 'B'), 'x');
    const std::string reportCopy = RunFolder() + "/floor.htm";
    SQLite::Database db(season.path, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, 5000);
    SQLite::Statement read(db, kInScopeResults);
    SQLite::Statement rewrite(db, kRewritePoints);
    long long rows = 0;
    for (auto _ : state) {
        SQLite::Transaction transaction(db);
        read.reset();
        read.bind(1, season.lastRace);
        rows = 0;
        while (read.executeStep()) {
            rewrite.reset();
            rewrite.bind(1, read.getColumn(1).getDouble());
            rewrite.bind(2, read.getColumn(0).getInt64());
            rewrite.exec();
            ++rows;
        }
        transaction.commit();
        WriteFileOfSize(reportCopy, reportText);
    }
    state.counters["results"] = static_cast<double>(rows);
    state.counters["report_bytes"] = static_cast<double>(reportText.size());
    state.SetLabel(season.name);
}

struct Sized {
    const char* name;
    const Season& (*season)();
};
constexpr Sized kSeasons[] = {
    {"season", NormalSeason},
    {"double_season", DoubleSeason},
    {"long_season", LongSeason},
};

const Season& SeasonOnServer() {
    return OnServer(NormalSeason());
}
const Season& ClubSeasonOnServer() {
    return OnServer(ClubSeason());
}

// The combined report of a club five times the usual size, on each engine, and the usual
// season's reports on the server.
void RegisterBothEngines() {
    std::vector<Sized> combined = {{"club_season", ClubSeason}};
    if (HaveServer()) {
        combined.push_back({"season_on_server", SeasonOnServer});
        combined.push_back({"club_season_on_server", ClubSeasonOnServer});
        benchmark::RegisterBenchmark("CreateReport/season_on_server/R", CreateReportOf,
                                     SeasonOnServer, 'R')
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    for (const Sized& sized : combined) {
        benchmark::RegisterBenchmark((std::string("CreateReport/") + sized.name + "/B").c_str(),
                                     CreateReportOf, sized.season, 'B')
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
}

[[maybe_unused]] const bool registered = [] {
    for (const Sized& sized : kSeasons) {
        benchmark::RegisterBenchmark((std::string("Floor/") + sized.name).c_str(), Floor,
                                     sized.season)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
        for (const char letter : {'B', 'R', 'E'}) {
            benchmark::RegisterBenchmark(
                (std::string("CreateReport/") + sized.name + "/" + letter).c_str(), CreateReportOf,
                sized.season, letter)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        }
    }
    RegisterBothEngines();
    return true;
}();

}  // namespace

}  // namespace tb::bench
