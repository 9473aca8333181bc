#include "support/Browser.h"

#include <cstdlib>

#include "support/ChildProcess.h"

namespace tb::test {

namespace {

constexpr const char* kChromium =
    "chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run "
    "--disable-background-networking --disable-component-update --disable-sync";

bool Installed(const char* program) {
    return std::system(("command -v " + std::string(program) + " > /dev/null 2>&1").c_str()) == 0;
}

}  // namespace

std::optional<std::string> BrowserView(const std::string& page, const std::string& profile,
                                       int width) {
    if (!Installed("chromium"))
        return std::nullopt;
    const std::string size = width > 0 ? " --window-size=" + std::to_string(width) + ",900" : "";
    return RunShell(std::string(kChromium) + size + " --user-data-dir='" + profile +
                    "' --dump-dom 'file://" + page + "' 2>/dev/null")
        .second;
}

std::optional<std::vector<std::string>> PrintedPages(const std::string& page,
                                                     const std::string& profile) {
    if (!Installed("chromium") || !Installed("pdftotext"))
        return std::nullopt;
    const std::string pdf = profile + "/printed.pdf";
    RunShell(std::string(kChromium) + " --user-data-dir='" + profile +
             "' --no-pdf-header-footer --print-to-pdf='" + pdf + "' 'file://" + page +
             "' 2>/dev/null");
    // pdftotext ends each page with a form feed.
    std::vector<std::string> pages(1);
    for (const char c : RunShell("pdftotext -layout '" + pdf + "' - 2>/dev/null").second) {
        if (c == '\f')
            pages.emplace_back();
        else
            pages.back() += c;
    }
    pages.pop_back();
    return pages;
}

}  // namespace tb::test
