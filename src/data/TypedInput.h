#pragma once

#include <string>

#include "data/Conversions.h"
#include "data/RunTimeFault.h"

namespace tb {

// A typed text stored into a number or date column: a text that does not convert is the
// "Type mismatch" run-time error, as the database would raise it, and nothing is stored.
inline double TypedNumber(const std::string& text) {
    const auto number = ParseNumber(text);
    if (!number)
        throw RunTimeFault::TypeMismatch();
    return *number;
}

inline DateTime TypedDate(const std::string& text) {
    const auto date = ParseTypedDate(text);
    if (!date)
        throw RunTimeFault::TypeMismatch();
    return *date;
}

inline DateTime TypedDateTime(const std::string& text) {
    const auto dateTime = ParseTypedDateTime(text);
    if (!dateTime)
        throw RunTimeFault::TypeMismatch();
    return *dateTime;
}

}  // namespace tb
