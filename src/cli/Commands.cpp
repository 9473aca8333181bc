#include "cli/Commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iostream>
#include <limits>
#include <optional>

#include "data/Messages.h"

namespace tb::cli {

namespace {

const std::vector<Registration>& Registrations() {
    static const std::vector<Registration> registrations = {
        AddCreateDbCommand, AddDemoCommand,   AddRacesCommand, AddReportCommand,
        AddImportCommand,   AddExportCommand, AddCopyCommand,
    };
    return registrations;
}

std::optional<long long> ParseWholeNumber(const std::string& text) {
    long long n = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return n;
}

}  // namespace

CLI::Validator WholeNumber() {
    return CLI::Validator(
        [](std::string& text) {
            const auto n = ParseWholeNumber(text);
            return n && *n >= std::numeric_limits<int>::min() &&
                           *n <= std::numeric_limits<int>::max()
                       ? std::string()
                       : std::string("expects a whole number");
        },
        "WHOLE NUMBER");
}

CLI::Validator WholeNumber(long long least, long long most) {
    const std::string expects =
        "expects a whole number from " + std::to_string(least) + " to " + std::to_string(most);
    return CLI::Validator(
        [least, most, expects](std::string& text) {
            const auto n = ParseWholeNumber(text);
            return n && *n >= least && *n <= most ? std::string() : expects;
        },
        std::to_string(least) + ".." + std::to_string(most));
}

int Run(const std::vector<std::string>& args) {
    CLI::App app("The headless way to a Tallyboard results database.", "tallyboard-cli");
    app.set_version_flag("--version", "tallyboard-cli " TALLYBOARD_VERSION);
    app.require_subcommand(1);
    int status = kDone;
    for (const Registration add : Registrations())
        add(app, status);
    if (args.empty()) {
        std::cerr << app.help();
        return kWrongArguments;
    }
    const auto commands = app.get_subcommands([](CLI::App*) { return true; });
    if (!args[0].starts_with('-') &&
        std::none_of(commands.begin(), commands.end(),
                     [&](const CLI::App* command) { return command->get_name() == args[0]; })) {
        std::cerr << args[0] << ": no such command; the commands are";
        for (const CLI::App* command : commands)
            std::cerr << ' ' << command->get_name();
        std::cerr << '\n';
        return kWrongArguments;
    }
    // CLI11 takes the arguments last first.
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? kDone : kWrongArguments;
    }
    return status;
}

int Fail(const std::string& Msg) {
    ShowMessage(Msg);
    return kFailed;
}

}  // namespace tb::cli
