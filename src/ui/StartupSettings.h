#pragma once

#include <QString>

namespace tb {

// The user's own settings store (organisation and application "Tallyboard", group "Startup"):
// where the database file and the report folder are.
inline constexpr const char* kDataFileKey = "DataFile";
inline constexpr const char* kReportPathKey = "ReportPath";

// The stored value, or an empty text when there is none.
QString ReadStartupSetting(const QString& key);
void WriteStartupSetting(const QString& key, const QString& value);

// Sets DataFile and ReportPath from the store, each falling back to its place beside the program
// when the store holds nothing (the report folder always ends with "/"), and HelpPath to the
// program's help folder.
void LoadStartupPaths();

}  // namespace tb
