#include <charconv>
#include <cstring>
#include <iostream>
#include <map>
#include <optional>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "cli/DemoSeason.h"
#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

// "--name value" pairs; nullopt when an option is unknown, repeated or has no value.
std::optional<std::map<std::string, std::string>> Options(const std::vector<std::string>& args,
                                                          std::size_t first,
                                                          const std::vector<std::string>& known) {
    std::map<std::string, std::string> options;
    for (std::size_t i = first; i < args.size(); i += 2) {
        const std::string& name = args[i];
        if (i + 1 >= args.size() || std::find(known.begin(), known.end(), name) == known.end() ||
            options.count(name) != 0)
            return std::nullopt;
        options[name] = args[i + 1];
    }
    return options;
}

std::optional<long long> WholeNumber(const std::string& text) {
    long long n = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return n;
}

}  // namespace

int Demo(const std::vector<std::string>& args) {
    if (args.empty() || args[0].starts_with("--"))
        return Usage();
    const auto options = Options(args, 1, {"--boats", "--races", "--classes", "--seed"});
    if (!options)
        return Usage();
    DemoSize size;
    for (const auto& [name, text] : *options) {
        const auto n = WholeNumber(text);
        if (!n || *n < (name == "--seed" ? 0 : 1) || *n > 100000)
            return Usage();
        if (name == "--boats")
            size.boats = static_cast<int>(*n);
        else if (name == "--races")
            size.races = static_cast<int>(*n);
        else if (name == "--classes")
            size.classes = static_cast<int>(*n);
        else
            size.seed = static_cast<std::uint32_t>(*n);
    }
    const std::string Msg = CreateDemoSeason(args[0], size);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << "Created the demonstration season " << args[0] << " (" << size.boats << " boats, "
              << size.races << " races, " << size.classes << " classes)\n";
    return 0;
}

int Races(const std::vector<std::string>& args) {
    const auto options = Options(args, 0, {"--data"});
    if (!options || options->count("--data") == 0)
        return Usage();
    DataFile = options->at("--data");
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
    return Msg.empty() ? 0 : Fail(Msg);
}

int Report(const std::vector<std::string>& args) {
    const auto options =
        Options(args, 0, {"--data", "--reports", "--ini", "--race", "--kind", "--action"});
    if (!options || options->count("--data") == 0 || options->count("--reports") == 0 ||
        options->count("--race") == 0 || options->count("--kind") == 0)
        return Usage();
    const std::string& kind = options->at("--kind");
    const char* letter = kind.size() == 1 ? std::strchr(kReportLetters, kind[0]) : nullptr;
    const auto race = WholeNumber(options->at("--race"));
    const auto action = options->count("--action") ? WholeNumber(options->at("--action"))
                                                   : std::optional<long long>(0);
    if (letter == nullptr || kind[0] == '\0' || !race || !action || *action < 0)
        return Usage();
    const int kindIndex = static_cast<int>(letter - kReportLetters);

    DataFile = options->at("--data");
    ReportPath = options->at("--reports");
    if (!ReportPath.ends_with('/'))
        ReportPath += '/';
    clResults db;
    const std::string Msg = db.ReadReportMenu(
        options->count("--ini") ? options->at("--ini") : ProgramFolder() + "/Tallyboard.ini");
    if (!Msg.empty())
        return Fail(Msg);
    const ReportSection& section = db.ReportMenu()[static_cast<std::size_t>(kindIndex)];
    if (section.Title.empty() || static_cast<std::size_t>(*action) >= section.Actions.size()) {
        std::cerr << "The initialisation file offers no action " << *action << " for the report "
                  << kind << " (it has " << (section.Title.empty() ? 0 : section.Actions.size())
                  << ")\n";
        return Usage();
    }
    const ReportAction& chosen = section.Actions[static_cast<std::size_t>(*action)];
    std::string OutputPath;
    const std::string Result = db.CreateReport(kindIndex, static_cast<int>(*action), chosen.Viewer,
                                               static_cast<int>(*race), OutputPath);
    if (!Result.empty())
        return Fail(Result);
    std::cout << OutputPath << '\n';
    return 0;
}

}  // namespace tb::cli
