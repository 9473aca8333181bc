#include "ui/EnterKey.h"

#include <QKeyEvent>

namespace tb {

bool IsEnterKey(const QKeyEvent* event) {
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

}  // namespace tb
