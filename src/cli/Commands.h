#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tb::cli {

struct Command {
    const char* name;
    std::function<int(const std::vector<std::string>&)> run;
};

inline constexpr const char* kUsage =
    "usage: tallyboard-cli createdb FILE\n"
    "       tallyboard-cli demo FILE [--boats N] [--races N] [--classes N] [--seed N]\n"
    "       tallyboard-cli races --data FILE\n"
    "       tallyboard-cli import series FILE.blw --data FILE\n"
    "       tallyboard-cli report --data FILE --reports DIR [--ini FILE] --race ID\n"
    "                             --kind E|A|C|R|S|B [--action N]\n"
    "  report kinds: E entry list by handicap, A entry list by sail number, C class sheet,\n"
    "  R race results, S series results, B race and series results together; the action is\n"
    "  the kind's Nth line (from 0) of the initialisation file, by default the one beside the\n"
    "  program. report prints the path of the file to show.\n";

// Exit status: 0 done, 1 the operation's message went to stderr, 2 wrong arguments.
const std::vector<Command>& Commands();

int CreateDb(const std::vector<std::string>& args);
// A new database holding a demonstration season.
int Demo(const std::vector<std::string>& args);
// One line per race: race Id, series Id, series title, race name, race date, tab-separated.
int Races(const std::vector<std::string>& args);
// Writes one report and prints the path of the file to show.
int Report(const std::vector<std::string>& args);

// Brings a series across from another scoring program's .blw series file and prints what was
// added, reused and scored differently.
int Import(const std::vector<std::string>& args);
int ImportSeries(const std::string& File, const std::string& Data);

// Shows a message on stderr as the user would read it and gives the exit status for it.
int Fail(const std::string& Msg);
int Usage();

}  // namespace tb::cli
