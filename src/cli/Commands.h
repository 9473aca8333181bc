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
    "       tallyboard-cli report --data FILE --reports DIR [--ini FILE] --race ID\n"
    "                             --kind E|A|C|R|S|B [--action N]\n"
    "  report kinds: E entry list by handicap, A entry list by sail number, C class sheet,\n"
    "  R race results, S series results, B race and series results together; the action is\n"
    "  the kind's Nth line (from 0) of the initialisation file, by default the one beside the\n"
    "  program. report prints the path of the file to show.\n"
    "       tallyboard-cli import people|models|boats|handicaps FILE --data FILE [--update]\n"
    "       tallyboard-cli import finishes FILE --data FILE --race ID\n"
    "       tallyboard-cli export people|models|boats|handicaps --data FILE [-o FILE]\n"
    "       tallyboard-cli export results|standings --data FILE --race ID [-o FILE]\n"
    "  import reads a CSV file whole or not at all; export writes CSV (UTF-8) to standard\n"
    "  output or to the file given with -o.\n";

// Exit status: 0 done, 1 the operation's message went to stderr, 2 wrong arguments.
const std::vector<Command>& Commands();

int CreateDb(const std::vector<std::string>& args);
// A new database holding a demonstration season.
int Demo(const std::vector<std::string>& args);
// One line per race: race Id, series Id, series title, race name, race date, tab-separated.
int Races(const std::vector<std::string>& args);
// Writes one report and prints the path of the file to show.
int Report(const std::vector<std::string>& args);
// CSV files in and out of the register, a race's finishes, results and standings.
int Import(const std::vector<std::string>& args);
int Export(const std::vector<std::string>& args);

// Shows a message on stderr as the user would read it and gives the exit status for it.
int Fail(const std::string& Msg);
int Usage();

}  // namespace tb::cli
