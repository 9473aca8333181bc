#pragma once

#include <string>
#include <string_view>

namespace tb {

// UTF-8 text re-encoded as windows-1252, for a page that declares that charset; a character the
// charset lacks becomes a numeric character reference (&#8364; stays readable in any browser).
std::string EncodeWindows1252(std::string_view utf8);

}  // namespace tb
