#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "data/Connection.h"

struct pg_conn;
struct pg_result;

namespace tb {

class PgConnection;

// A statement on a PostgreSQL server. The text is the one SQLite runs: its "?", "?N" and ":name"
// placeholders become "$N", and its sort keys sort Null as SQLite does. It is prepared on the
// server for each combination of parameter types it is run with (a whole number, a real number, or
// left to the server to infer from the text, as for text and dates), so values are typed as
// strictly as SQLite types them. The whole answer arrives in one round trip and is read cell by
// cell from it.
class PgStatement final : public Statement {
public:
    PgStatement(PgConnection& connection, std::string_view sql);
    ~PgStatement() override;
    PgStatement(const PgStatement&) = delete;
    PgStatement& operator=(const PgStatement&) = delete;

    void Restart() override;
    void Bind(int index, const Value& value) override;
    void Bind(int index, double value) override;
    void Bind(int index, std::int64_t value) override;
    bool Step() override;
    int Execute() override;
    int Columns() const override { return columns_; }
    Value Read(int column) const override;

private:
    enum class ColumnKind : char { Text, Integer, Real, Boolean, Truth, Date };

    struct Parameter {
        char type = 'n';  // 'n' Null, 'i' whole number, 'r' real number, 't' text or date
        std::string text;
    };

    Parameter& At(int index);
    void Run();

    PgConnection& connection_;
    std::string sql_;
    std::vector<Parameter> parameters_;
    std::map<std::string, std::string> prepared_;  // parameter types -> server statement name
    pg_result* result_ = nullptr;
    int row_ = -1;
    int rows_ = 0;
    int columns_ = 0;
    std::vector<ColumnKind> kinds_;
};

class PgConnection final : public Connection {
public:
    // uri: libpq's connection URI; the password comes from ~/.pgpass, PGPASSWORD or a service
    // file, never from Tallyboard.
    explicit PgConnection(const std::string& uri);
    ~PgConnection() override;
    PgConnection(const PgConnection&) = delete;
    PgConnection& operator=(const PgConnection&) = delete;

    Engine engine() const override { return Engine::PostgreSQL; }
    std::unique_ptr<Statement> Prepare(std::string_view sql) override;
    void Exec(const std::string& sql) override;
    bool InTransaction() const override;
    void Begin(bool writer) override;
    std::int64_t LastInsertId() override;
    bool HasTable(const std::string& name) override;
    bool HasAnyTable() override;
    bool Usable() const override;

    pg_conn* handle() { return connection_; }
    std::string NextStatementName();
    // Throws the server's error unless the result is a success; clears a failed result.
    void Check(pg_result* result);

private:
    // The number the query gives, with at most one parameter.
    long long Count(const char* sql, const char* parameter = nullptr);

    pg_conn* connection_ = nullptr;
    int statements_ = 0;
};

// SQLite's placeholders ("?", "?N", ":name") as PostgreSQL's "$N", numbered as SQLite numbers
// them; quoted text, quoted names and "::" casts are left alone. count gets the highest number.
std::string NumberedPlaceholders(std::string_view sql, int& count);
// Every sort key without a NULLS of its own sorts Null as SQLite does: first in ascending order,
// last in descending (PostgreSQL does the opposite by default).
std::string SqliteNullOrder(std::string_view sql);

}  // namespace tb
