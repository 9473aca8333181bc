#pragma once

// The rows of a .blw series file written by another scoring program, grouped by what they
// describe. Plain text of four quoted fields a row (key, value, competitor handle, race handle)
// in Windows-1252; the reader hands back UTF-8.

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tb::blw {

// One value with the line it came from, so that a message can name the row.
struct Field {
    std::string value;
    int line = 0;
};
using Fields = std::map<std::string, Field>;

struct Gun {
    std::string selector;
    std::string time;
    std::string mode;
    int line = 0;
};

struct Race {
    std::string handle;
    Fields fields;
    std::vector<Gun> guns;
};

struct Competitor {
    std::string handle;
    Fields fields;
};

// One scoring system: its properties and its codes, each code as its pipe-separated fields.
struct ScoringSystem {
    Fields fields;
    std::vector<std::vector<std::string>> codes;
};

struct SeriesFile {
    Fields series;
    std::vector<Competitor> competitors;  // in the order of the file
    std::vector<Race> races;              // in the order of the file
    std::map<std::string, ScoringSystem> scoring;
    // Result cells by competitor handle and race handle.
    std::map<std::pair<std::string, std::string>, Fields> cells;
};

// Windows-1252 text as UTF-8.
std::string FromWindows1252(std::string_view bytes);

// The text of a field, or empty when the row is missing.
const std::string& Text(const Fields& fields, const std::string& key);

// Reads the whole file; on a malformed row or a file without series rows the message names the
// line and key, and File is incomplete.
std::string ReadSeriesFile(std::string_view bytes, SeriesFile& File);

}  // namespace tb::blw
