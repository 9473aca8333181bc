// tallyboard: the desktop program.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>
#include <QTextStream>
#include <optional>

#include "app/desktop/frmMain.h"
#include "data/Messages.h"
#include "ui/HelpFile.h"
#include "ui/MessageBoxes.h"
#include "ui/ReportViewer.h"
#include "ui/StartupSettings.h"

namespace {

// One copy per user: the lock lives in the user's runtime folder and goes with the process.
QString LockFilePath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty())
        folder = QDir::tempPath();
    return folder + QStringLiteral("/Tallyboard.lock");
}

// Reads the command line before any window exists, so that --help and --version work without a
// display. Returns the exit status when the program should end at once.
std::optional<int> ReadCommandLine(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Tallyboard, the results manager for sailing clubs."));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Use the database FILE for this run only."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption reports(QStringLiteral("reports"),
                                     QStringLiteral("Use the report folder DIR for this run only."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and end."));
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("Show the version and end."));
    parser.addOptions({data, reports, help, version});
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (!parser.parse(arguments)) {
        err << "tallyboard: " << parser.errorText() << "\nRun with --help for more information.\n";
        return 2;
    }
    if (!parser.positionalArguments().isEmpty()) {
        err << "tallyboard: unexpected argument " << parser.positionalArguments().first()
            << "\nRun with --help for more information.\n";
        return 2;
    }
    if (parser.isSet(help)) {
        // The parser names the program from an application object, which does not exist yet.
        out << parser.helpText().replace(QStringLiteral("<executable_name>"),
                                         QStringLiteral("tallyboard"));
        return 0;
    }
    if (parser.isSet(version)) {
        out << "tallyboard " << QCoreApplication::applicationVersion() << '\n';
        return 0;
    }
    tb::UsePathsForThisRun(parser.value(data), parser.value(reports));
    return std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("Tallyboard"));
    QCoreApplication::setOrganizationName(QStringLiteral("Tallyboard"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TALLYBOARD_VERSION));
    if (const auto status = ReadCommandLine(argc, argv))
        return *status;
    QApplication app(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.tallyboard.Tallyboard"));

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
