#pragma once

// The kinds of CSV file the system reads and writes, and the columns each one has. A column is
// found by its header without regard to case, blanks and punctuation ("Sail #" reads as
// "Sail No"), or by one of the other names a club's spreadsheet is likely to give it.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tb {

enum class CsvKind { People, Models, Boats, Handicaps, Finishes, Results, Standings };

// "people", "models", "boats", "handicaps", "finishes", "results", "standings".
const char* CsvKindName(CsvKind kind);
std::optional<CsvKind> CsvKindNamed(std::string_view name);
bool IsRegisterKind(CsvKind kind);

struct CsvColumn {
    const char* Name;  // as exports write it
    std::vector<const char*> Synonyms;
};

// The columns an import reads, in the order the export of the same kind writes them.
const std::vector<CsvColumn>& ImportColumns(CsvKind kind);

// A header name made comparable: letters in lower case and digits; "#" reads as "no" and "%"
// as "percent"; everything else goes.
std::string HeaderKey(std::string_view header);

struct ColumnMatch {
    std::vector<int> FieldOf;          // per import column: its field in the header, or -1
    std::vector<std::string> Names;    // per header field: the import column it is, or ""
    std::vector<std::string> Ignored;  // header fields that are no column of the kind
    std::vector<std::string> Doubled;  // import columns that more than one field gives
};
ColumnMatch MatchColumns(CsvKind kind, const std::vector<std::string>& header);

}  // namespace tb
