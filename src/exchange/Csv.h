#pragma once

// CSV as spreadsheets and timing apps write it: comma or semicolon separated, quoted fields
// that may hold separators, quotes and line breaks, UTF-8 with or without a byte-order mark or
// Windows-1252, CRLF or LF line ends. Written files are UTF-8 with a byte-order mark, so that a
// spreadsheet program reads the accents.

#include <string>
#include <string_view>
#include <vector>

namespace tb {

struct CsvRow {
    int Number = 0;  // the row as a spreadsheet numbers it: the header is row 1
    std::vector<std::string> Fields;
};

struct CsvTable {
    std::vector<std::string> Header;
    std::vector<CsvRow> Rows;  // rows of blank fields only are left out
};

// The largest file read; a register or a race's finishes is a small fraction of it.
inline constexpr std::size_t kMaxCsvBytes = 16 * 1024 * 1024;

// Reads the bytes of a CSV file into UTF-8 fields. Gives the problem as a sentence (empty
// when the file was read): not text, empty, no rows below the header, a quote left open, a row
// with more fields than the header.
std::string ReadCsv(std::string_view bytes, CsvTable& table);

// The text as UTF-8: a byte-order mark is dropped; text that is not valid UTF-8 is read as
// Windows-1252.
std::string ToUtf8(std::string_view bytes);

// One line of fields, each quoted where it needs to be, ended by CRLF.
std::string CsvLine(const std::vector<std::string>& fields);
inline constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

// Writes the text beside the file and renames it into place, so that a failure leaves no half
// written file; the message names the file when it cannot be written.
std::string WriteCsvFile(const std::string& path, const std::string& csv);

}  // namespace tb
