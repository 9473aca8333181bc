#include "support/ServerDatabase.h"

#include <libpq-fe.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <regex>
#include <stdexcept>

#include "data/Connection.h"
#include "data/Schema.h"

namespace tb::test {

namespace {

// Type numbers of the server's real and exact decimal types.
constexpr Oid kFloat4 = 700;
constexpr Oid kFloat8 = 701;
constexpr Oid kNumeric = 1700;

struct ResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

PGconn* Connect(const std::string& uri) {
    PGconn* connection = PQconnectdb(uri.c_str());
    if (PQstatus(connection) != CONNECTION_OK) {
        const std::string why = PQerrorMessage(connection);
        PQfinish(connection);
        throw std::runtime_error("cannot connect to the test server: " + why);
    }
    return connection;
}

Result Checked(PGconn* connection, PGresult* result) {
    Result owned(result);
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        throw std::runtime_error(PQerrorMessage(connection));
    return owned;
}

void Run(PGconn* connection, const std::string& sql) {
    Checked(connection, PQexec(connection, sql.c_str()));
}

// The tests write SQLite's ?1 and ? placeholders; the server takes $1.
std::string Numbered(const std::string& sql) {
    std::string out;
    int next = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < sql.size(); ++i) {
        const char c = sql[i];
        if (c == '\'')
            quoted = !quoted;
        if (c != '?' || quoted) {
            out += c;
            continue;
        }
        out += '$';
        if (i + 1 < sql.size() && std::isdigit(static_cast<unsigned char>(sql[i + 1])) != 0)
            continue;
        out += std::to_string(++next);
    }
    return out;
}

Result Run(PGconn* connection, const std::string& sql, const std::vector<std::string>& texts) {
    std::vector<const char*> values;
    for (const std::string& text : texts)
        values.push_back(text.c_str());
    return Checked(connection,
                   PQexecParams(connection, Numbered(sql).c_str(), static_cast<int>(values.size()),
                                nullptr, values.data(), nullptr, nullptr, 0));
}

// SQLite writes a real number with fifteen significant digits and always a decimal point; the
// server writes the shortest text that reads back as the same number.
std::string AsSqliteReal(const char* text) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15g", std::strtod(text, nullptr));
    std::string real = buffer;
    if (real.find_first_of(".na") == std::string::npos) {
        const std::size_t exponent = real.find('e');
        real.insert(exponent == std::string::npos ? real.size() : exponent, ".0");
    }
    return real;
}

bool GivesIds(const std::string& sql) {
    static const std::regex explicitId(R"(INSERT\s+INTO\s+\w+\s*\(\s*Id\b)", std::regex::icase);
    return std::regex_search(sql, explicitId);
}

// One template per build of the tests: a newer build may make a different schema.
std::string TemplateName() {
    struct stat program {};
    ::stat("/proc/self/exe", &program);
    return "tallyboard_template_" + std::to_string(program.st_mtime);
}

// The connection to the maintenance database, kept for the whole run.
PGconn* Maintenance() {
    static PGconn* connection = Connect(TestServer());
    return connection;
}

void MakeTemplate(const std::string& name) {
    PGconn* server = Maintenance();
    Run(server, "SELECT pg_advisory_lock(22)");
    struct Unlock {
        PGconn* server;
        ~Unlock() { Result(PQexec(server, "SELECT pg_advisory_unlock(22)")); }
    } unlock{server};
    if (PQntuples(Run(server, "SELECT 1 FROM pg_database WHERE datname = ?", {name}).get()) > 0)
        return;
    Run(server, "CREATE DATABASE " + name);
    const std::string Msg = CreateDatabase(OnSameServer(TestServer(), name));
    if (!Msg.empty()) {
        Run(server, "DROP DATABASE " + name + " WITH (FORCE)");
        throw std::runtime_error(Msg);
    }
}

}  // namespace

std::string TestServer() {
    const char* uri = std::getenv("TALLYBOARD_TEST_POSTGRES");
    return uri == nullptr ? std::string() : uri;
}

ServerDatabase::ServerDatabase() {
    static std::atomic<int> made{0};
    const std::string templateName = TemplateName();
    MakeTemplate(templateName);
    name_ = "tallyboard_test_" + std::to_string(::getpid()) + "_" + std::to_string(++made);
    Run(Maintenance(), "CREATE DATABASE " + name_ + " TEMPLATE " + templateName);
    uri_ = OnSameServer(TestServer(), name_);
    connection_ = Connect(uri_);
    // Tests arrange their own handicap types, numbered from 1.
    Run(connection_, "DELETE FROM HandicapType; ALTER TABLE HandicapType ALTER COLUMN Id RESTART");
}

ServerDatabase::~ServerDatabase() {
    PQfinish(connection_);
    Result(PQexec(Maintenance(), ("DROP DATABASE IF EXISTS " + name_ + " WITH (FORCE)").c_str()));
}

// Rows with explicit Ids leave an identity's counter behind them.
void ServerDatabase::CatchUpIdentities(const std::string& sql) {
    if (!GivesIds(sql))
        return;
    const std::string Msg = ResetIdentities(uri_);
    if (!Msg.empty())
        throw std::runtime_error(Msg);
}

void ServerDatabase::Exec(const std::string& sql) {
    Run(connection_, sql);
    CatchUpIdentities(sql);
}

int ServerDatabase::Insert(const std::string& sql, const std::vector<std::string>& texts) {
    const Result result = Run(connection_, sql + " RETURNING Id", texts);
    CatchUpIdentities(sql);
    return std::atoi(PQgetvalue(result.get(), 0, 0));
}

std::vector<TextRow> ServerDatabase::Query(const std::string& sql,
                                           const std::vector<std::string>& texts,
                                           bool sqliteReals) {
    const Result result = Run(connection_, sql, texts);
    std::vector<TextRow> rows(static_cast<std::size_t>(PQntuples(result.get())));
    const int columns = PQnfields(result.get());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < columns; ++column) {
            const int r = static_cast<int>(row);
            if (PQgetisnull(result.get(), r, column) != 0) {
                rows[row].emplace_back();
                continue;
            }
            const char* text = PQgetvalue(result.get(), r, column);
            const Oid type = PQftype(result.get(), column);
            const bool real =
                sqliteReals && (type == kFloat4 || type == kFloat8 || type == kNumeric);
            rows[row].emplace_back(real ? AsSqliteReal(text) : std::string(text));
        }
    }
    return rows;
}

}  // namespace tb::test
