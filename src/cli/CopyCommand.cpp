#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"

namespace tb::cli {

void AddCopyCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "copy",
        "Copies a whole club database, every Id kept, between a file and a PostgreSQL server "
        "in either direction; a file target must not exist, a server database must be empty or "
        "new.");
    auto from = std::make_shared<std::string>();
    auto to = std::make_shared<std::string>();
    command->add_option("FROM", *from, "The database to copy: a file or a postgresql:// URI")
        ->required();
    command->add_option("TO", *to, "The new copy: a file or a postgresql:// URI")->required();
    command->callback([&status, from, to] {
        DataFile = *from;
        clResults db;
        const std::string Msg = db.CopyDatabase(*to);
        if (!Msg.empty()) {
            status = Fail(Msg);
            return;
        }
        std::cout << "Copied " << *from << " to " << *to << '\n';
    });
}

}  // namespace tb::cli
