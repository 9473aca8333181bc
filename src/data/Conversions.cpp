#include "data/Conversions.h"

#include <time.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

namespace tb {

namespace {

using namespace std::chrono;

constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 12> kMonthNames = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Reads 1..maxDigits digits; advances pos.
std::optional<int> ReadNumber(std::string_view s, std::size_t& pos, std::size_t maxDigits) {
    std::size_t start = pos;
    int n = 0;
    while (pos < s.size() && IsDigit(s[pos]) && pos - start < maxDigits) {
        n = n * 10 + (s[pos] - '0');
        ++pos;
    }
    if (pos == start)
        return std::nullopt;
    if (pos < s.size() && IsDigit(s[pos]))
        return std::nullopt;
    return n;
}

std::optional<unsigned> MonthFromName(std::string_view name) {
    std::string lower;
    for (char c : name)
        lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    if (lower.size() < 3)
        return std::nullopt;
    for (unsigned m = 0; m < 12; ++m) {
        const std::string full = kMonthNames[m];
        if (lower == full || lower == full.substr(0, 3))
            return m + 1;
    }
    return std::nullopt;
}

std::optional<DateTime> Checked(int y, int m, int d, int hh = 0, int mi = 0, int ss = 0) {
    if (y < 100 && y >= 0)
        y += y < 30 ? 2000 : 1900;
    if (y < 1 || y > 9999 || m < 1 || m > 12 || d < 1)
        return std::nullopt;
    const year_month_day ymd{year{y}, month{static_cast<unsigned>(m)},
                             day{static_cast<unsigned>(d)}};
    if (!ymd.ok())
        return std::nullopt;
    if (hh < 0 || hh > 23 || mi < 0 || mi > 59 || ss < 0 || ss > 59)
        return std::nullopt;
    return sys_days(ymd) + hours(hh) + minutes(mi) + seconds(ss);
}

// An optional " hh:mm[:ss]" after a date, read only where a time of day belongs.
bool ReadTime(std::string_view s, std::size_t& pos, bool withTime, int& hh, int& mi, int& ss) {
    hh = mi = ss = 0;
    if (pos == s.size())
        return true;
    if (!withTime || s[pos] != ' ')
        return false;
    while (pos < s.size() && s[pos] == ' ')
        ++pos;
    auto h = ReadNumber(s, pos, 2);
    if (!h || pos >= s.size() || s[pos] != ':')
        return false;
    ++pos;
    auto m = ReadNumber(s, pos, 2);
    if (!m)
        return false;
    hh = *h;
    mi = *m;
    if (pos < s.size() && s[pos] == ':') {
        ++pos;
        auto sec = ReadNumber(s, pos, 2);
        if (!sec)
            return false;
        ss = *sec;
    }
    return pos == s.size();
}

year_month_day Ymd(DateTime t) {
    return year_month_day{floor<days>(t)};
}

std::string Pad2(long long n) {
    char buf[24];
    std::snprintf(buf, sizeof buf, "%02lld", n);
    return buf;
}

// The shortest decimal text that reads back as x, at most 15 significant digits: printf's %.15g,
// written without printf's cost (a report writes tens of thousands of numbers).
std::string ShortestDecimal(double x, int significant = 15) {
    char buf[64];
    const auto written =
        std::to_chars(buf, buf + sizeof buf, x, std::chars_format::general, significant);
    return std::string(buf, written.ptr);
}

}  // namespace

DateTime MakeDateTime(int year, unsigned month, unsigned day, int hour, int minute, int second) {
    return sys_days(std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}) +
           hours(hour) + minutes(minute) + seconds(second);
}

DateTime Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return MakeDateTime(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                        static_cast<unsigned>(local.tm_mday), local.tm_hour, local.tm_min,
                        local.tm_sec);
}

DateTime Today() {
    return DatePart(Now());
}

DateTime DatePart(DateTime t) {
    return floor<days>(t);
}

long long SecondsOfDay(DateTime t) {
    return (t - floor<days>(t)).count();
}

int YearOf(DateTime t) {
    return static_cast<int>(Ymd(t).year());
}
DateTime AddDays(DateTime t, int n) {
    return t + days(n);
}

