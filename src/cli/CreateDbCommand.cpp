#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "cli/Commands.h"
#include "data/Schema.h"

namespace tb::cli {

void AddCreateDbCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "createdb",
        "Makes a new, empty results database: a file (never written over an existing one) or "
        "the tables in an empty PostgreSQL database named by a postgresql:// URI.");
    auto file = std::make_shared<std::string>();
    command->add_option("FILE", *file, "The database file to make, or a postgresql:// URI")
        ->required();
    command->callback([&status, file] {
        const std::string Msg = CreateDatabase(*file);
        if (!Msg.empty()) {
            status = Fail(Msg);
            return;
        }
        std::cout << "Created the database " << *file << '\n';
    });
}

}  // namespace tb::cli
