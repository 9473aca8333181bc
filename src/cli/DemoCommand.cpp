#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "cli/DemoSeason.h"

namespace tb::cli {

void AddDemoCommand(CLI::App& app, int& status) {
    CLI::App* command =
        app.add_subcommand("demo",
                           "Makes a new database holding a demonstration season; the "
                           "same seed always gives the same season.");
    auto file = std::make_shared<std::string>();
    auto size = std::make_shared<DemoSize>();
    constexpr long long kFewest = 1;
    constexpr long long kFirstSeed = 0;
    constexpr long long kMost = 100000;
    command->add_option("FILE", *file, "The database file to make")->required();
    command->add_option("--boats", size->boats, "Boats in the club's register")
        ->capture_default_str()
        ->check(WholeNumber(kFewest, kMost));
    command->add_option("--races", size->races, "Races of the season")
        ->capture_default_str()
        ->check(WholeNumber(kFewest, kMost));
    command->add_option("--classes", size->classes, "Classes of the series")
        ->capture_default_str()
        ->check(WholeNumber(kFewest, kMost));
    command->add_option("--seed", size->seed, "Seed of the season's chance")
        ->capture_default_str()
        ->check(WholeNumber(kFirstSeed, kMost));
    command->callback([&status, file, size] {
        const std::string Msg = CreateDemoSeason(*file, *size);
        if (!Msg.empty()) {
            status = Fail(Msg);
            return;
        }
        std::cout << "Created the demonstration season " << *file << " (" << size->boats
                  << " boats, " << size->races << " races, " << size->classes << " classes)\n";
    });
}

}  // namespace tb::cli
