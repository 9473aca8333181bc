#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tb::cli {

struct Command {
    const char* name;
    std::function<int(const std::vector<std::string>&)> run;
};

inline constexpr const char* kUsage = "usage: tallyboard-cli createdb FILE\n";

// Exit status: 0 done, 1 the operation's message went to stderr, 2 wrong arguments.
const std::vector<Command>& Commands();

int CreateDb(const std::vector<std::string>& args);

// Shows a message on stderr as the user would read it and gives the exit status for it.
int Fail(const std::string& Msg);
int Usage();

}  // namespace tb::cli
