#pragma once

#include <cstddef>

#include "data/RowSet.h"

namespace tb {

// A date the database computes (the Min of a date column) comes back as its stored text; this
// reads such a column as the dates it holds, so callers treat it like any Date/Time column.
inline void ReadAsDates(RowSet& rows, std::size_t column) {
    for (std::size_t row = 0; row < rows.Rows(); ++row) {
        Value& cell = rows(column, row);
        if (cell.IsText())
            cell = Value(cell.AsDate());
    }
}

}  // namespace tb
