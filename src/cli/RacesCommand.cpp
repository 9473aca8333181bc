#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

// One line per race: race Id, series Id, series title, race name, race date, tab-separated.
int ListRaces(const std::string& data) {
    DataFile = data;
    clResults db;
    RowSet series;
    std::string Msg = db.GetSeries(series, "");
    for (std::size_t s = 0; Msg.empty() && !series.IsEmpty() && s < series.Rows(); ++s) {
        RowSet races;
        Msg = db.GetSchedule(races, static_cast<int>(series(clResults::SeriesCol::Id, s).AsInt()));
        for (std::size_t r = 0; Msg.empty() && !races.IsEmpty() && r < races.Rows(); ++r) {
            std::cout << races(clResults::ScheduleCol::Id, r).ToText() << '\t'
                      << series(clResults::SeriesCol::Id, s).ToText() << '\t'
                      << series(clResults::SeriesCol::Title, s).ToText() << '\t'
                      << races(clResults::ScheduleCol::RaceName, r).ToText() << '\t'
                      << Format(races(clResults::ScheduleCol::RaceDate, r), "dd/mm/yyyy") << '\n';
        }
    }
    return Msg.empty() ? kDone : Fail(Msg);
}

}  // namespace

void AddRacesCommand(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand(
        "races",
        "Lists the races, one a line: race Id, series Id, series title, race name and "
        "date, separated by tabs.");
    auto data = std::make_shared<std::string>();
    command->add_option("--data", *data, "The results database")->required();
    command->callback([&status, data] { status = ListRaces(*data); });
}

}  // namespace tb::cli
