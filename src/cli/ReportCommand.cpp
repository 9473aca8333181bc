#include <CLI/CLI.hpp>
#include <cstring>
#include <iostream>
#include <memory>

#include "app/Globals.h"
#include "app/ReportMenu.h"
#include "cli/Commands.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

struct ReportRequest {
    std::string data;
    std::string reports;
    std::string ini;
    int race = 0;
    std::string kind;
    int action = 0;
};

int WriteReport(const ReportRequest& request) {
    const int kindIndex =
        static_cast<int>(std::strchr(kReportLetters, request.kind[0]) - kReportLetters);
    DataFile = request.data;
    ReportPath = request.reports;
    if (!ReportPath.ends_with('/'))
        ReportPath += '/';
    clResults db;
    const std::string Msg =
        db.ReadReportMenu(request.ini.empty() ? ProgramFolder() + "/Tallyboard.ini" : request.ini);
    if (!Msg.empty())
        return Fail(Msg);
    const ReportSection& section = db.ReportMenu()[static_cast<std::size_t>(kindIndex)];
    const std::size_t offered = section.Title.empty() ? 0 : section.Actions.size();
    if (static_cast<std::size_t>(request.action) >= offered) {
        std::cerr << "--action: the initialisation file offers no action " << request.action
                  << " for the report " << request.kind << " (it has " << offered << ")\n";
        return kWrongArguments;
    }
    const ReportAction& chosen = section.Actions[static_cast<std::size_t>(request.action)];
    std::string OutputPath;
    const std::string Result =
        db.CreateReport(kindIndex, request.action, chosen.Viewer, request.race, OutputPath);
    // A publishing action stopped by unsettled handicaps still names the problem page.
    if (!OutputPath.empty())
        std::cout << OutputPath << '\n';
    return Result.empty() ? kDone : Fail(Result);
}

CLI::Validator ReportLetter() {
    return CLI::Validator(
        [](std::string& text) {
            return text.size() == 1 && std::strchr(kReportLetters, text[0]) != nullptr
                       ? std::string()
                       : std::string("expects one of the letters E, A, C, R, S, B");
        },
        "E|A|C|R|S|B");
}

}  // namespace

void AddReportCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "report",
        "Writes a report with the report menu's action N and prints the path of the "
        "file to show.");
    command->footer(
        "Report kinds: E entry list by handicap, A entry list by sail number, C class sheet,\n"
        "R race results, S series results, B race and series results together. The action is\n"
        "the kind's Nth line (from 0) of the initialisation file, by default the one in the\n"
        "program folder.");
    auto request = std::make_shared<ReportRequest>();
    command->add_option("--data", request->data, "The results database")->required();
    command->add_option("--reports", request->reports, "The report folder (style sheets, output)")
        ->required();
    command->add_option("--ini", request->ini, "The initialisation file holding the report menu");
    command->add_option("--race", request->race, "The race's Id (see races)")
        ->required()
        ->check(WholeNumber());
    command->add_option("--kind", request->kind, "The report kind")
        ->required()
        ->check(ReportLetter());
    command->add_option("--action", request->action, "The action's line of the kind")
        ->capture_default_str()
        ->check(WholeNumber(0, 9999));
    command->callback([&status, request] { status = WriteReport(*request); });
}

}  // namespace tb::cli
