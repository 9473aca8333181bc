#include "ui/HelpFile.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>
#include <QWidget>

#include "app/Globals.h"

namespace tb {

namespace {

QString currentHelpFile;

class HelpKeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1 && !currentHelpFile.isEmpty()) {
            QDesktopServices::openUrl(QUrl::fromLocalFile(currentHelpFile));
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

class HelpOnActivation : public QObject {
public:
    HelpOnActivation(QWidget* window, const QString& helpName)
        : QObject(window), HelpName(helpName) {
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == parent() && event->type() == QEvent::WindowActivate)
            SetHelpFile(HelpName);
        return QObject::eventFilter(watched, event);
    }

private:
    QString HelpName;
};

}  // namespace

void SetHelpOnActivation(QWidget* window, const QString& helpName) {
    new HelpOnActivation(window, helpName);
}

void SetHelpFile(const QString& helpName) {
    currentHelpFile = QString::fromStdString(HelpPath) + helpName + ".html";
}

void InstallHelpKey() {
    qApp->installEventFilter(new HelpKeyFilter(qApp));
}

}  // namespace tb
