#pragma once

#include <optional>
#include <string>

namespace tb::test {

// The page as headless chromium has built it (its DOM written out), or nullopt when no browser
// is installed. profile is a folder the browser may keep its state in.
std::optional<std::string> BrowserView(const std::string& page, const std::string& profile);

}  // namespace tb::test
