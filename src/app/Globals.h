#pragma once

#include <string>

namespace tb {

// The program's working globals: where the database, help pages and reports are, and the record
// handed to the boat or people editor (-1 asks it to start by adding a new record). The main
// window sets them at load; ConnectDb opens DataFile.
inline std::string DataFile;
inline std::string HelpPath;
inline std::string ReportPath;
inline int SelectedId = 0;

// The folder of the running executable, without a trailing "/"; tests may point it elsewhere.
std::string ProgramFolder();
void SetProgramFolder(std::string folder);

// The defaults when the settings store holds no path: beside the program.
std::string DefaultDataFile();
std::string DefaultReportPath();
std::string DefaultHelpPath();

}  // namespace tb
