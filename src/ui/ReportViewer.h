#pragma once

#include <QString>

namespace tb {

// How a finished report reaches the user's eyes; tests record instead of opening.
class ReportViewer {
public:
    virtual ~ReportViewer() = default;
    virtual void OpenInBrowser(const QString& path) = 0;
    virtual void OpenInSpreadsheet(const QString& path) = 0;
};

// Opens reports on the desktop: the browser through the user's default for the file, the
// spreadsheet in LibreOffice Calc when it is installed, else in the default program.
class DesktopReportViewer : public ReportViewer {
public:
    void OpenInBrowser(const QString& path) override;
    void OpenInSpreadsheet(const QString& path) override;
};

}  // namespace tb
