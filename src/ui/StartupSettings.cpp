#include "ui/StartupSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include "app/FirstStart.h"
#include "app/Globals.h"

namespace tb {

namespace {
QString KeyOf(const QString& key) {
    return QStringLiteral("Startup/") + key;
}

struct PathsForThisRun {
    QString dataFile;
    QString reportPath;
};
PathsForThisRun& ForThisRun() {
    static PathsForThisRun paths;
    return paths;
}
}  // namespace

QString ReadStartupSetting(const QString& key) {
    const QSettings store(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard"));
    return store.value(KeyOf(key), QString()).toString();
}

void WriteStartupSetting(const QString& key, const QString& value) {
    QSettings store(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard"));
    store.setValue(KeyOf(key), value);
    store.sync();
}

void UsePathsForThisRun(const QString& dataFile, const QString& reportPath) {
    ForThisRun() = {dataFile, reportPath};
}

std::string LoadStartupPaths() {
    std::string Msg;
    QString dataFile = ForThisRun().dataFile;
    if (dataFile.isEmpty())
        dataFile = ReadStartupSetting(kDataFileKey);
    if (dataFile.isEmpty()) {
        // First start: nothing configured, so a new database where the defaults say, and the
        // settings pointed at it. A configured file that is missing is left to ConnectDb's error.
        DataFile = DefaultDataFile();
        if (!QFileInfo::exists(QString::fromStdString(DataFile))) {
            Msg = CreateFirstDatabase(DataFile);
            if (Msg.empty())
                WriteStartupSetting(kDataFileKey, QString::fromStdString(DataFile));
        }
    } else {
        DataFile = dataFile.toStdString();
    }
    HelpPath = DefaultHelpPath();

    QString reportPath = ForThisRun().reportPath;
    if (reportPath.isEmpty())
        reportPath = ReadStartupSetting(kReportPathKey);
    // Report files are named by appending to the folder, so it must end with a separator.
    if (!reportPath.isEmpty() && !reportPath.endsWith(QLatin1Char('/')))
        reportPath += QLatin1Char('/');
    ReportPath = reportPath.isEmpty() ? DefaultReportPath() : reportPath.toStdString();
    // The report actions find their style sheets in the report folder.
    if (Msg.empty() && (reportPath.isEmpty() || QDir(reportPath).exists()))
        Msg = ProvideStyleSheets(ReportPath);
    return Msg;
}

}  // namespace tb
