#pragma once

#include <QString>

namespace tb {

// The program's current help page. Each window sets its own when it becomes active; F1 opens the
// current one in the user's browser. A help page is HelpPath + the window's help name + ".html".
void SetHelpFile(const QString& helpName);

// Installs the F1 handling on the application; the desktop program calls it once at start-up.
void InstallHelpKey();

}  // namespace tb
