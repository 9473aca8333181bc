#include "cli/Commands.h"

#include <iostream>

#include "data/Messages.h"

namespace tb::cli {

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"createdb", CreateDb}, {"demo", Demo},     {"import", Import},
        {"races", Races},       {"report", Report},
    };
    return commands;
}

int Fail(const std::string& Msg) {
    ShowMessage(Msg);
    return 1;
}

int Usage() {
    std::cerr << kUsage;
    return 2;
}

}  // namespace tb::cli
