#include "app/FirstStart.h"

#include <filesystem>

#include "app/Globals.h"
#include "data/Schema.h"

namespace tb {

namespace fs = std::filesystem;

std::string CreateFirstDatabase(const std::string& path) {
    std::error_code ec;
    fs::create_directories(fs::path(path).parent_path(), ec);
    if (ec)
        return "E-Cannot create the folder of " + path + ": " + ec.message();
    return CreateDatabase(path);
}

std::string ProvideStyleSheets(const std::string& reportFolder) {
    const fs::path shipped = fs::path(ProgramFolder()) / "Reports";
    std::error_code ec;
    fs::create_directories(reportFolder, ec);
    if (ec)
        return "E-Cannot create the report directory " + reportFolder + ": " + ec.message();
    if (fs::equivalent(shipped, reportFolder, ec))
        return {};
    for (const auto& sheet : fs::directory_iterator(shipped, ec)) {
        const fs::path target = fs::path(reportFolder) / sheet.path().filename();
        if (sheet.path().extension() != ".xsl" || fs::exists(target, ec))
            continue;
        fs::copy_file(sheet.path(), target, ec);
        if (ec)
            return "E-Cannot copy the style sheet " + sheet.path().string() + " to " +
                   reportFolder + ": " + ec.message();
    }
    return {};
}

}  // namespace tb
