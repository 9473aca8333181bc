// tallyboard-cli: the headless way to the results database.

#include <iostream>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "data/Messages.h"

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        std::cerr << tb::cli::kUsage;
        return 2;
    }
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    for (const auto& command : tb::cli::Commands()) {
        if (args[0] == command.name)
            return command.run(rest);
    }
    std::cerr << tb::cli::kUsage;
    return 2;
}