namespace {

std::optional<DateTime> ParseDate(std::string_view text, bool withTime) {
    const std::string_view s = Trim(text);
    if (s.empty())
        return std::nullopt;
    std::size_t pos = 0;
    int hh = 0, mi = 0, ss = 0;
    // ISO: yyyy-mm-dd
    if (s.size() >= 10 && IsDigit(s[0]) && s[4] == '-') {
        auto y = ReadNumber(s, pos, 4);
        if (!y || pos != 4)
            return std::nullopt;
        ++pos;
        auto m = ReadNumber(s, pos, 2);
        if (!m || pos >= s.size() || s[pos] != '-')
            return std::nullopt;
        ++pos;
        auto d = ReadNumber(s, pos, 2);
        if (!d || !ReadTime(s, pos, withTime, hh, mi, ss))
            return std::nullopt;
        return Checked(*y, *m, *d, hh, mi, ss);
    }
    auto d = ReadNumber(s, pos, 2);
    if (!d || pos >= s.size())
        return std::nullopt;
    if (s[pos] == '/') {
        ++pos;
        auto m = ReadNumber(s, pos, 2);
        if (!m || pos >= s.size() || s[pos] != '/')
            return std::nullopt;
        ++pos;
        const std::size_t yearStart = pos;
        auto y = ReadNumber(s, pos, 4);
        if (!y)
            return std::nullopt;
        const std::size_t digits = pos - yearStart;
        if (digits != 2 && digits != 4)
            return std::nullopt;
        if (!ReadTime(s, pos, withTime, hh, mi, ss))
            return std::nullopt;
        if (digits == 4 && *y < 100)
            return std::nullopt;
        return Checked(*y, *m, *d, hh, mi, ss);
    }
    if (s[pos] != ' ')
        return std::nullopt;
    while (pos < s.size() && s[pos] == ' ')
        ++pos;
    const std::size_t nameStart = pos;
    while (pos < s.size() && std::isalpha(static_cast<unsigned char>(s[pos])))
        ++pos;
    auto m = MonthFromName(s.substr(nameStart, pos - nameStart));
    if (!m || pos >= s.size() || s[pos] != ' ')
        return std::nullopt;
    while (pos < s.size() && s[pos] == ' ')
        ++pos;
    const std::size_t yearStart = pos;
    auto y = ReadNumber(s, pos, 4);
    if (!y)
        return std::nullopt;
    const std::size_t digits = pos - yearStart;
    if (digits != 2 && digits != 4)
        return std::nullopt;
    if (digits == 4 && *y < 100)
        return std::nullopt;
    if (!ReadTime(s, pos, withTime, hh, mi, ss))
        return std::nullopt;
    return Checked(*y, static_cast<int>(*m), *d, hh, mi, ss);
}

}  // namespace

std::optional<DateTime> ParseTypedDate(std::string_view text) {
    return ParseDate(text, false);
}

std::optional<DateTime> ParseTypedDateTime(std::string_view text) {
    return ParseDate(text, true);
}

namespace {

// The numbers and month of a loosely written date, in the order they stand.
struct LooseParts {
    std::vector<int> numbers;
    std::vector<std::size_t> digits;
    std::optional<unsigned> month;
};

LooseParts SplitLooseDate(std::string_view s, bool leading) {
    LooseParts parts;
    std::size_t pos = 0;
    while (pos < s.size()) {
        const char c = s[pos];
        if (IsDigit(c)) {
            const std::size_t start = pos;
            int n = 0;
            while (pos < s.size() && IsDigit(s[pos]) && pos - start < 6)
                n = n * 10 + (s[pos++] - '0');
            parts.numbers.push_back(n);
            parts.digits.push_back(pos - start);
            // An ordinal ending (1st, 2nd, 3rd, 4th) belongs to the number.
            const std::string_view rest = s.substr(pos, 2);
            if (rest == "st" || rest == "nd" || rest == "rd" || rest == "th")
                pos += 2;
        } else if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
            const std::size_t start = pos;
            while (pos < s.size() && ((s[pos] >= 'A' && s[pos] <= 'Z') ||
                                      (s[pos] >= 'a' && s[pos] <= 'z') || s[pos] == '.'))
                ++pos;
            std::string_view word = s.substr(start, pos - start);
            while (!word.empty() && word.back() == '.')
                word.remove_suffix(1);
            const auto month = MonthFromName(word);
            if (!month && leading)
                break;
            if (month && !parts.month)
                parts.month = month;
        } else {
            ++pos;
        }
    }
    return parts;
}

}  // namespace

