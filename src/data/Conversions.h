#pragma once

// The one place where dates, times and numbers are formatted and parsed. The conversions are
// fixed (English month names, day/month/year dates, 24-hour times, "." decimal) so that every
// figure a club publishes is the same on every machine.

#include <optional>
#include <string>
#include <string_view>

#include "data/Value.h"

namespace tb {

DateTime MakeDateTime(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                      int second = 0);
DateTime Now();    // local wall-clock time, whole seconds
DateTime Today();  // local date at midnight
DateTime DatePart(DateTime t);
long long SecondsOfDay(DateTime t);
int YearOf(DateTime t);
DateTime AddDays(DateTime t, int days);

// A date as a user types it ("is a valid date"): d/m/yy, dd/mm/yyyy, "d mmm yyyy" (English
// month abbreviation or name) and ISO yyyy-mm-dd. Two-digit years 00-29 are 20xx, 30-99 are
// 19xx. Anything else, a time of day included, or an impossible day, is nullopt: a date field
// that kept a typed time would move a handicap's start off midnight.
std::optional<DateTime> ParseTypedDate(std::string_view text);
// The same date followed by an optional time " hh:mm[:ss]", for a text that holds both.
std::optional<DateTime> ParseTypedDateTime(std::string_view text);
bool IsValidDate(std::string_view text);

// A date as other scoring programs write it: numbers in the order the letters d, m and y take in
// Order ("d/m/y", "m-d-y"), any separators, or a month name with a day ("Jan 18", "1st Feb",
// "6th May 2026"). A missing year takes DefaultYear; two-digit years are 20xx. Leading reads only
// the start of the text, up to the first word that is no month ("5-20 R1" is 20 May).
std::optional<DateTime> ParseLooseDate(std::string_view text, std::string_view Order,
                                       int DefaultYear, bool Leading = false);
// Whether the text names a year of its own (four digits, or a third number).
bool LooseDateHasYear(std::string_view text, bool Leading = false);
// Which forms a clock time may take. Loose, as other scoring programs write times of day and
// durations under a day: HH.MM.SS, HH:MM:SS, H:MM:SS, HH:MM or HHMMSS, with fields of one or
// two digits and either separator. Strict, as a timing app or a spreadsheet writes a time of
// day: "hhmmss", "h:mm:ss" or "h.mm.ss", two-digit minutes and seconds and one separator
// throughout; a fraction of a second after "h:mm:ss" is dropped.
enum class ClockForm { Loose, Strict };
// Seconds since midnight (or of the duration).
std::optional<long long> ParseClockTime(std::string_view text, ClockForm form = ClockForm::Loose);

// The database's storage form "YYYY-MM-DD HH:MM:SS" (a date alone is accepted too).
std::optional<DateTime> ParseStoredDateTime(std::string_view text);
std::string ToStoredDateTime(DateTime t);

// A number as typed: optional blanks, sign, digits with "." decimal and optional exponent.
std::optional<double> ParseNumber(std::string_view text);
bool IsNumeric(std::string_view text);

double RoundHalfEven(double x);
double RoundHalfAwayFromZero(double x, int decimals = 0);

// Visual Basic style Format for the format strings the system uses:
//   dates:   "dd mmm yyyy", "dd/mm/yyyy", "dd/mm/yy", "hh:mm", "hhmm", "hhmmss",
//            "dd mmm yyyy hh:nn:ss", "mmdd_hhmm" (mm after hh is minutes, nn is minutes)
//   numbers: "0.000", "0.0", "00", "0", "+0.00; -0.00" (rounded half away from zero)
//   text:    "@" and "!" placeholders pad with blanks; "!" fills from the left
std::string FormatDate(DateTime t, std::string_view format);
std::string FormatNumber(double x, std::string_view format);
std::string FormatText(std::string_view text, std::string_view format);
// Texts are UTF-8; columns and positions count characters, not bytes, so "Zoë" takes three.
std::size_t CharacterCount(std::string_view text);
// The character at a position counted from 0, empty past the end.
std::string_view CharacterAt(std::string_view text, std::size_t index);
// Dispatches on the value's type; Null gives an empty text.
std::string Format(const Value& v, std::string_view format);

// Whole seconds as h:mm:ss with unpadded hours (results tables).
std::string FormatDuration(long long seconds);

// The ordinary conversion of a value to text: numbers as the shortest text with at most 15
// significant digits (4080, 2.5, 0.985); dates as dd/mm/yyyy with " hh:mm:ss" when the time is
// not midnight; Booleans True/False; Null as empty.
std::string ToText(const Value& v);
std::string NumberToText(double x);

}  // namespace tb
