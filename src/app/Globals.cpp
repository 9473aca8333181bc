#include "app/Globals.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace tb {

namespace fs = std::filesystem;

namespace {
std::string& programFolderOverride() {
    static std::string folder;
    return folder;
}

std::string ExecutableFolder() {
    std::error_code ec;
    const auto exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec)
        return fs::current_path(ec).string();
    return exe.parent_path().string();
}

constexpr const char* kInstalledFolder = "share/tallyboard";
}  // namespace

std::string ProgramFolderFor(const std::string& executableFolder) {
    std::error_code ec;
    if (fs::is_regular_file(fs::path(executableFolder) / "Tallyboard.ini", ec))
        return executableFolder;
    const fs::path installed = fs::path(executableFolder).parent_path() / kInstalledFolder;
    if (fs::is_directory(installed, ec))
        return installed.lexically_normal().string();
    return executableFolder;
}

std::string ProgramFolder() {
    if (!programFolderOverride().empty())
        return programFolderOverride();
    static const std::string folder = ProgramFolderFor(ExecutableFolder());
    return folder;
}

void SetProgramFolder(std::string folder) {
    programFolderOverride() = std::move(folder);
}

bool ProgramFolderWritable() {
    const std::string folder = ProgramFolder();
    return !folder.ends_with(std::string("/") + kInstalledFolder) &&
           ::access(folder.c_str(), W_OK) == 0;
}

std::string UserDataFolder() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome != nullptr && dataHome[0] == '/')
        return std::string(dataHome) + "/Tallyboard";
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.local/share/Tallyboard";
}

std::string DefaultDataFile() {
    return ProgramFolderWritable() ? ProgramFolder() + "/Data/Tallyboard.db"
                                   : UserDataFolder() + "/Tallyboard.db";
}
std::string DefaultReportPath() {
    return ProgramFolderWritable() ? ProgramFolder() + "/Reports/" : UserDataFolder() + "/Reports/";
}
std::string DefaultHelpPath() {
    return ProgramFolder() + "/Help/";
}

}  // namespace tb
