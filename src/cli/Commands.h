#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Validator;
}  // namespace CLI

namespace tb::cli {

// Exit status: 0 done (and --help, --version), 1 the operation's message went to stderr,
// 2 wrong arguments (CLI11 names the option and what it expects on stderr).
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongArguments = 2;

// Parses args (without the program's name) and runs the command they choose.
int Run(const std::vector<std::string>& args);

// A command is one registration: it adds its subcommand, options and help to app, and the
// subcommand's callback leaves the command's exit status in status. Each lives in a file of its
// own and is listed once in Commands.cpp.
using Registration = void (*)(CLI::App& app, int& status);

void AddCreateDbCommand(CLI::App& app, int& status);
void AddDemoCommand(CLI::App& app, int& status);
void AddRacesCommand(CLI::App& app, int& status);
void AddReportCommand(CLI::App& app, int& status);
void AddImportCommand(CLI::App& app, int& status);
void AddExportCommand(CLI::App& app, int& status);
void AddCopyCommand(CLI::App& app, int& status);

// Brings a series across from another scoring program's .blw series file and prints what was
// added, reused and scored differently.
int ImportSeries(const std::string& file, const std::string& data);

// Option checks whose refusal reads "--option: expects ...".
CLI::Validator WholeNumber();
CLI::Validator WholeNumber(long long least, long long most);

// Shows a message on stderr as the user would read it and gives the exit status for it.
int Fail(const std::string& Msg);

}  // namespace tb::cli
