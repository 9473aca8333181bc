#include "reports/Charset.h"

#include <iconv.h>

#include <cerrno>
#include <memory>
#include <stdexcept>
#include <vector>

namespace tb {

namespace {

class Converter {
public:
    Converter(const char* to, const char* from) : cd_(iconv_open(to, from)) {
        if (cd_ == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error(std::string("No conversion from ") + from + " to " + to);
    }
    ~Converter() { iconv_close(cd_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Converts all of in; false (with nothing converted) when the input cannot be converted.
    bool Convert(const char* in, std::size_t size, std::string& out) {
        iconv(cd_, nullptr, nullptr, nullptr, nullptr);
        char* source = const_cast<char*>(in);
        std::size_t left = size;
        std::vector<char> buffer(size * 4 + 8);
        char* target = buffer.data();
        std::size_t room = buffer.size();
        if (iconv(cd_, &source, &left, &target, &room) == static_cast<std::size_t>(-1))
            return false;
        out.append(buffer.data(), buffer.size() - room);
        return true;
    }

private:
    iconv_t cd_;
};

// The bytes of the well-formed UTF-8 character (not ASCII) at the position, 0 when the bytes there
// are not one (a stray continuation byte, an overlong form, a surrogate, beyond U+10FFFF, cut
// short).
std::size_t Utf8CharacterLength(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0u;
    };
    const unsigned lead = byte(0);
    // The second byte's range depends on the lead byte; later ones are always 80 to BF.
    unsigned low = 0x80, high = 0xBF;
    std::size_t length = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
        high = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    } else {
        return 0;
    }
    if (byte(1) < low || byte(1) > high)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF)
            return 0;
    }
    return length;
}

}  // namespace

std::string WithValidUtf8(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (static_cast<unsigned char>(text[i]) < 0x80) {
            valid += text[i++];
        } else if (const std::size_t length = Utf8CharacterLength(text, i)) {
            valid.append(text.substr(i, length));
            i += length;
        } else {
            valid += "\xEF\xBF\xBD";
            ++i;
        }
    }
    return valid;
}

std::string EncodeWindows1252(std::string_view utf8) {
    Converter toCodePoints("UTF-32LE", "UTF-8");
    Converter toWindows("WINDOWS-1252", "UTF-32LE");
    std::string encoded;
    encoded.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            encoded += utf8[i++];
            continue;
        }
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        std::string codePoint;
        if (i + length > utf8.size() || !toCodePoints.Convert(utf8.data() + i, length, codePoint) ||
            codePoint.size() != 4) {
            // Not UTF-8 at all: the replacement character says so instead of garbling the page.
            encoded += "&#65533;";
            ++i;
            continue;
        }
        if (!toWindows.Convert(codePoint.data(), codePoint.size(), encoded)) {
            const auto* b = reinterpret_cast<const unsigned char*>(codePoint.data());
            const unsigned long value =
                b[0] | (b[1] << 8) | (b[2] << 16) | (static_cast<unsigned long>(b[3]) << 24);
            encoded += "&#" + std::to_string(value) + ";";
        }
        i += length;
    }
    return encoded;
}

}  // namespace tb
