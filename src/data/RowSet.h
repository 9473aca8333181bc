#pragma once

#include <cstddef>
#include <vector>

#include "data/Value.h"

namespace tb {

// The column of a one-column query (a count or an Id found) and the row of a one-row answer.
constexpr std::size_t kOnlyColumn = 0;
constexpr std::size_t kFirstRow = 0;

// The output of a query: indexed column first, row second, both from 0. A query that found no
// row leaves it "empty" (no columns at all), which callers test before taking bounds; a row set
// of empty values (columns but Null cells) is not empty.
class RowSet {
public:
    RowSet() = default;
    RowSet(std::size_t columns, std::size_t rows)
        : columns_(columns), rows_(rows), cells_(columns * rows) {}

    bool IsEmpty() const { return columns_ == 0; }
    std::size_t Columns() const { return columns_; }
    std::size_t Rows() const { return rows_; }

    Value& operator()(std::size_t column, std::size_t row) {
        return cells_[row * columns_ + column];
    }
    const Value& operator()(std::size_t column, std::size_t row) const {
        return cells_[row * columns_ + column];
    }

    // Adds a row; the first row fixes the number of columns.
    void AddRow(std::vector<Value> row);
    // Adds a row of Null cells to be filled in place and gives its first cell.
    Value* AddNullRow(std::size_t columns);
    void Reserve(std::size_t columns, std::size_t rows) { cells_.reserve(columns * rows); }
    void Clear() { *this = RowSet(); }

    bool operator==(const RowSet& other) const = default;

private:
    std::size_t columns_ = 0;
    std::size_t rows_ = 0;
    std::vector<Value> cells_;  // row by row
};

}  // namespace tb
