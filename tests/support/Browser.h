#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tb::test {

// The page as headless chromium has built it (its DOM written out), or nullopt when no browser
// is installed. profile is a folder the browser may keep its state in; width, when not 0, is the
// window's width in pixels.
std::optional<std::string> BrowserView(const std::string& page, const std::string& profile,
                                       int width = 0);

// The text of each page of the page printed to PDF on A4, or nullopt when chromium or pdftotext
// is not installed.
std::optional<std::vector<std::string>> PrintedPages(const std::string& page,
                                                     const std::string& profile);

}  // namespace tb::test
