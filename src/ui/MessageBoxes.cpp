#include "ui/MessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

namespace tb {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            break;
    }
    return QMessageBox::Warning;
}

// Run-time error texts separate the location from the description with a carriage return.
QString Displayed(const std::string& text) {
    QString shown = QString::fromStdString(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

}  // namespace

void MessageBoxes::Show(const MessageBoxText& box) {
    QMessageBox message(IconOf(box.icon), QString::fromStdString(box.title), Displayed(box.text),
                        QMessageBox::Ok, QApplication::activeWindow());
    message.exec();
}

bool MessageBoxes::AskYesNo(const std::string& question, const std::string& title) {
    QMessageBox message(QMessageBox::Question, QString::fromStdString(title), Displayed(question),
                        QMessageBox::Yes | QMessageBox::No, QApplication::activeWindow());
    message.setDefaultButton(QMessageBox::Yes);
    return message.exec() == QMessageBox::Yes;
}

void MessageBoxes::Beep() {
    QApplication::beep();
}

}  // namespace tb
