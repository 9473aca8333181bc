#include "data/Conversions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <map>

#include "data/RunTimeFault.h"
#include "support/Checks.h"

namespace tb {
namespace {

using Fields = std::vector<std::string>;

double Number(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}
DateTime Stored(const std::string& text) {
    return ParseStoredDateTime(text).value();
}
std::string StoredOrNone(const std::optional<DateTime>& t) {
    return t ? ToStoredDateTime(*t) : "-";
}

// Each conversion by its name in the data file, from the row's input fields.
const std::map<std::string, std::function<std::string(const Fields&)>> kConversions = {
    {"typed date", [](const Fields& in) { return StoredOrNone(ParseTypedDate(in[0])); }},
    {"stored date", [](const Fields& in) { return StoredOrNone(ParseStoredDateTime(in[0])); }},
    {"format date", [](const Fields& in) { return FormatDate(Stored(in[0]), in[1]); }},
    {"format number", [](const Fields& in) { return FormatNumber(Number(in[0]), in[1]); }},
    {"format text", [](const Fields& in) { return FormatText(in[0], in[1]); }},
    {"duration", [](const Fields& in) { return FormatDuration(std::stoll(in[0])); }},
    {"add days",
     [](const Fields& in) { return ToStoredDateTime(AddDays(Stored(in[0]), std::stoi(in[1]))); }},
    {"seconds of day",
     [](const Fields& in) { return std::to_string(SecondsOfDay(Stored(in[0]))); }},
    {"date part", [](const Fields& in) { return ToStoredDateTime(DatePart(Stored(in[0]))); }},
    {"half even", [](const Fields& in) { return NumberToText(RoundHalfEven(Number(in[0]))); }},
    {"half away",
     [](const Fields& in) {
         return NumberToText(RoundHalfAwayFromZero(Number(in[0]), std::stoi(in[1])));
     }},
    {"parse number",
     [](const Fields& in) {
         const auto parsed = ParseNumber(in[0]);
         return parsed ? NumberToText(*parsed) : "-";
     }},
    {"whole number",
     [](const Fields& in) {
         try {
             return std::to_string(Value(Number(in[0])).AsInt());
         } catch (const RunTimeFault& fault) {
             return "fault " + std::to_string(fault.number());
         }
     }},
    {"text", [](const Fields& in) { return ToText(test::ValueOf(in[0])); }},
};

TEST(Conversions, EachGivesWhatItsTableSays) {
    for (const auto& row : test::DataFileRows("conversions/conversions.tsv")) {
        const Fields inputs(row.begin() + 1, row.end() - 1);
        EXPECT_EQ(kConversions.at(row.at(0))(inputs), row.back())
            << row.at(0) << " of '" << inputs.at(0) << "'";
    }
}

}  // namespace
}  // namespace tb
