#include "ui/StartupSettings.h"

#include <QSettings>

#include "app/Globals.h"

namespace tb {

namespace {
QString KeyOf(const QString& key) {
    return QStringLiteral("Startup/") + key;
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

void LoadStartupPaths() {
    const QString dataFile = ReadStartupSetting(kDataFileKey);
    DataFile = dataFile.isEmpty() ? DefaultDataFile() : dataFile.toStdString();
    HelpPath = DefaultHelpPath();
    // Report files are named by appending to the folder, so it must end with a separator.
    QString reportPath = ReadStartupSetting(kReportPathKey);
    if (!reportPath.isEmpty() && !reportPath.endsWith(QLatin1Char('/')))
        reportPath += QLatin1Char('/');
    ReportPath = reportPath.isEmpty() ? DefaultReportPath() : reportPath.toStdString();
}

}  // namespace tb
