#include "support/TestDatabase.h"

#include <SQLiteCpp/Statement.h>
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>

#include "app/Globals.h"
#include "data/Schema.h"

namespace tb::test {

namespace {
std::string MakeTempFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "tallyboard-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot make a temp folder");
    return pattern;
}
}  // namespace

TempFolder::TempFolder() : path_(MakeTempFolder()) {}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

TestDatabase::TestDatabase() : folder_(MakeTempFolder()), path_(folder_ + "/Tallyboard.db") {
    const std::string Msg = CreateDatabase(path_);
    if (!Msg.empty())
        throw std::runtime_error(Msg);
    // Tests arrange their own handicap types, numbered from 1; the type a new database brings
    // is checked by the first-start tests.
    Exec("DELETE FROM HandicapType; DELETE FROM sqlite_sequence WHERE name = 'HandicapType'");
    DataFile = path_;
}

TestDatabase::~TestDatabase() {
    raw_.reset();
    std::error_code ec;
    std::filesystem::remove_all(folder_, ec);
}

SQLite::Database& TestDatabase::raw() {
    if (!raw_) {
        raw_ = std::make_unique<SQLite::Database>(path_, SQLite::OPEN_READWRITE, 5000);
    }
    return *raw_;
}

void TestDatabase::Exec(const std::string& sql) {
    raw().exec(sql);
}

int TestDatabase::Insert(const std::string& sql, const std::vector<std::string>& texts) {
    SQLite::Statement insert(raw(), sql);
    for (std::size_t i = 0; i < texts.size(); ++i)
        insert.bind(static_cast<int>(i + 1), texts[i]);
    insert.exec();
    return static_cast<int>(raw().getLastInsertRowid());
}

long long TestDatabase::Count(const std::string& table, const std::string& where) {
    SQLite::Statement st(raw(), "SELECT count(*) FROM " + table +
                                    (where.empty() ? std::string() : " WHERE " + where));
    st.executeStep();
    return st.getColumn(0).getInt64();
}

std::string TestDatabase::Text(const std::string& sql) {
    SQLite::Statement st(raw(), sql);
    if (!st.executeStep())
        return "<no row>";
    return st.getColumn(0).isNull() ? std::string() : st.getColumn(0).getString();
}

}  // namespace tb::test
