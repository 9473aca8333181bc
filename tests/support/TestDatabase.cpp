#include "support/TestDatabase.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <regex>
#include <stdexcept>

#include "app/Globals.h"
#include "data/Conversions.h"
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

// The URI of the PostgreSQL server's maintenance database the tests run on, "" for none.
std::string TestServer() {
    const char* uri = std::getenv("TALLYBOARD_TEST_POSTGRES");
    return uri == nullptr ? std::string() : uri;
}

// The connection to the maintenance database, kept for the whole run.
Connection& Maintenance() {
    static const std::unique_ptr<Connection> connection = OpenConnection(TestServer());
    return *connection;
}

// One template per build of the tests: a newer build may make a different schema.
std::string MadeTemplate() {
    struct stat program {};
    ::stat("/proc/self/exe", &program);
    const std::string name = "tallyboard_template_" + std::to_string(program.st_mtime);
    Connection& server = Maintenance();
    server.Exec("SELECT pg_advisory_lock(22)");
    struct Unlock {
        Connection& server;
        ~Unlock() { server.Exec("SELECT pg_advisory_unlock(22)"); }
    } unlock{server};
    const auto found = server.Prepare("SELECT 1 FROM pg_database WHERE datname = ?");
    found->Bind(1, Value(name));
    if (found->Step())
        return name;
    server.Exec("CREATE DATABASE " + name);
    const std::string Msg = CreateDatabase(OnSameServer(TestServer(), name));
    if (!Msg.empty()) {
        server.Exec("DROP DATABASE " + name + " WITH (FORCE)");
        throw std::runtime_error(Msg);
    }
    return name;
}

// SQLite writes a real number with fifteen significant digits and always a decimal point.
std::string AsSqliteReal(double number) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", number);
    std::string real = buffer;
    if (real.find_first_of(".na") == std::string::npos) {
        const std::size_t exponent = real.find('e');
        real.insert(exponent == std::string::npos ? real.size() : exponent, ".0");
    }
    return real;
}

// A cell as SQLite's own text of it reads, nothing for Null.
std::optional<std::string> Rendered(const Value& cell) {
    if (cell.IsNull())
        return std::nullopt;
    if (cell.IsDouble())
        return AsSqliteReal(cell.AsDouble());
    if (cell.IsDate())
        return ToStoredDateTime(cell.AsDate());
    if (cell.IsText())
        return std::get<std::string>(cell.storage());
    return std::to_string(cell.AsInt());
}

bool GivesIds(const std::string& sql) {
    static const std::regex explicitId(R"(INSERT\s+INTO\s+\w+\s*\(\s*Id\b)", std::regex::icase);
    return std::regex_search(sql, explicitId);
}

}  // namespace

TempFolder::TempFolder() : path_(MakeTempFolder()) {}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

TestDatabase::TestDatabase() {
    if (OnServer()) {
        static std::atomic<int> made{0};
        const std::string templateName = MadeTemplate();
        serverName_ =
            "tallyboard_test_" + std::to_string(::getpid()) + "_" + std::to_string(++made);
        Maintenance().Exec("CREATE DATABASE " + serverName_ + " TEMPLATE " + templateName);
        path_ = OnSameServer(TestServer(), serverName_);
    } else {
        folder_ = MakeTempFolder();
        path_ = folder_ + "/Tallyboard.db";
        const std::string Msg = CreateDatabase(path_);
        if (!Msg.empty())
            throw std::runtime_error(Msg);
    }
    db_ = OpenConnection(path_);
    // Tests arrange their own handicap types, numbered from 1; the type a new database brings is
    // checked by the first-start tests.
    Exec(OnServer() ? "DELETE FROM HandicapType; ALTER TABLE HandicapType ALTER COLUMN Id RESTART"
                    : "DELETE FROM HandicapType; DELETE FROM sqlite_sequence WHERE name = "
                      "'HandicapType'");
    DataFile = path_;
}

TestDatabase::~TestDatabase() {
    db_.reset();
    std::error_code ec;
    if (!folder_.empty())
        std::filesystem::remove_all(folder_, ec);
    if (serverName_.empty())
        return;
    try {
        Maintenance().Exec("DROP DATABASE IF EXISTS " + serverName_ + " WITH (FORCE)");
    } catch (const std::exception&) {
        // A database left behind goes with the throwaway server.
    }
}

bool TestDatabase::OnServer() {
    return !TestServer().empty();
}

void TestDatabase::Exec(const std::string& sql) {
    db_->Exec(sql);
    // Rows with explicit Ids leave the server's identity counters behind them.
    if (GivesIds(sql))
        ResetIdentities(*db_);
}

int TestDatabase::Insert(const std::string& sql, const std::vector<std::string>& texts) {
    const int id = static_cast<int>(Query(sql + " RETURNING Id", texts).front().front().AsInt());
    if (GivesIds(sql))
        ResetIdentities(*db_);
    return id;
}

std::vector<std::vector<Value>> TestDatabase::Query(const std::string& sql,
                                                    const std::vector<std::string>& texts) {
    const auto query = db_->Prepare(sql);
    for (std::size_t i = 0; i < texts.size(); ++i)
        query->Bind(static_cast<int>(i + 1), Value(texts[i]));
    std::vector<std::vector<Value>> rows;
    while (query->Step()) {
        std::vector<Value>& row = rows.emplace_back();
        for (int column = 0; column < query->Columns(); ++column)
            row.push_back(query->Read(column));
    }
    return rows;
}

long long TestDatabase::Count(const std::string& table, const std::string& where) {
    return std::stoll(Text("SELECT count(*) FROM " + table +
                           (where.empty() ? std::string() : " WHERE " + where)));
}

std::string TestDatabase::Text(const std::string& sql) {
    const auto rows = Query(sql, {});
    return rows.empty() ? "<no row>" : Rendered(rows.front().front()).value_or("");
}

std::vector<std::string> TestDatabase::Column(const std::string& sql,
                                              const std::vector<std::string>& texts) {
    std::vector<std::string> column;
    for (const auto& row : Query(sql, texts))
        column.push_back(Rendered(row.front()).value_or(""));
    return column;
}

std::vector<double> TestDatabase::Numbers(const std::string& sql,
                                          const std::vector<std::string>& texts) {
    std::vector<double> numbers;
    for (const auto& row : Query(sql, texts))
        numbers.push_back(row.front().AsDouble());
    return numbers;
}

std::vector<std::string> TestDatabase::Lines(const std::string& sql, const std::string& separator) {
    std::vector<std::string> lines;
    for (const auto& row : Query(sql, {})) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += (i == 0 ? "" : separator) + Rendered(row[i]).value_or("-");
        lines.push_back(line);
    }
    return lines;
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
    for (const auto& row : Query(OnServer() ? kServerFormat : kFileFormat, {}))
        tables[row[0].ToText()] = row[1].ToText();
    return tables;
}

}  // namespace tb::test
