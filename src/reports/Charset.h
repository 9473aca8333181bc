#pragma once

#include <string>
#include <string_view>

namespace tb {

// UTF-8 text re-encoded as windows-1252, for a page that declares that charset; a character the
// charset lacks becomes a numeric character reference (&#8364; stays readable in any browser).
std::string EncodeWindows1252(std::string_view utf8);

// The text with every byte that is not part of a well-formed UTF-8 character replaced by U+FFFD,
// so that text another program wrote in some other charset still reads, marked where it went
// wrong, instead of stopping the report.
std::string WithValidUtf8(std::string_view text);

}  // namespace tb