std::optional<DateTime> ParseLooseDate(std::string_view text, std::string_view Order,
                                       int DefaultYear, bool Leading) {
    const LooseParts parts = SplitLooseDate(text, Leading);
    int y = DefaultYear;
    int m = 0;
    int d = 0;
    if (parts.month) {
        if (parts.numbers.empty() || parts.numbers.size() > 2)
            return std::nullopt;
        m = static_cast<int>(*parts.month);
        d = parts.numbers[0];
        if (parts.numbers.size() == 2)
            y = parts.numbers[1];
    } else {
        if (parts.numbers.size() < 2 || parts.numbers.size() > 3)
            return std::nullopt;
        // The order of the letters d, m and y; a date without a year keeps d and m in order.
        std::string letters;
        for (char c : Order) {
            const char lower = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
            if ((lower == 'd' || lower == 'm' || lower == 'y') &&
                letters.find(lower) == std::string::npos)
                letters += lower;
        }
        if (letters.size() != 3)
            letters = "dmy";
        // Four digits first mean the year leads whatever the order says (2026-05-07).
        if (parts.numbers.size() == 3 && parts.digits[0] == 4)
            letters = "ymd";
        if (parts.numbers.size() == 2)
            letters.erase(letters.find('y'), 1);
        for (std::size_t i = 0; i < letters.size(); ++i) {
            (letters[i] == 'd' ? d : letters[i] == 'm' ? m : y) = parts.numbers[i];
        }
    }
    return Checked(y, m, d);
}

bool LooseDateHasYear(std::string_view text, bool Leading) {
    const LooseParts parts = SplitLooseDate(text, Leading);
    return parts.numbers.size() == (parts.month ? 2u : 3u);
}

std::optional<long long> ParseClockTime(std::string_view text, ClockForm form) {
    const std::string_view s = Trim(text);
    const bool strict = form == ClockForm::Strict;
    std::vector<int> fields;
    if (s.size() == 6 && std::all_of(s.begin(), s.end(), IsDigit)) {
        for (std::size_t i = 0; i < 6; i += 2)
            fields.push_back((s[i] - '0') * 10 + (s[i + 1] - '0'));
    } else {
        std::size_t pos = 0;
        char separator = '\0';
        while (true) {
            const std::size_t start = pos;
            const auto n = ReadNumber(s, pos, 2);
            if (!n || (strict && !fields.empty() && pos - start != 2))
                return std::nullopt;
            fields.push_back(*n);
            if (pos == s.size())
                break;
            if (fields.size() == 3) {
                // A fraction of a second after "h:mm:ss" (a spreadsheet's) is dropped.
                if (strict && separator == ':' && s[pos] == '.' && pos + 1 < s.size() &&
                    std::all_of(s.begin() + static_cast<std::ptrdiff_t>(pos) + 1, s.end(), IsDigit))
                    break;
                return std::nullopt;
            }
            if ((s[pos] != ':' && s[pos] != '.') ||
                (strict && separator != '\0' && s[pos] != separator))
                return std::nullopt;
            separator = s[pos++];
        }
        if (fields.size() < (strict ? 3u : 2u))
            return std::nullopt;
        if (fields.size() == 2)
            fields.push_back(0);
    }
    if (fields[0] > 23 || fields[1] > 59 || fields[2] > 59)
        return std::nullopt;
    return fields[0] * 3600LL + fields[1] * 60LL + fields[2];
}

bool IsValidDate(std::string_view text) {
    return ParseTypedDate(text).has_value();
}

std::optional<DateTime> ParseStoredDateTime(std::string_view s) {
    if (s.size() != 10 && s.size() != 19)
        return std::nullopt;
    auto digits = [&](std::size_t from, std::size_t count) -> std::optional<int> {
        int n = 0;
        for (std::size_t i = from; i < from + count; ++i) {
            if (!IsDigit(s[i]))
                return std::nullopt;
            n = n * 10 + (s[i] - '0');
        }
        return n;
    };
    if (s[4] != '-' || s[7] != '-')
        return std::nullopt;
    auto y = digits(0, 4), m = digits(5, 2), d = digits(8, 2);
    if (!y || !m || !d)
        return std::nullopt;
    if (s.size() == 10)
        return Checked(*y < 100 ? *y + 10000 : *y, *m, *d);
    if (s[10] != ' ' || s[13] != ':' || s[16] != ':')
        return std::nullopt;
    auto hh = digits(11, 2), mi = digits(14, 2), ss = digits(17, 2);
    if (!hh || !mi || !ss)
        return std::nullopt;
    return Checked(*y < 100 ? *y + 10000 : *y, *m, *d, *hh, *mi, *ss);
}

