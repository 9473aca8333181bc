#pragma once

// Turns the fuzzer's bytes into the values a query hands the report writers: Null, Booleans,
// whole numbers, doubles of every bit pattern, dates and UTF-8 text of any letters (controls
// included), up to a few thousand characters long, now and then with a byte that is not UTF-8 at
// all, as text another program wrote in some other charset.

#include <chrono>
#include <cstdint>
#include <cstring>
#include <string>

#include "data/Value.h"

namespace tb::fuzz {

class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool Exhausted() const { return next_ >= size_; }

    // The next byte; 0 once the input is used up, so every read is defined.
    std::uint8_t Byte() { return next_ < size_ ? data_[next_++] : 0; }

    std::uint64_t Bytes(int count) {
        std::uint64_t bits = 0;
        for (int i = 0; i < count; ++i)
            bits = bits << 8 | Byte();
        return bits;
    }

    std::string Text() {
        std::size_t length = Byte();
        if (length > 240)
            length = (length - 240) * 250;
        std::string text;
        for (std::size_t i = 0; i < length && !Exhausted(); ++i) {
            const std::uint8_t first = Byte();
            if (first >= 0xF8)
                text += static_cast<char>(Byte() | 0x80);
            else
                AppendUtf8(text, CodePoint(first));
        }
        return text;
    }

    Value AnyValue() {
        switch (Byte() % 7) {
            case 0:
                return Value();
            case 1:
                return Value(static_cast<bool>(Byte() & 1));
            case 2:
                return Value(static_cast<long long>(Bytes(8)));
            case 3:
                return Value(static_cast<long long>(Byte()) - 128);
            case 4: {
                const std::uint64_t bits = Bytes(8);
                double number;
                std::memcpy(&number, &bits, sizeof number);
                return Value(number);
            }
            case 5: {
                // Years 100 to 9999, the range a date column holds.
                constexpr long long first = -58'979'923'200LL;
                constexpr long long span = 315'472'060'800LL;
                const auto seconds = static_cast<long long>(Bytes(5) % span) + first;
                return Value(DateTime(std::chrono::seconds(seconds)));
            }
            default:
                return Value(Text());
        }
    }

private:
    // Mostly ASCII, controls included; now and then any letter outside the surrogates.
    char32_t CodePoint(std::uint8_t first) {
        if (first < 0x80)
            return first;
        const char32_t code = static_cast<char32_t>(Bytes(3) % 0x110000);
        return code >= 0xD800 && code <= 0xDFFF ? code - 0x800 : code;
    }

    static void AppendUtf8(std::string& text, char32_t code) {
        if (code < 0x80) {
            text += static_cast<char>(code);
        } else if (code < 0x800) {
            text += static_cast<char>(0xC0 | code >> 6);
            text += static_cast<char>(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            text += static_cast<char>(0xE0 | code >> 12);
            text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (code & 0x3F));
        } else {
            text += static_cast<char>(0xF0 | code >> 18);
            text += static_cast<char>(0x80 | (code >> 12 & 0x3F));
            text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (code & 0x3F));
        }
    }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t next_ = 0;
};

}  // namespace tb::fuzz
