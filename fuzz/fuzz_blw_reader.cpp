// Feeds arbitrary bytes to the reader of other scoring programs' .blw series files and plans the
// import of whatever it accepts: neither may crash, and a plan never refers to a race or class
// it does not hold.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "exchange/BlwImport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    tb::blw::SeriesFile file;
    if (!tb::blw::ReadSeriesFile(bytes, file).empty())
        return 0;
    tb::SeriesImport plan;
    if (!tb::PlanSeriesImport(file, "fuzz", 2026, plan).empty())
        return 0;
    for (const tb::ImportedSeries& series : plan.series) {
        for (const tb::ImportedStart& start : series.starts)
            if (start.race >= plan.races.size() || start.cls >= series.classes.size())
                std::abort();
        for (const tb::ImportedEntrant& entrant : series.entrants) {
            if (entrant.cls >= series.classes.size())
                std::abort();
            for (const tb::ImportedResult& result : entrant.results)
                if (result.race >= plan.races.size())
                    std::abort();
        }
    }
    return 0;
}
