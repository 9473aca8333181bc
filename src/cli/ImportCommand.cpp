#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"
#include "exchange/BlwImport.h"

namespace tb::cli {

int ImportSeries(const std::string& file, const std::string& data) {
    DataFile = data;
    clResults db;
    std::string summary;
    const std::string Msg = ImportSeriesFile(db, file, summary);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << summary;
    return kDone;
}

void AddImportCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand("import", "Brings records in from other programs.");
    command->require_subcommand(1);
    CLI::App* series = command->add_subcommand(
        "series",
        "Adds a series with its races, classes, entries and results from another scoring "
        "program's .blw series file, in one step, and prints what was added, reused and scored "
        "differently.");
    auto file = std::make_shared<std::string>();
    auto data = std::make_shared<std::string>();
    series->add_option("FILE", *file, "The .blw series file")->required();
    series->add_option("--data", *data, "The results database")->required();
    series->callback([&status, file, data] { status = ImportSeries(*file, *data); });
}

}  // namespace tb::cli
