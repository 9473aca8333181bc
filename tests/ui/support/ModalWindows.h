#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

namespace tb::test {

// Runs action on the next modal window that a button opens with exec(), once it is shown, so a
// test can fill it in and close it. Checks every few milliseconds for a modal window other than
// the one given (the window the test is driving, if that is modal itself).
inline void WhenModalOpens(std::function<void(QWidget*)> action, QWidget* opener = nullptr) {
    auto* timer = new QTimer(qApp);
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, [timer, action = std::move(action), opener] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == opener || !modal->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        action(modal);
    });
    timer->start();
}

template <typename T>
T* Find(QWidget* window, const char* name) {
    T* found = window->findChild<T*>(name);
    if (found == nullptr)
        qFatal("no control named %s", name);
    return found;
}

}  // namespace tb::test
