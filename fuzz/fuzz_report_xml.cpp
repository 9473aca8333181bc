// Feeds row sets of any values to the race results, series standings and entry list writers, as
// the report queries would hand them over. A writer either returns a message or a text that
// parses as XML, whatever the class footnote holds (stray markup, bytes that are not UTF-8).

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

#include "FuzzInput.h"
#include "XmlCheck.h"
#include "data/RowSet.h"
#include "data/clResults.h"

namespace {

using tb::RowSet;

// The writers are private steps of clResults. An explicit instantiation may name a private
// member, so this hands their addresses out without widening the class for the fuzzer.
struct RaceResultsWriter {
    using type = std::string (tb::clResults::*)(short, const std::string&, int, RowSet&,
                                                const RowSet&, const RowSet&, const RowSet&,
                                                std::string&);
    friend type WriterOf(RaceResultsWriter);
};
struct EntriesWriter {
    using type = std::string (tb::clResults::*)(short, const std::string&, const RowSet&,
                                                const RowSet&, std::string&);
    friend type WriterOf(EntriesWriter);
};
template <typename Writer, typename Writer::type member>
struct Expose {
    friend typename Writer::type WriterOf(Writer) { return member; }
};
template struct Expose<RaceResultsWriter, &tb::clResults::ReportRaceResults>;
template struct Expose<EntriesWriter, &tb::clResults::ReportEntriesXML>;

constexpr std::size_t kClassColumns = 17;
constexpr std::size_t kResultColumns = 17;
constexpr std::size_t kCumulativeColumns = 10;
constexpr std::size_t kEntryColumns = 10;

// Rows of any values, except that the columns that match rows to classes and boats mostly hold
// small whole numbers, so that rows do meet their class.
RowSet Rows(tb::fuzz::FuzzInput& input, std::size_t columns, std::size_t minimum,
            std::initializer_list<std::size_t> keyColumns) {
    RowSet rows;
    const std::size_t count = minimum + input.Byte() % 6;
    for (std::size_t r = 0; r < count; ++r) {
        std::vector<tb::Value> row;
        for (std::size_t c = 0; c < columns; ++c) {
            const bool key = std::find(keyColumns.begin(), keyColumns.end(), c) != keyColumns.end();
            if (key && input.Byte() % 8 != 0)
                row.emplace_back(static_cast<int>(input.Byte() % 4));
            else
                row.push_back(input.AnyValue());
        }
        rows.AddRow(std::move(row));
    }
    return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tb::fuzz::FuzzInput input(data, size);
    const short option = static_cast<short>(input.Byte() % 3);
    const std::string letter(1, "RSBAEC"[input.Byte() % 6]);
    RowSet classRows = Rows(input, kClassColumns, 1, {0});

    tb::clResults results;
    std::string xml;
    std::string message;
    if (letter == "A" || letter == "E" || letter == "C") {
        const RowSet entryRows = Rows(input, kEntryColumns, 1, {0});
        message = (results.*WriterOf(EntriesWriter{}))(option, letter, classRows, entryRows, xml);
    } else {
        const int viewer = input.Byte() % 3;
        const RowSet resultRows = Rows(input, kResultColumns, 0, {1});
        const RowSet cumulativeRows = Rows(input, kCumulativeColumns, 0, {0, 2});
        const RowSet seriesPointsRows = Rows(input, 2, 0, {0, 1});
        message = (results.*WriterOf(RaceResultsWriter{}))(
            option, letter, viewer, classRows, resultRows, cumulativeRows, seriesPointsRows, xml);
    }
    if (message.empty() && !tb::fuzz::ParsesAsXml(xml)) {
        std::fwrite(xml.data(), 1, xml.size(), stderr);
        std::abort();
    }
    return 0;
}
