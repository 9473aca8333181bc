#include "support/ModalWindows.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

namespace tb::test {

NextModal::NextModal(std::function<void(QDialog&)> act) : poll_(std::make_unique<QTimer>()) {
    QObject::connect(poll_.get(), &QTimer::timeout, [this, act = std::move(act)] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr || !window->isVisible())
            return;
        poll_->stop();
        name = window->objectName();
        // The keyboard goes to the new window, as a window manager gives it.
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window))
            qFatal("%s did not become active", qPrintable(name));
        if (act)
            act(*window);
        if (window->isVisible())
            window->done(QDialog::Rejected);
    });
    poll_->start(5);
}

NextModal::~NextModal() = default;

}  // namespace tb::test
