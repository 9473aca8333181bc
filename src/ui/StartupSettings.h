#pragma once

#include <QString>
#include <string>

namespace tb {

// The user's own settings store (organisation and application "Tallyboard", group "Startup"):
// where the database file and the report folder are.
inline constexpr const char* kDataFileKey = "DataFile";
inline constexpr const char* kReportPathKey = "ReportPath";

// The stored value, or an empty text when there is none.
QString ReadStartupSetting(const QString& key);
void WriteStartupSetting(const QString& key, const QString& value);

// Paths the command line gives for this run only; the store is left as it is.
void UsePathsForThisRun(const QString& dataFile, const QString& reportPath);

// Sets DataFile and ReportPath from this run's paths, else the store, each falling back to its
// default (the report folder always ends with "/"), and HelpPath to the program's help folder.
// On a first start (no data file anywhere) it makes the default database and stores its path;
// it gives the report folder the shipped style sheets it lacks. Returns a message.
std::string LoadStartupPaths();

}  // namespace tb
