#include "support/Checks.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <fstream>
#include <sstream>

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

std::string Scalar(const std::string& file, const std::string& sql) {
    SQLite::Database db(file, SQLite::OPEN_READONLY);
    SQLite::Statement st(db, sql);
    return st.executeStep() ? st.getColumn(0).getString() : std::string("<no row>");
}

std::string GoldenFile(const std::string& name) {
    return std::string(TALLYBOARD_GOLDEN_DIR) + "/" + name;
}

std::string DataFile(const std::string& name) {
    std::ifstream file(GoldenFile(name), std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::vector<std::string>> DataFileRows(const std::string& name) {
    std::istringstream file(DataFile(name));
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with('#'))
            continue;
        std::vector<std::string> fields;
        std::istringstream split(line);
        for (std::string field; std::getline(split, field, '\t');)
            fields.push_back(field);
        rows.push_back(std::move(fields));
    }
    return rows;
}

}  // namespace tb::test
