// Feeds arbitrary text to the parsers of what a race officer types and of what the file stores:
// none may crash, and a date they accept must read back as the same day once written out again.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/Conversions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    if (const auto date = tb::ParseTypedDate(text)) {
        const std::string shown = tb::FormatDate(*date, "dd/mm/yyyy");
        if (tb::ParseTypedDate(shown) != tb::DatePart(*date))
            std::abort();
    }
    if (const auto stored = tb::ParseStoredDateTime(text)) {
        if (tb::ParseStoredDateTime(tb::ToStoredDateTime(*stored)) != stored)
            std::abort();
    }
    if (const auto number = tb::ParseNumber(text)) {
        tb::FormatNumber(*number, "0.000");
        tb::NumberToText(*number);
    }
    tb::FormatText(text, "@@@@@@@!");
    return 0;
}
