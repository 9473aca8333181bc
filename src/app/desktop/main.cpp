// tallyboard: the desktop program.

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

#include "app/desktop/frmMain.h"
#include "data/Messages.h"
#include "ui/HelpFile.h"
#include "ui/MessageBoxes.h"
#include "ui/ReportViewer.h"

namespace {

// One copy per user: the lock lives in the user's runtime folder and goes with the process.
QString LockFilePath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QDir::tempPath();
    return folder + QStringLiteral("/Tallyboard.lock");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tallyboard"));
    QApplication::setOrganizationName(QStringLiteral("Tallyboard"));

    tb::MessageBoxes messages;
    tb::SetMessageInterface(&messages);

    QLockFile instanceLock(LockFilePath());
    instanceLock.setStaleLockTime(0);
    if (!instanceLock.tryLock()) {
        tb::ShowMessage("I-Tallyboard is already running");
        return 0;
    }

    tb::InstallHelpKey();
    tb::DesktopReportViewer viewer;
    tb::frmMain window(viewer);
    window.show();
    const int status = QApplication::exec();
    tb::SetMessageInterface(nullptr);
    return status;
}
