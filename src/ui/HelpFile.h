#pragma once

#include <QString>

class QWidget;

namespace tb {

// The program's current help page. Each window sets its own when it becomes active; F1 opens the
// current one in the user's browser. A help page is HelpPath + the window's help name + ".html".
void SetHelpFile(const QString& helpName);
// The one help hook of every window: the window's help page becomes current whenever the window
// becomes active.
void SetHelpOnActivation(QWidget* window, const QString& helpName);

// Installs the F1 handling on the application; the desktop program calls it once at start-up.
void InstallHelpKey();

}  // namespace tb
