#pragma once

#include <cstdint>

#include "data/Value.h"

namespace tb {

// A statement prepared once on a connection and run again and again with new parameters; each
// engine reads its rows in its own way. Failures throw the engine's own error with its text.
class Statement {
public:
    virtual ~Statement() = default;

    // Forgets the last run and its parameters.
    virtual void Restart() = 0;
    // Parameters count from 1, in the order the statement's placeholders first appear.
    virtual void Bind(int index, const Value& value) = 0;
    virtual void Bind(int index, double value) = 0;
    virtual void Bind(int index, std::int64_t value) = 0;

    // Steps to the next row; false when there is none left.
    virtual bool Step() = 0;
    // Runs to the end and gives the number of rows changed.
    virtual int Execute() = 0;

    // Known once the statement has run (after the first Step).
    virtual int Columns() const = 0;
    // The column's value: Date/Time and Yes/No columns of a table read back with their type.
    virtual Value Read(int column) const = 0;
};

}  // namespace tb
