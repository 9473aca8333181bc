#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tb {

// A wall-clock date and time with whole seconds, as the database keeps it: no time zone.
using DateTime = std::chrono::sys_seconds;

// One database value: Null, Boolean, integer, double, text or date-time. Values keep the type
// their column has, so a Yes/No column reads back as a Boolean and a Date/Time as a DateTime.
class Value {
public:
    using Storage = std::variant<std::monostate, bool, std::int64_t, double, std::string, DateTime>;

    Value() = default;
    Value(bool b) : v_(b) {}
    Value(int i) : v_(static_cast<std::int64_t>(i)) {}
    Value(long i) : v_(static_cast<std::int64_t>(i)) {}
    Value(long long i) : v_(static_cast<std::int64_t>(i)) {}
    Value(double d) : v_(d) {}
    Value(std::string s) : v_(std::move(s)) {}
    Value(std::string_view s) : v_(std::string(s)) {}
    Value(const char* s) : v_(std::string(s)) {}
    Value(DateTime t) : v_(t) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(v_); }
    bool IsBool() const { return std::holds_alternative<bool>(v_); }
    bool IsInt() const { return std::holds_alternative<std::int64_t>(v_); }
    bool IsDouble() const { return std::holds_alternative<double>(v_); }
    bool IsNumber() const { return IsInt() || IsDouble(); }
    bool IsText() const { return std::holds_alternative<std::string>(v_); }
    bool IsDate() const { return std::holds_alternative<DateTime>(v_); }

    // Conversions as the system uses them: Null is 0 / False / empty; text that is not a number
    // raises the "Type mismatch" run-time error.
    bool AsBool() const;
    std::int64_t AsInt() const;  // a double is rounded half to even, as a whole-number conversion
    double AsDouble() const;
    DateTime AsDate() const;
    // The ordinary conversion to text (numbers shortest, dates dd/mm/yyyy[ hh:mm:ss]).
    std::string ToText() const;

    const Storage& storage() const { return v_; }
    bool operator==(const Value& other) const = default;

private:
    Storage v_;
};

}  // namespace tb
