#pragma once

#include <SQLiteCpp/Database.h>

#include <memory>
#include <string>
#include <vector>

#include "data/Connection.h"

struct sqlite3_stmt;

namespace tb {

// Rows are read straight from SQLite: a report reads tens of thousands of cells, and a wrapper
// object per cell cost a tenth of its time. Failures throw SQLite::Exception with SQLite's text.
class SqliteStatement final : public Statement {
public:
    SqliteStatement(sqlite3* db, std::string_view sql);
    ~SqliteStatement() override;
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    void Restart() override;
    void Bind(int index, const Value& value) override;
    void Bind(int index, double value) override;
    void Bind(int index, std::int64_t value) override;
    bool Step() override;
    int Execute() override;
    int Columns() const override { return columns_; }
    Value Read(int column) const override;

private:
    enum class ColumnKind : char { Plain, Date, Boolean };

    sqlite3* db_;
    sqlite3_stmt* statement_ = nullptr;
    int columns_ = 0;
    std::vector<ColumnKind> kinds_;
};

class SqliteConnection final : public Connection {
public:
    // create: make the file when it is missing (a new database or a copy's target).
    SqliteConnection(const std::string& path, bool create);

    Engine engine() const override { return Engine::SQLite; }
    std::unique_ptr<Statement> Prepare(std::string_view sql) override;
    void Exec(const std::string& sql) override;
    bool InTransaction() const override;
    void Begin(bool writer) override;
    std::int64_t LastInsertId() override;
    bool HasTable(const std::string& name) override;
    bool HasAnyTable() override;

private:
    SQLite::Database db_;
};

}  // namespace tb
