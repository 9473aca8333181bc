// Feeds arbitrary bytes to the CSV reader and to the row checks of every kind of import: none
// may crash, every row read has the header's width, and a row the checks pass has what its
// kind requires.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "exchange/Csv.h"
#include "exchange/RowChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    tb::CsvTable table;
    if (!tb::ReadCsv(bytes, table).empty())
        return 0;
    for (const tb::CsvRow& row : table.Rows) {
        if (row.Fields.size() != table.Header.size() || row.Number < 2)
            std::abort();
    }
    for (const tb::CsvKind kind : {tb::CsvKind::People, tb::CsvKind::Models, tb::CsvKind::Boats,
                                   tb::CsvKind::Handicaps, tb::CsvKind::Finishes}) {
        tb::ImportRows rows;
        tb::CheckRows(kind, table, "fuzz.csv", rows);
        for (const tb::PersonRow& person : rows.People) {
            if (person.Firstname.empty() || person.Lastname.empty())
                std::abort();
        }
        for (const tb::HandicapRow& handicap : rows.Handicaps) {
            if (!(handicap.Tcf > 0 && handicap.Tcf < 10))
                std::abort();
        }
        for (const tb::BoatRow& boat : rows.Boats) {
            if (boat.FullSailNo.empty() || boat.Owner.Lastname.empty())
                std::abort();
        }
    }
    return 0;
}
