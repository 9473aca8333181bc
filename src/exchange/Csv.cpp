#include "exchange/Csv.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>

namespace tb {

namespace {

// Windows-1252's letters and signs in 0x80 to 0x9F; the five unused codes read as themselves.
constexpr std::array<std::uint16_t, 32> kWindows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing past
// U+10FFFF).
bool IsUtf8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        int more = 0;
        std::uint32_t code = 0;
        if (lead < 0x80) {
            ++i;
            continue;
        } else if (lead >= 0xC2 && lead <= 0xDF) {
            more = 1, code = lead & 0x1F;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            more = 2, code = lead & 0x0F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            more = 3, code = lead & 0x07;
        } else {
            return false;
        }
        if (i + static_cast<std::size_t>(more) >= bytes.size())
            return false;
        for (int k = 1; k <= more; ++k) {
            const auto next = static_cast<unsigned char>(bytes[i + k]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = code << 6 | (next & 0x3F);
        }
        constexpr std::uint32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
        if (code < kSmallest[more] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += more + 1;
    }
    return true;
}

// The separator of the header row: the one of comma and semicolon it holds more of.
char DetectSeparator(std::string_view text) {
    const std::string_view header = text.substr(0, text.find('\n'));
    const auto commas = std::count(header.begin(), header.end(), ',');
    const auto semicolons = std::count(header.begin(), header.end(), ';');
    return semicolons > commas ? ';' : ',';
}

struct Collector {
    std::vector<std::vector<std::string>> records;
    std::vector<std::string> fields;
};

void OnField(void* field, std::size_t length, void* data) {
    auto* collector = static_cast<Collector*>(data);
    collector->fields.emplace_back(static_cast<const char*>(field), length);
}

void OnRowEnd(int, void* data) {
    auto* collector = static_cast<Collector*>(data);
    collector->records.push_back(std::move(collector->fields));
    collector->fields.clear();
}

bool AllBlank(const std::vector<std::string>& fields) {
    return std::all_of(fields.begin(), fields.end(), [](const std::string& f) {
        return f.find_first_not_of(" \t") == std::string::npos;
    });
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Bom))
        bytes.remove_prefix(kUtf8Bom.size());
    if (IsUtf8(bytes))
        return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80 && byte < 0xA0)
            AppendUtf8(text, kWindows1252High[byte - 0x80]);
        else
            AppendUtf8(text, byte);
    }
    return text;
}

std::string ReadCsv(std::string_view bytes, CsvTable& table) {
    table = CsvTable();
    if (bytes.size() > kMaxCsvBytes)
        return "the file is larger than " + std::to_string(kMaxCsvBytes / (1024 * 1024)) + " MB";
    if (bytes.find('\0') != std::string_view::npos)
        return "the file is not text";
    std::string text = ToUtf8(bytes);
    // Every record ends at a line feed, so that each line of the file is a row of its own and
    // the row numbers are those a spreadsheet shows; a line break inside quotes stays a LF.
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        lines += text[i];
    }
    if (lines.find_first_not_of(" \t\n\r") == std::string::npos)
        return "the file is empty";

    csv_parser parser;
    if (csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0)
        return "there is not enough memory to read the file";
    csv_set_delim(&parser, static_cast<unsigned char>(DetectSeparator(lines)));
    Collector collector;
    const bool parsed = csv_parse(&parser, lines.data(), lines.size(), OnField, OnRowEnd,
                                  &collector) == lines.size() &&
                        csv_fini(&parser, OnField, OnRowEnd, &collector) == 0;
    csv_free(&parser);
    if (!parsed) {
        return "row " + std::to_string(collector.records.size() + 1) +
               " has a quote that is not closed or text after a closing quote";
    }

    auto& records = collector.records;
    const auto first = std::find_if(records.begin(), records.end(),
                                    [](const auto& record) { return !AllBlank(record); });
    if (first == records.end())
        return "the file is empty";
    table.Header = *first;
    for (auto it = first + 1; it != records.end(); ++it) {
        if (AllBlank(*it))
            continue;
        const int number = static_cast<int>(it - records.begin()) + 1;
        std::vector<std::string>& fields = *it;
        // Spreadsheets end some rows with empty cells past the last column: those are harmless.
        while (fields.size() > table.Header.size() && fields.back().empty())
            fields.pop_back();
        if (fields.size() > table.Header.size()) {
            table = CsvTable();
            return "row " + std::to_string(number) + " has " + std::to_string(fields.size()) +
                   " fields, more than the " + std::to_string(first->size()) +
                   " columns of the header";
        }
        fields.resize(table.Header.size());
        table.Rows.push_back({number, std::move(fields)});
    }
    if (table.Rows.empty())
        return "the file has no rows below its header";
    return {};
}

std::string CsvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += ',';
        const std::string& field = fields[i];
        if (field.find_first_of(",;\"\r\n") == std::string::npos && !field.starts_with(' ') &&
            !field.ends_with(' ')) {
            line += field;
            continue;
        }
        std::string quoted(field.size() * 2 + 2, '\0');
        quoted.resize(csv_write(quoted.data(), quoted.size(), field.data(), field.size()));
        line += quoted;
    }
    return line + "\r\n";
}

std::string WriteCsvFile(const std::string& path, const std::string& csv) {
    const std::string partial = path + ".part";
    std::ofstream out(partial, std::ios::binary | std::ios::trunc);
    out << csv;
    out.close();
    if (!out || std::rename(partial.c_str(), path.c_str()) != 0) {
        std::remove(partial.c_str());
        return "E-The file " + path + " cannot be written";
    }
    return {};
}

}  // namespace tb
