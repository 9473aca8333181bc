#pragma once

#include <stdexcept>
#include <string>

namespace tb {

// A run-time error raised by the program itself (a text that does not convert, a row that is
// not there). Operations catch it at their boundary and turn it into a "C-Error" message.
class RunTimeFault : public std::runtime_error {
public:
    RunTimeFault(long number, std::string description)
        : std::runtime_error(description), number_(number), description_(std::move(description)) {}

    long number() const { return number_; }
    const std::string& description() const { return description_; }

    static RunTimeFault TypeMismatch() { return {13, "Type mismatch"}; }
    static RunTimeFault Overflow() { return {6, "Overflow"}; }
    static RunTimeFault NoCurrentRecord() {
        return {3021,
                "Either BOF or EOF is True, or the current record has been deleted. Requested "
                "operation requires a current record."};
    }

private:
    long number_;
    std::string description_;
};

// The source named in messages for faults the program raises itself.
inline constexpr const char* kProgramSource = "Tallyboard";

}  // namespace tb
