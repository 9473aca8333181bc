#pragma once

#include <QDialog>
#include <QString>

namespace tb {

// Stands in for a window that a later version brings: shows its caption and closes on OK, so a
// button that will open it already does something a user understands.
class PlaceholderWindow : public QDialog {
    Q_OBJECT
public:
    PlaceholderWindow(const QString& windowName, const QString& caption, QWidget* parent = nullptr);

    // Opens the placeholder modally and returns when it closes.
    static void Open(const QString& windowName, const QString& caption, QWidget* parent);
};

}  // namespace tb
