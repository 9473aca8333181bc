#include "ui/EditorControls.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QSignalBlocker>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/Value.h"

namespace tb {

QString FieldText(const Value& value) {
    return Q(ToText(value));
}

std::string Trap(const char* location, const std::function<std::string()>& body) {
    try {
        return body();
    } catch (...) {
        const PendingError error = DescribeCurrentException();
        return ErrorText("", location, &error);
    }
}

void KeepTypedName(QComboBox* list) {
    list->setCompleter(nullptr);
    list->setInsertPolicy(QComboBox::NoInsert);
    QObject::disconnect(list->lineEdit(), &QLineEdit::editingFinished, list, nullptr);
    QObject::disconnect(list->lineEdit(), &QLineEdit::returnPressed, list, nullptr);
}

QFont ColumnFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

int ChosenId(const QComboBox* list) {
    return list->currentIndex() < 0 ? 0 : list->currentData().toInt();
}

void ChooseById(QComboBox* list, int id) {
    const QSignalBlocker block(list);
    list->setCurrentIndex(list->findData(id));
}

bool HasChosenItem(const QComboBox* list) {
    const int index = list->currentIndex();
    return index >= 0 && (!list->isEditable() || list->currentText() == list->itemText(index));
}

void RemoveAndChooseNeighbour(QComboBox* list, int position) {
    const QSignalBlocker block(list);
    list->removeItem(position);
    list->setCurrentIndex(position < list->count() ? position : list->count() - 1);
}

}  // namespace tb
