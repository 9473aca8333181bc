#include "exchange/BlwFile.h"

#include <array>

namespace tb::blw {

namespace {

// The letters Windows-1252 places at 0x80 to 0x9F (0 where the code page has none).
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The quoted fields of one line; false when a quote is left open or text stands outside quotes.
bool SplitQuoted(std::string_view line, std::vector<std::string>& fields) {
    fields.clear();
    std::size_t i = 0;
    while (i < line.size()) {
        if (line[i] != '"')
            return false;
        std::string field;
        bool closed = false;
        for (++i; i < line.size(); ++i) {
            if (line[i] != '"') {
                field += line[i];
            } else if (i + 1 < line.size() && line[i + 1] == '"') {
                field += '"';
                ++i;
            } else {
                closed = true;
                ++i;
                break;
            }
        }
        if (!closed)
            return false;
        fields.push_back(std::move(field));
        if (i < line.size()) {
            if (line[i] != ',')
                return false;
            ++i;
            if (i == line.size())
                return false;
        }
    }
    return true;
}

std::string RowMessage(int line, const std::string& key, const std::string& problem) {
    return "E-Line " + std::to_string(line) + (key.empty() ? "" : " (" + key + ")") + ": " +
           problem;
}

std::vector<std::string> SplitPipes(const std::string& value) {
    std::vector<std::string> parts(1);
    for (char c : value) {
        if (c == '|')
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

bool StartsWith(const std::string& text, std::string_view start) {
    return text.compare(0, start.size(), start) == 0;
}

}  // namespace

std::string FromWindows1252(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char c : bytes) {
        if (c >= 0x80 && c < 0xA0)
            AppendUtf8(out, kHighControls[c - 0x80] != 0 ? kHighControls[c - 0x80] : 0xFFFD);
        else
            AppendUtf8(out, c);
    }
    return out;
}

const std::string& Text(const Fields& fields, const std::string& key) {
    static const std::string none;
    const auto it = fields.find(key);
    return it == fields.end() ? none : it->second.value;
}

std::string ReadSeriesFile(std::string_view bytes, SeriesFile& File) {
    const std::string text = FromWindows1252(bytes);
    std::map<std::string, std::size_t> competitorAt;
    std::map<std::string, std::size_t> raceAt;
    std::vector<std::string> fields;
    int lineNo = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string_view line(text.data() + start, end - start);
        start = end + 1;
        ++lineNo;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.empty())
            continue;
        if (!SplitQuoted(line, fields) || fields.size() != 4) {
            const std::string key = line.size() > 1 && line[0] == '"'
                                        ? std::string(line.substr(1, line.find('"', 1) - 1))
                                        : std::string();
            return RowMessage(lineNo, key,
                              "the row is cut off or malformed; a row holds four quoted fields");
        }
        const std::string& key = fields[0];
        const Field field{fields[1], lineNo};
        const std::string& comp = fields[2];
        const std::string& race = fields[3];
        if (key == "column" || key == "prize" || key == "ui") {
            continue;
        } else if (key == "scrcode") {
            auto parts = SplitPipes(field.value);
            if (parts.size() < 15)
                return RowMessage(lineNo, key, "a scoring code has too few fields");
            File.scoring[parts[14]].codes.push_back(std::move(parts));
        } else if (StartsWith(key, "scr")) {
            File.scoring[comp].fields[key] = field;
        } else if (StartsWith(key, "comp")) {
            auto [at, added] = competitorAt.try_emplace(comp, File.competitors.size());
            if (added)
                File.competitors.push_back({comp, {}});
            File.competitors[at->second].fields[key] = field;
        } else if (StartsWith(key, "race")) {
            auto [at, added] = raceAt.try_emplace(race, File.races.size());
            if (added)
                File.races.push_back({race, {}, {}});
            Race& r = File.races[at->second];
            if (key == "racestart") {
                const auto parts = SplitPipes(field.value);
                r.guns.push_back({parts[0], parts.size() > 1 ? parts[1] : std::string(),
                                  parts.size() > 2 ? parts[2] : std::string(), lineNo});
            } else {
                r.fields[key] = field;
            }
        } else if (!comp.empty() && !race.empty()) {
            File.cells[{comp, race}][key] = field;
        } else {
            File.series[key] = field;
        }
    }
    bool seriesRows = false;
    for (const auto& [key, field] : File.series)
        seriesRows = seriesRows || StartsWith(key, "ser");
    if (!seriesRows)
        return "E-The file is not a series file: it has no series rows";
    return {};
}

}  // namespace tb::blw
