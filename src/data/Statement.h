#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "data/Value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tb {

// A statement prepared once on a connection and run again and again with new parameters. Rows
// are read straight from SQLite: a report reads tens of thousands of cells, and a wrapper object
// per cell cost a tenth of its time. Failures throw SQLite::Exception with SQLite's own text.
class Statement {
public:
    Statement(sqlite3* db, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Forgets the last run and its parameters.
    void Restart();
    void Bind(int index, const Value& value);
    void Bind(int index, double value);
    void Bind(int index, std::int64_t value);

    // Steps to the next row; false when there is none left.
    bool Step();
    // Runs to the end and gives the number of rows changed.
    int Execute();

    int Columns() const { return columns_; }
    // The column's value: Date/Time and Yes/No columns, declared as such, read back with their
    // type.
    Value Read(int column) const;

private:
    enum class ColumnKind : char { Plain, Date, Boolean };

    sqlite3* db_;
    sqlite3_stmt* statement_ = nullptr;
    int columns_ = 0;
    std::vector<ColumnKind> kinds_;
};

}  // namespace tb