std::string ToStoredDateTime(DateTime t) {
    const auto ymd = Ymd(t);
    const long long secs = SecondsOfDay(t);
    char buf[96];
    std::snprintf(buf, sizeof buf, "%04d-%02u-%02u %02lld:%02lld:%02lld",
                  static_cast<int>(ymd.year()), static_cast<unsigned>(ymd.month()),
                  static_cast<unsigned>(ymd.day()), secs / 3600, secs / 60 % 60, secs % 60);
    return buf;
}

std::optional<double> ParseNumber(std::string_view text) {
    const std::string_view s = Trim(text);
    if (s.empty())
        return std::nullopt;
    std::size_t pos = 0;
    if (s[pos] == '+' || s[pos] == '-')
        ++pos;
    std::size_t mantissaDigits = 0;
    while (pos < s.size() && IsDigit(s[pos]))
        ++pos, ++mantissaDigits;
    if (pos < s.size() && s[pos] == '.') {
        ++pos;
        while (pos < s.size() && IsDigit(s[pos]))
            ++pos, ++mantissaDigits;
    }
    if (mantissaDigits == 0)
        return std::nullopt;
    if (pos < s.size() && (s[pos] == 'e' || s[pos] == 'E')) {
        ++pos;
        if (pos < s.size() && (s[pos] == '+' || s[pos] == '-'))
            ++pos;
        std::size_t expDigits = 0;
        while (pos < s.size() && IsDigit(s[pos]))
            ++pos, ++expDigits;
        if (expDigits == 0)
            return std::nullopt;
    }
    if (pos != s.size())
        return std::nullopt;
    const std::string_view number = s[0] == '+' ? s.substr(1) : s;
    double value = 0;
    const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (ec != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

double RoundHalfEven(double x) {
    return std::nearbyint(x);
}

double RoundHalfAwayFromZero(double x, int decimals) {
    // Round the decimal text that x stands for, not its binary neighbour: 2.675 is "2.675".
    const std::string text = ShortestDecimal(std::fabs(x));
    const double scale = std::pow(10.0, decimals);
    double decimal = std::fabs(x);
    std::from_chars(text.data(), text.data() + text.size(), decimal);
    const double exact = decimal * scale;
    const double eps = std::fabs(exact) * 1e-13;
    double r = std::floor(exact + 0.5 + eps);
    r /= scale;
    return std::signbit(x) && r != 0.0 ? -r : r;
}

std::string FormatDate(DateTime t, std::string_view format) {
    const auto ymd = Ymd(t);
    const long long secs = SecondsOfDay(t);
    const long long hh = secs / 3600, mi = secs / 60 % 60, ss = secs % 60;
    std::string out;
    bool afterHour = false;
    std::size_t i = 0;
    auto starts = [&](const char* token) { return format.substr(i).rfind(token, 0) == 0; };
    while (i < format.size()) {
        if (starts("yyyy")) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "%04d", static_cast<int>(ymd.year()));
            out += buf;
            i += 4;
            afterHour = false;
        } else if (starts("yy")) {
            out += Pad2(static_cast<int>(ymd.year()) % 100);
            i += 2;
            afterHour = false;
        } else if (starts("mmm")) {
            out += kMonths[static_cast<unsigned>(ymd.month()) - 1];
            i += 3;
            afterHour = false;
        } else if (starts("mm")) {
            out += afterHour ? Pad2(mi) : Pad2(static_cast<unsigned>(ymd.month()));
            i += 2;
            afterHour = false;
        } else if (starts("dd")) {
            out += Pad2(static_cast<unsigned>(ymd.day()));
            i += 2;
            afterHour = false;
        } else if (starts("d")) {
            out += std::to_string(static_cast<unsigned>(ymd.day()));
            i += 1;
            afterHour = false;
        } else if (starts("hh")) {
            out += Pad2(hh);
            i += 2;
            afterHour = true;
        } else if (starts("h")) {
            out += std::to_string(hh);
            i += 1;
            afterHour = true;
        } else if (starts("nn")) {
            out += Pad2(mi);
            i += 2;
            afterHour = false;
        } else if (starts("ss")) {
            out += Pad2(ss);
            i += 2;
            afterHour = false;
        } else {
            out += format[i];
            ++i;
        }
    }
    return out;
}

