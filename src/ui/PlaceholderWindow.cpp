#include "ui/PlaceholderWindow.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace tb {

PlaceholderWindow::PlaceholderWindow(const QString& windowName, const QString& caption,
                                     QWidget* parent)
    : QDialog(parent) {
    setObjectName(windowName);
    setWindowTitle(caption);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(tr("The %1 window is not available in this version.").arg(caption)));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}

void PlaceholderWindow::Open(const QString& windowName, const QString& caption, QWidget* parent) {
    PlaceholderWindow window(windowName, caption, parent);
    window.exec();
}

}  // namespace tb
