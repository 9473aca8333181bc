#include "support/Checks.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

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

}  // namespace tb::test
