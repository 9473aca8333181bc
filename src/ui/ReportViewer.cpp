#include "ui/ReportViewer.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace tb {

void DesktopReportViewer::OpenInBrowser(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void DesktopReportViewer::OpenInSpreadsheet(const QString& path) {
    const QString calc = QStandardPaths::findExecutable(QStringLiteral("localc"));
    if (!calc.isEmpty() && QProcess::startDetached(calc, {path}))
        return;
    const QString office = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
    if (!office.isEmpty() && QProcess::startDetached(office, {QStringLiteral("--calc"), path}))
        return;
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace tb
