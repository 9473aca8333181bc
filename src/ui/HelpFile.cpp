#include "ui/HelpFile.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>

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

}  // namespace

void SetHelpFile(const QString& helpName) {
    currentHelpFile = QString::fromStdString(HelpPath) + helpName + ".html";
}

void InstallHelpKey() {
    qApp->installEventFilter(new HelpKeyFilter(qApp));
}

}  // namespace tb
