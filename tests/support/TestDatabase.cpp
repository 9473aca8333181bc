#include "support/TestDatabase.h"

#include <SQLiteCpp/Statement.h>
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>

#include "app/Globals.h"
#include "data/Schema.h"
#include "support/ServerDatabase.h"

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

TestDatabase::TestDatabase() {
    if (OnServer()) {
        server_ = std::make_unique<ServerDatabase>();
        path_ = server_->uri();
    } else {
        folder_ = MakeTempFolder();
        path_ = folder_ + "/Tallyboard.db";
        const std::string Msg = CreateDatabase(path_);
        if (!Msg.empty())
            throw std::runtime_error(Msg);
        // Tests arrange their own handicap types, numbered from 1; the type a new database
        // brings is checked by the first-start tests.
        Exec("DELETE FROM HandicapType; DELETE FROM sqlite_sequence WHERE name = 'HandicapType'");
    }
    DataFile = path_;
}

TestDatabase::~TestDatabase() {
    raw_.reset();
    server_.reset();
    if (!folder_.empty()) {
        std::error_code ec;
        std::filesystem::remove_all(folder_, ec);
    }
}

bool TestDatabase::OnServer() {
    return !TestServer().empty();
}

SQLite::Database& TestDatabase::raw() {
    if (server_)
        throw std::logic_error("a database on the server has no file");
    if (!raw_) {
        raw_ = std::make_unique<SQLite::Database>(path_, SQLite::OPEN_READWRITE, 5000);
    }
    return *raw_;
}

void TestDatabase::Exec(const std::string& sql) {
    if (server_)
        server_->Exec(sql);
    else
        raw().exec(sql);
}

int TestDatabase::Insert(const std::string& sql, const std::vector<std::string>& texts) {
    if (server_)
        return server_->Insert(sql, texts);
    SQLite::Statement insert(raw(), sql);
    for (std::size_t i = 0; i < texts.size(); ++i)
        insert.bind(static_cast<int>(i + 1), texts[i]);
    insert.exec();
    return static_cast<int>(raw().getLastInsertRowid());
}

std::vector<TextRow> TestDatabase::Query(const std::string& sql,
                                         const std::vector<std::string>& texts) {
    if (server_)
        return server_->Query(sql, texts);
    SQLite::Statement query(raw(), sql);
    for (std::size_t i = 0; i < texts.size(); ++i)
        query.bind(static_cast<int>(i + 1), texts[i]);
    std::vector<TextRow> rows;
    while (query.executeStep()) {
        TextRow& row = rows.emplace_back();
        for (int column = 0; column < query.getColumnCount(); ++column) {
            const SQLite::Column cell = query.getColumn(column);
            row.push_back(cell.isNull() ? std::nullopt : std::optional(cell.getString()));
        }
    }
    return rows;
}

long long TestDatabase::Count(const std::string& table, const std::string& where) {
    return std::stoll(Text("SELECT count(*) FROM " + table +
                           (where.empty() ? std::string() : " WHERE " + where)));
}

std::string TestDatabase::Text(const std::string& sql) {
    const std::vector<TextRow> rows = Query(sql, {});
    if (rows.empty())
        return "<no row>";
    return rows.front().front().value_or("");
}

std::vector<std::string> TestDatabase::Column(const std::string& sql,
                                              const std::vector<std::string>& texts) {
    std::vector<std::string> column;
    for (const TextRow& row : Query(sql, texts))
        column.push_back(row.front().value_or(""));
    return column;
}

std::vector<double> TestDatabase::Numbers(const std::string& sql,
                                          const std::vector<std::string>& texts) {
    std::vector<double> numbers;
    if (server_) {
        for (const TextRow& row : server_->Query(sql, texts, false))
            numbers.push_back(row.front() ? std::stod(*row.front()) : 0);
        return numbers;
    }
    SQLite::Statement query(raw(), sql);
    for (std::size_t i = 0; i < texts.size(); ++i)
        query.bind(static_cast<int>(i + 1), texts[i]);
    while (query.executeStep())
        numbers.push_back(query.getColumn(0).getDouble());
    return numbers;
}

std::map<std::string, std::string> TestDatabase::Format() {
    constexpr const char* kFileFormat =
        "SELECT name, (SELECT group_concat(name || ' ' || type, ', ') FROM (SELECT name, type "
        "FROM pragma_table_info(m.name) ORDER BY cid)) FROM sqlite_master AS m WHERE type = "
        "'table' AND name NOT LIKE 'sqlite_%'";
    constexpr const char* kServerFormat =
        "SELECT table_name, string_agg(column_name || ' ' || CASE udt_name WHEN 'int8' THEN "
        "'INTEGER' WHEN 'citext' THEN 'TEXT' WHEN 'timestamp' THEN 'DATETIME' WHEN 'int2' THEN "
        "'BOOLEAN' WHEN 'float8' THEN 'REAL' ELSE udt_name END, ', ' ORDER BY ordinal_position) "
        "FROM information_schema.columns WHERE table_schema = current_schema() GROUP BY "
        "table_name";
    std::map<std::string, std::string> tables;
    for (const TextRow& row : Query(server_ ? kServerFormat : kFileFormat, {}))
        tables[row[0].value_or("")] = row[1].value_or("");
    return tables;
}

std::vector<std::string> TestDatabase::Lines(const std::string& sql, const std::string& separator) {
    std::vector<std::string> lines;
    for (const TextRow& row : Query(sql, {})) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += (i == 0 ? "" : separator) + row[i].value_or("-");
        lines.push_back(line);
    }
    return lines;
}

}  // namespace tb::test
