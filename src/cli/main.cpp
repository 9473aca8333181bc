// tallyboard-cli: the headless way to the results database.

#include <string>
#include <vector>

#include "cli/Commands.h"

int main(int argc, char** argv) {
    return tb::cli::Run(std::vector<std::string>(argv + 1, argv + argc));
}
