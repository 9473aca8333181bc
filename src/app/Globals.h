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

// The program folder: where Tallyboard.ini, Help/, OutputObjects/ and the shipped style sheets
// are, without a trailing "/". In a build that is the folder of the running executable; in an
// installed copy (programs in bin/) it is ../share/tallyboard beside it, wherever the tree was
// put. Tests may point it elsewhere.
std::string ProgramFolder();
void SetProgramFolder(std::string folder);
std::string ProgramFolderFor(const std::string& executableFolder);

// Whether the user's database and reports may live in the program folder: not in an installed
// copy, and only where the user can write.
bool ProgramFolderWritable();
// The user's own data folder ($XDG_DATA_HOME, else ~/.local/share, + "/Tallyboard").
std::string UserDataFolder();

// The defaults when the settings store holds no path: beside the program when it is writable,
// else in the user's data folder.
std::string DefaultDataFile();
std::string DefaultReportPath();
std::string DefaultHelpPath();

}  // namespace tb
