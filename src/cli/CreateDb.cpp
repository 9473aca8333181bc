#include <iostream>

#include "cli/Commands.h"
#include "data/Schema.h"

namespace tb::cli {

int CreateDb(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return Usage();
    const std::string Msg = CreateDatabase(args[0]);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << "Created the database " << args[0] << '\n';
    return 0;
}

}  // namespace tb::cli
