#include "support/Checks.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "data/Conversions.h"

namespace tb::test {

testing::AssertionResult IsRunTimeError(const std::string& Msg, const std::string& operation) {
    if (Msg.starts_with("C-Error ") && Msg.find(" in " + operation + "\r") != std::string::npos)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "not a run-time error of " << operation << ": " << Msg;
}

std::vector<std::string> Column(const RowSet& rows, std::size_t column) {
    std::vector<std::string> texts;
    for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r)
        texts.push_back(rows(column, r).ToText());
    return texts;
}

std::string Rendered(const RowSet& rows) {
    std::string text;
    for (std::size_t r = 0; !rows.IsEmpty() && r < rows.Rows(); ++r) {
        for (std::size_t c = 0; c < rows.Columns(); ++c)
            text += (c ? " | " : "") + (rows(c, r).IsNull() ? "<null>" : ToText(rows(c, r)));
        text += "\n";
    }
    return text;
}

std::string Expected(const std::string& file, const std::string& name) {
    const std::string text = DataFile(file);
    const std::string heading = "== " + name + "\n";
    const auto start = text.find(heading);
    EXPECT_NE(start, std::string::npos) << name;
    if (start == std::string::npos)
        return {};
    const auto from = start + heading.size();
    const auto end = text.find("\n== ", from - 1);
    std::istringstream section(
        text.substr(from, end == std::string::npos ? std::string::npos : end + 1 - from));
    std::string kept;
    for (std::string line; std::getline(section, line);)
        kept += line.starts_with('#') ? "" : line + "\n";
    return kept;
}

std::string Scalar(const std::string& file, const std::string& sql) {
    SQLite::Database db(file, SQLite::OPEN_READONLY);
    SQLite::Statement st(db, sql);
    return st.executeStep() ? st.getColumn(0).getString() : std::string("<no row>");
}

std::string GoldenFile(const std::string& name) {
    return std::string(TALLYBOARD_GOLDEN_DIR) + "/" + name;
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

std::string DataFile(const std::string& name) {
    EXPECT_TRUE(std::filesystem::is_regular_file(GoldenFile(name))) << name;
    return ReadFile(GoldenFile(name));
}

namespace {
std::string Unescaped(const std::string& field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            text += field[i];
            continue;
        }
        const char code = field[++i];
        if (code == 'x') {
            text += static_cast<char>(std::stoi(field.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            text += code == 't' ? '\t' : code == 'r' ? '\r' : code == 'n' ? '\n' : code;
        }
    }
    return text;
}
}  // namespace

std::vector<std::vector<std::string>> DataFileRows(const std::string& name) {
    std::istringstream file(DataFile(name));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with('#'))
            continue;
        std::vector<std::string> fields;
        std::size_t start = 0;
        for (std::size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1)
            fields.push_back(Unescaped(line.substr(start, tab - start)));
        fields.push_back(Unescaped(line.substr(start)));
        rows.push_back(std::move(fields));
    }
    return rows;
}

Value ValueOf(const std::string& field) {
    const std::string type = field.substr(0, field.find(' '));
    const std::string text = field.size() > type.size() ? field.substr(type.size() + 1) : "";
    if (type == "text")
        return Value(text);
    if (type == "number")
        return Value(std::strtod(text.c_str(), nullptr));
    if (type == "whole")
        return Value(std::stoll(text));
    if (type == "bool")
        return Value(text == "1");
    if (type == "date")
        return Value(ParseStoredDateTime(text).value());
    return Value();
}

}  // namespace tb::test