std::string FormatNumber(double x, std::string_view format) {
    const auto semicolon = format.find(';');
    std::string_view section = format;
    bool negativeSection = false;
    if (semicolon != std::string_view::npos) {
        const double rounded = RoundHalfAwayFromZero(x, 2);
        if (rounded < 0) {
            section = format.substr(semicolon + 1);
            negativeSection = true;
        } else {
            section = format.substr(0, semicolon);
        }
    }
    const auto first = section.find_first_of("0#");
    const auto last = section.find_last_of("0#");
    if (first == std::string_view::npos)
        return std::string(section);
    const std::string_view pattern = section.substr(first, last - first + 1);
    const auto dot = pattern.find('.');
    const int decimals =
        dot == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - dot - 1);
    const std::size_t intDigits = dot == std::string_view::npos ? pattern.size() : dot;
    const double value = negativeSection ? std::fabs(x) : x;
    const double rounded = RoundHalfAwayFromZero(value, decimals);
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, std::fabs(rounded));
    std::string digits = buf;
    const std::size_t have =
        digits.find('.') == std::string::npos ? digits.size() : digits.find('.');
    if (have < intDigits)
        digits.insert(0, intDigits - have, '0');
    if (!negativeSection && rounded < 0)
        digits.insert(0, "-");
    return std::string(section.substr(0, first)) + digits + std::string(section.substr(last + 1));
}

namespace {

bool IsContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (char c : text)
        count += IsContinuationByte(c) ? 0 : 1;
    return count;
}

std::string_view CharacterAt(std::string_view text, std::size_t index) {
    std::size_t start = 0;
    for (std::size_t seen = 0; start < text.size(); ++start) {
        if (!IsContinuationByte(text[start]) && seen++ == index)
            break;
    }
    std::size_t end = start + 1;
    while (end < text.size() && IsContinuationByte(text[end]))
        ++end;
    return start < text.size() ? text.substr(start, end - start) : std::string_view();
}

std::string FormatText(std::string_view text, std::string_view format) {
    std::size_t placeholders = 0;
    bool fromLeft = false;
    for (char c : format) {
        if (c == '@')
            ++placeholders;
        if (c == '!')
            fromLeft = true;
    }
    std::string out(text);
    const std::size_t characters = CharacterCount(out);
    if (characters >= placeholders)
        return out;
    const std::string padding(placeholders - characters, ' ');
    return fromLeft ? out + padding : padding + out;
}

std::string Format(const Value& v, std::string_view format) {
    if (v.IsNull())
        return {};
    if (v.IsDate())
        return FormatDate(v.AsDate(), format);
    if (v.IsNumber() || v.IsBool())
        return FormatNumber(v.AsDouble(), format);
    const std::string& text = std::get<std::string>(v.storage());
    if (format.find_first_of("@!") != std::string_view::npos)
        return FormatText(text, format);
    if (format.find_first_of("0#") != std::string_view::npos) {
        if (auto n = ParseNumber(text))
            return FormatNumber(*n, format);
    }
    if (auto t = ParseStoredDateTime(text))
        return FormatDate(*t, format);
    if (auto t = ParseTypedDateTime(text))
        return FormatDate(*t, format);
    return text;
}

std::string FormatDuration(long long seconds) {
    const bool negative = seconds < 0;
    const long long s = negative ? -seconds : seconds;
    return (negative ? "-" : "") + std::to_string(s / 3600) + ":" + Pad2(s / 60 % 60) + ":" +
           Pad2(s % 60);
}

std::string NumberToText(double x) {
    if (x == 0.0)
        return "0";
    std::string text = ShortestDecimal(x);
    const auto e = text.find('e');
    if (e == std::string::npos)
        return text;
    // Basic writes exponents as E+20 / E-05.
    std::string mantissa = text.substr(0, e);
    int exponent = std::stoi(text.substr(e + 1));
    char buf[16];
    std::snprintf(buf, sizeof buf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return mantissa + buf;
}

std::string ToText(const Value& v) {
    return std::visit(
        [](const auto& x) -> std::string {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<T, bool>) {
                return x ? "True" : "False";
            } else if constexpr (std::is_same_v<T, std::int64_t>) {
                return std::to_string(x);
            } else if constexpr (std::is_same_v<T, double>) {
                return NumberToText(x);
            } else if constexpr (std::is_same_v<T, std::string>) {
                return x;
            } else {
                const long long secs = SecondsOfDay(x);
                std::string text = FormatDate(x, "dd/mm/yyyy");
                if (secs != 0)
                    text += " " + FormatDate(x, "hh:nn:ss");
                return text;
            }
        },
        v.storage());
}

}  // namespace tb
