#include "cli/ExchangeCommands.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string_view>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

struct ExchangeRequest {
    std::string kind, file, data, output;
    int race = 0;
    bool update = false;
};

// A series file of another scoring program comes in through the same command.
constexpr std::string_view kSeriesKind = "series";

CLI::Validator KindOf(const std::vector<CsvKind>& kinds, bool withSeries = false) {
    std::string names;
    for (const CsvKind kind : kinds)
        names += std::string(names.empty() ? "" : "|") + CsvKindName(kind);
    if (withSeries)
        names += "|" + std::string(kSeriesKind);
    return CLI::Validator(
        [kinds, names, withSeries](std::string& text) {
            if (withSeries && text == kSeriesKind)
                return std::string();
            const auto kind = CsvKindNamed(text);
            return kind && std::find(kinds.begin(), kinds.end(), *kind) != kinds.end()
                       ? std::string()
                       : "expects one of " + names;
        },
        names);
}

// Finishes, results and standings belong to a race; the register does not.
bool RaceGivenAsNeeded(CsvKind kind, int race) {
    const bool needsRace =
        kind == CsvKind::Finishes || kind == CsvKind::Results || kind == CsvKind::Standings;
    if (needsRace == (race > 0))
        return true;
    std::cerr << "--race: " << (needsRace ? "is needed for " : "is not taken by ")
              << CsvKindName(kind) << '\n';
    return false;
}

}  // namespace

int ImportFile(const std::string& dataFile, CsvKind kind, const std::string& file, bool update,
               int raceId) {
    DataFile = dataFile;
    clResults db;
    ImportReport report;
    const std::string Msg = db.ImportCsv(kind, file, update, raceId, report);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << report.Summary;
    return kDone;
}

int ExportFile(const std::string& dataFile, CsvKind kind, int raceId, const std::string& output) {
    DataFile = dataFile;
    clResults db;
    std::string csv;
    const std::string Msg = db.ExportCsv(kind, raceId, csv);
    if (!Msg.empty())
        return Fail(Msg);
    if (output.empty()) {
        std::cout << csv;
        return kDone;
    }
    const std::string written = WriteCsvFile(output, csv);
    return written.empty() ? kDone : Fail(written);
}

void AddImportCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "import",
        "Reads a CSV file into the register (people, models, boats, handicaps) or a race's "
        "finishes, or a series from another scoring program's .blw file. The whole file is checked "
        "first: any problem is shown with its row and "
        "column, and then nothing is imported. Prints what was added, updated and skipped.");
    auto request = std::make_shared<ExchangeRequest>();
    command->add_option("kind", request->kind, "What the file holds")
        ->required()
        ->check(KindOf({CsvKind::People, CsvKind::Models, CsvKind::Boats, CsvKind::Handicaps,
                        CsvKind::Finishes},
                       true));
    command->add_option("file", request->file, "The CSV file")->required();
    command->add_option("--data", request->data, "The results database")->required();
    command->add_flag("--update", request->update,
                      "Update records that exist already instead of skipping them");
    command->add_option("--race", request->race, "The race of the finishes")->check(WholeNumber());
    command->callback([&status, request] {
        if (request->kind == kSeriesKind) {
            status = ImportSeries(request->file, request->data);
            return;
        }
        const CsvKind kind = *CsvKindNamed(request->kind);
        status =
            RaceGivenAsNeeded(kind, request->race)
                ? ImportFile(request->data, kind, request->file, request->update, request->race)
                : kWrongArguments;
    });
}

void AddExportCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "export",
        "Writes the register (people, models, boats, handicaps) in the columns the import "
        "reads, or a race's results or its series' standings, as CSV in UTF-8.");
    auto request = std::make_shared<ExchangeRequest>();
    command->add_option("kind", request->kind, "What to write")
        ->required()
        ->check(KindOf({CsvKind::People, CsvKind::Models, CsvKind::Boats, CsvKind::Handicaps,
                        CsvKind::Results, CsvKind::Standings}));
    command->add_option("--data", request->data, "The results database")->required();
    command->add_option("--race", request->race, "The race of the results or standings")
        ->check(WholeNumber());
    command->add_option("-o,--output", request->output,
                        "The file to write (standard output when not given)");
    command->callback([&status, request] {
        const CsvKind kind = *CsvKindNamed(request->kind);
        status = RaceGivenAsNeeded(kind, request->race)
                     ? ExportFile(request->data, kind, request->race, request->output)
                     : kWrongArguments;
    });
}

}  // namespace tb::cli
