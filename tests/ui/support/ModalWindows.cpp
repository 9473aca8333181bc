#include "support/ModalWindows.h"

#include <QApplication>
#include <QTimer>

namespace tb::test {

NextModal::NextModal(std::function<void(QDialog&)> act) : poll_(std::make_unique<QTimer>()) {
    QObject::connect(poll_.get(), &QTimer::timeout, [this, act = std::move(act)] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr || !window->isVisible())
            return;
        poll_->stop();
        name = window->objectName();
        if (act)
            act(*window);
        if (window->isVisible())
            window->done(QDialog::Rejected);
    });
    poll_->start(5);
}

NextModal::~NextModal() = default;

}  // namespace tb::test
