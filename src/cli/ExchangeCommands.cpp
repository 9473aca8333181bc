#include "cli/ExchangeCommands.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <optional>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

struct ExchangeArgs {
    std::optional<CsvKind> kind;
    std::string file, data, output;
    std::optional<int> race;
    bool update = false;
};

// Positional kind (and file for an import), then options; nullopt after explaining what is wrong.
std::optional<ExchangeArgs> Parse(const std::vector<std::string>& args, bool importing) {
    ExchangeArgs parsed;
    std::size_t i = 0;
    if (i < args.size() && !args[i].starts_with("-"))
        parsed.kind = CsvKindNamed(args[i++]);
    if (importing && i < args.size() && !args[i].starts_with("-"))
        parsed.file = args[i++];
    if (!parsed.kind || (importing && parsed.file.empty()))
        return std::nullopt;
    for (; i < args.size(); ++i) {
        const std::string& name = args[i];
        if (name == "--update" && importing) {
            parsed.update = true;
            continue;
        }
        if (i + 1 >= args.size())
            return std::nullopt;
        const std::string& value = args[++i];
        if (name == "--data") {
            parsed.data = value;
        } else if (name == "-o" && !importing) {
            parsed.output = value;
        } else if (name == "--race") {
            int race = 0;
            const auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), race);
            if (ec != std::errc() || end != value.data() + value.size() || race < 1) {
                std::cerr << "--race: expects a whole number\n";
                return std::nullopt;
            }
            parsed.race = race;
        } else {
            return std::nullopt;
        }
    }
    const bool needsRace = *parsed.kind == CsvKind::Finishes || *parsed.kind == CsvKind::Results ||
                           *parsed.kind == CsvKind::Standings;
    if (parsed.data.empty() || needsRace != parsed.race.has_value())
        return std::nullopt;
    const bool readable = IsRegisterKind(*parsed.kind) || *parsed.kind == CsvKind::Finishes;
    const bool writable = *parsed.kind != CsvKind::Finishes;
    if (importing ? !readable : !writable)
        return std::nullopt;
    return parsed;
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
    return 0;
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
        return 0;
    }
    // Written beside the target and renamed into place, so a failure leaves no half file.
    const std::string partial = output + ".part";
    std::ofstream out(partial, std::ios::binary | std::ios::trunc);
    out << csv;
    out.close();
    if (!out || std::rename(partial.c_str(), output.c_str()) != 0) {
        std::remove(partial.c_str());
        return Fail("E-The file " + output + " cannot be written");
    }
    return 0;
}

int Import(const std::vector<std::string>& args) {
    const auto parsed = Parse(args, true);
    if (!parsed)
        return Usage();
    return ImportFile(parsed->data, *parsed->kind, parsed->file, parsed->update,
                      parsed->race.value_or(0));
}

int Export(const std::vector<std::string>& args) {
    const auto parsed = Parse(args, false);
    if (!parsed)
        return Usage();
    return ExportFile(parsed->data, *parsed->kind, parsed->race.value_or(0), parsed->output);
}

}  // namespace tb::cli
