// A club's register brought in from its spreadsheet: 300 people, 250 boats and 400 handicaps,
// semicolon-separated, Windows-1252, CRLF, names quoted with commas and apostrophes, imported
// into an empty database (target: under a second for the three files).

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "Seasons.h"
#include "app/Globals.h"
#include "data/Schema.h"
#include "data/clResults.h"

namespace tb::bench {

namespace {

constexpr int kPeople = 300, kBoats = 250, kHandicaps = 400;

void Write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

// "\xE9" is é and "\xF6" ö in Windows-1252.
std::string Person(int i) {
    return "Member" + std::to_string(i) + (i % 7 == 0 ? "\xE9" : "");
}
std::string Family(int i) {
    return i % 5 == 0 ? "\"O'Br\xF6ne, Jr " + std::to_string(i) + "\""
                      : "Family" + std::to_string(i);
}

struct ClubFiles {
    std::string people, boats, handicaps;
};

const ClubFiles& Files() {
    static const ClubFiles files = [] {
        ClubFiles f{RunFolder() + "/members.csv", RunFolder() + "/boats.csv",
                    RunFolder() + "/handicaps.csv"};
        std::string people = "Forename;Surname;Town;Post code;Mobile;Member\r\n";
        for (int i = 0; i < kPeople; ++i)
            people += Person(i) + ";" + Family(i) + ";Cowes;PO31 " + std::to_string(i) +
                      "AA;07700 900" + std::to_string(i) + ";yes\r\n";
        std::string boats = "Yacht;Sail #;Design;Helm\r\n";
        for (int i = 0; i < kBoats; ++i) {
            const std::string family = Family(i);
            const std::string bare =
                family.front() == '"' ? family.substr(1, family.size() - 2) : family;
            boats += "\"Boat " + std::to_string(i) + ", the\";GBR " + std::to_string(1000 + i) +
                     ";Design " + std::to_string(i % 20) + ";\"" + bare + ", " + Person(i) +
                     "\"\r\n";
        }
        std::string handicaps = "Sail No;Rating system;Rating;Valid from;Valid to\r\n";
        for (int i = 0; i < kHandicaps; ++i)
            handicaps += "GBR " + std::to_string(1000 + i % kBoats) + ";" +
                         (i < kBoats ? "Club TCF" : "IRC") + ";1.0" + std::to_string(i % 10) +
                         ";01/04/2026;31/10/2026\r\n";
        Write(f.people, people);
        Write(f.boats, boats);
        Write(f.handicaps, handicaps);
        return f;
    }();
    return files;
}

void ImportClubRegister(benchmark::State& state) {
    const ClubFiles& files = Files();
    int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        DataFile = RunFolder() + "/register" + std::to_string(run++) + ".db";
        if (!CreateDatabase(DataFile).empty())
            throw std::runtime_error("cannot create " + DataFile);
        clResults db;
        ImportReport report;
        state.ResumeTiming();
        for (const auto& [kind, file] :
             {std::pair(CsvKind::People, files.people), std::pair(CsvKind::Boats, files.boats),
              std::pair(CsvKind::Handicaps, files.handicaps)}) {
            const std::string Msg = db.ImportCsv(kind, file, false, 0, report);
            if (!Msg.empty())
                throw std::runtime_error(Msg);
        }
        state.PauseTiming();
        db.CloseConnection();
        std::remove(DataFile.c_str());
        state.ResumeTiming();
    }
    state.counters["records"] = kPeople + kBoats + kHandicaps;
}

BENCHMARK(ImportClubRegister)
    ->Name("ImportCsv/club_register")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

}  // namespace tb::bench
