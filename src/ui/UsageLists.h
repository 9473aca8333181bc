#pragma once

// What uses a record, written once for every editor: the refusal of a removal while the record
// is in use, and the information box that lists what uses it.

#include <cstddef>
#include <functional>
#include <limits>
#include <string>

namespace tb {

class RowSet;
class Value;

// "I-Delete is not allowed as " followed by why the record is in use.
std::string RemovalRefused(const std::string& inUse);

// The information box listing what uses a record: `none` when nothing does, otherwise the heading
// (if any) and one line per row, at most `limit` rows, separated by CR LF.
using UsageLine = std::function<std::string(const RowSet& rows, std::size_t row)>;
void ShowUsage(const std::string& title, const std::string& none, const RowSet& rows,
               const UsageLine& line, const std::string& heading = {},
               std::size_t limit = std::numeric_limits<std::size_t>::max());

// The usual lines: a series with the year of its date, and a boat with its sail number.
std::string SeriesWithYear(const Value& title, const Value& date);
std::string BoatWithSailNo(const RowSet& boats, std::size_t row);

}  // namespace tb
