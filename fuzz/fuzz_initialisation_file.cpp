// Reads arbitrary bytes as the initialisation file that describes the report menu: the reader
// must return a message or a menu, never crash or hang.

#include <unistd.h>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/Globals.h"
#include "data/clResults.h"

namespace {

std::string ProgramFolderForFuzzing() {
    static const std::string folder = [] {
        const auto path = std::filesystem::temp_directory_path() /
                          ("tallyboard-fuzz-ini-" + std::to_string(getpid()));
        std::filesystem::create_directories(path);
        return path.string();
    }();
    return folder;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string folder = ProgramFolderForFuzzing();
    tb::SetProgramFolder(folder);
    {
        std::ofstream ini(folder + "/Tallyboard.ini", std::ios::binary | std::ios::trunc);
        ini.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    tb::clResults results;
    const std::string message = results.GetInitialisationInfo();
    if (!message.empty() && message.size() < 2)
        std::abort();
    return 0;
}
