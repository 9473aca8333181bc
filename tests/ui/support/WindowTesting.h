#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "support/TestDatabase.h"
#include "ui/ReportViewer.h"

class QTimer;
class QWidget;

namespace tb::test {

// Points the user's settings store at a temporary folder, empty, for the lifetime of the object.
class TemporarySettingsStore {
public:
    TemporarySettingsStore();
    ~TemporarySettingsStore();
    TemporarySettingsStore(const TemporarySettingsStore&) = delete;
    TemporarySettingsStore& operator=(const TemporarySettingsStore&) = delete;

private:
    TempFolder folder_;
};

// Records what would have been opened, as "browser: path" or "spreadsheet: path".
class RecordingViewer : public ReportViewer {
public:
    void OpenInBrowser(const QString& path) override { opened << "browser: " + path; }
    void OpenInSpreadsheet(const QString& path) override { opened << "spreadsheet: " + path; }
    QStringList opened;
};

// While it lives, waits for the next modal window, lets `meanwhile` act on it, then closes it;
// `name` tells which window a button opened (empty when none did).
class NextModalWindow {
public:
    explicit NextModalWindow(std::function<void(QWidget*)> meanwhile = {});
    ~NextModalWindow();
    NextModalWindow(const NextModalWindow&) = delete;
    NextModalWindow& operator=(const NextModalWindow&) = delete;

    QString name;

private:
    std::unique_ptr<QTimer> poll_;
};

// Lets queued work (the first activation of a window) run.
void SettleEvents();

}  // namespace tb::test
