#include "support/WindowTesting.h"

#include <QApplication>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QWidget>

namespace tb::test {

TemporarySettingsStore::TemporarySettingsStore() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(folder_.path()));
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

TemporarySettingsStore::~TemporarySettingsStore() {
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

NextModalWindow::NextModalWindow(std::function<void(QWidget*)> meanwhile)
    : poll_(std::make_unique<QTimer>()) {
    QObject::connect(poll_.get(), &QTimer::timeout, [this, meanwhile] {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr || !window->isVisible())
            return;
        poll_->stop();
        name = window->objectName();
        if (meanwhile)
            meanwhile(window);
        window->close();
    });
    poll_->start(5);
}

NextModalWindow::~NextModalWindow() = default;

void SettleEvents() {
    QTest::qWait(10);
}

}  // namespace tb::test
