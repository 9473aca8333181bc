#include "support/Browser.h"

#include <cstdio>
#include <cstdlib>

namespace tb::test {

std::optional<std::string> BrowserView(const std::string& page, const std::string& profile) {
    if (std::system("command -v chromium > /dev/null 2>&1") != 0)
        return std::nullopt;
    const std::string command = "chromium --headless --no-sandbox --disable-gpu --user-data-dir='" +
                                profile + "' --dump-dom 'file://" + page + "' 2>/dev/null";
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return std::nullopt;
    std::string dom;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        dom.append(buffer, n);
    ::pclose(pipe);
    return dom;
}

}  // namespace tb::test
