#include "data/RowSet.h"

#include <stdexcept>

namespace tb {

void RowSet::AddRow(std::vector<Value> row) {
    if (columns_ == 0)
        columns_ = row.size();
    if (row.size() != columns_)
        throw std::logic_error("row width differs from the row set's");
    for (auto& v : row)
        cells_.push_back(std::move(v));
    ++rows_;
}

Value* RowSet::AddNullRow(std::size_t columns) {
    if (columns_ == 0)
        columns_ = columns;
    if (columns != columns_)
        throw std::logic_error("row width differs from the row set's");
    cells_.resize(cells_.size() + columns_);
    ++rows_;
    return cells_.data() + (cells_.size() - columns_);
}

}  // namespace tb
