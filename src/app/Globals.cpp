#include "app/Globals.h"

#include <filesystem>

namespace tb {

namespace {
std::string& programFolderOverride() {
    static std::string folder;
    return folder;
}
}  // namespace

std::string ProgramFolder() {
    if (!programFolderOverride().empty())
        return programFolderOverride();
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return std::filesystem::current_path(ec).string();
    return exe.parent_path().string();
}

void SetProgramFolder(std::string folder) {
    programFolderOverride() = std::move(folder);
}

std::string DefaultDataFile() {
    return ProgramFolder() + "/Data/Tallyboard.db";
}
std::string DefaultReportPath() {
    return ProgramFolder() + "/Reports/";
}
std::string DefaultHelpPath() {
    return ProgramFolder() + "/Help/";
}

}  // namespace tb
