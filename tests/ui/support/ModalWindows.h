#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <memory>

class QTimer;

namespace tb::test {

// While it lives, waits for the next modal window that a button opens with exec(), lets `act`
// fill it in, then closes it if `act` left it open (as a refused save does), so a test cannot
// hang on it. `name` tells which window opened; it stays empty when none did.
class NextModal {
public:
    explicit NextModal(std::function<void(QDialog&)> act = {});
    ~NextModal();
    NextModal(const NextModal&) = delete;
    NextModal& operator=(const NextModal&) = delete;

    QString name;

private:
    std::unique_ptr<QTimer> poll_;
};

}  // namespace tb::test
