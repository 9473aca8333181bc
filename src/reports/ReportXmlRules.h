#pragma once

// What the report writers share: the line break, the declaration, the attribute value writer,
// the header attributes that close every root start tag, the class link rule and the penalty
// note. The element and attribute names and their order are the contract with the style sheets.

#include <functional>
#include <string>

#include "data/Value.h"

namespace tb {

inline constexpr const char* kCrLf = "\r\n";
inline constexpr const char* kXmlDeclaration = "<?xml version=\"1.0\" ?>";

// The value's ordinary text between double quotes, with & " < > written as &#38; &#34; &#60;
// &#62; and nothing else replaced; a Null value is written as "". Characters XML cannot hold
// (controls other than tab and line breaks, U+FFFE, U+FFFF) are left out, and bytes that are not
// UTF-8 are written as U+FFFD.
std::string AttributeValue(const Value& value);

// A class footnote as element content: kept as typed when it is well-formed markup (so <b> and
// links keep working); otherwise (a lone "&" or "<") written as text with & < > escaped, so the
// report is still made. Characters XML cannot hold are treated as in AttributeValue.
std::string FootnoteContent(const std::string& footnote);

// ReportDate, ReportTime, ReportType and Entrants, then the ">" that closes the root start tag.
std::string HeaderAttributes(short Option, const std::string& Letter);

// The report type a report letter stands for; empty for an unknown letter.
std::string ReportTypeOf(const std::string& Letter);

// "class1" to "class4" when the class name's seventh character is a digit 1 to 4,
// "classmultihulls" when it is "u", otherwise empty.
std::string ClassLink(const std::string& ClassName);

// Appends a penalty such as "+10min" or "+2.5%" to the note, after a blank when the note has
// text already; a zero or Null penalty adds nothing.
void AppendPenaltyNote(const Value& Penalty, const std::string& Unit, std::string& Note);

// Runs a writer that touches no database and turns a run-time error into the "C-Error" text for
// its location.
std::string RunWriter(const char* location, const std::function<std::string()>& body);

}  // namespace tb
