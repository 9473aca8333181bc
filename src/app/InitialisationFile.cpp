#include <fstream>
#include <optional>

#include "app/Globals.h"
#include "data/Messages.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {

std::string TrimBlanks(std::string line) {
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    const auto first = line.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

std::optional<short> DigitAt(const std::string& line, std::size_t pos) {
    if (pos >= line.size() || line[pos] < '0' || line[pos] > '9')
        return std::nullopt;
    return static_cast<short>(line[pos] - '0');
}

// Caption "=" style sheet "," output object "," output file "," digit, separator, digit.
std::optional<ReportAction> ParseAction(const std::string& line) {
    const auto eq = line.find('=');
    const auto c1 = line.find(',');
    if (eq == std::string::npos || c1 == std::string::npos || c1 < eq)
        return std::nullopt;
    const auto c2 = line.find(',', c1 + 1);
    if (c2 == std::string::npos)
        return std::nullopt;
    const auto c3 = line.find(',', c2 + 1);
    if (c3 == std::string::npos)
        return std::nullopt;
    const auto option = DigitAt(line, c3 + 1);
    const auto viewer = DigitAt(line, c3 + 3);
    if (!option || !viewer)
        return std::nullopt;
    ReportAction action;
    action.Caption = line.substr(0, eq);
    action.StyleSheet = line.substr(eq + 1, c1 - eq - 1);
    action.OutputObject = line.substr(c1 + 1, c2 - c1 - 1);
    action.OutputFile = line.substr(c2 + 1, c3 - c2 - 1);
    action.Option = *option;
    action.Viewer = *viewer;
    return action;
}

}  // namespace

std::string clResults::GetInitialisationInfo() {
    if (!ReportMenu_[0].Title.empty())
        return {};
    return ReadReportMenu(ProgramFolder() + "/Tallyboard.ini");
}

std::string clResults::ReadReportMenu(const std::string& IniFile) {
    ReportMenu_ = {};
    try {
        std::ifstream file(IniFile, std::ios::binary);
        if (!file)
            throw RunTimeFault(53, "File not found");
        int section = -1;
        std::string raw;
        bool firstLine = true;
        while (std::getline(file, raw)) {
            if (firstLine && raw.rfind("\xEF\xBB\xBF", 0) == 0)
                raw.erase(0, 3);
            firstLine = false;
            const std::string line = TrimBlanks(raw);
            if (line.empty())
                continue;
            const std::string faulty = "E-Error in initialisation file entry: " + line;
            if (line[0] == '[') {
                if (section == 9)
                    return faulty;
                ReportSection& slot = ReportMenu_[static_cast<std::size_t>(++section)];
                slot.Title = line.size() >= 2 ? line.substr(1, line.size() - 2) : std::string();
                slot.Actions.clear();
                continue;
            }
            if (section < 0)
                return faulty;
            const auto action = ParseAction(line);
            if (!action)
                return faulty;
            ReportMenu_[static_cast<std::size_t>(section)].Actions.push_back(*action);
        }
        return {};
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "GetInitialisationInfo", &pending);
    }
}

}  // namespace tb
