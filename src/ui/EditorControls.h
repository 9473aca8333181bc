#pragma once

// What the editor windows share: text conversions between the core and Qt, the lists that carry
// a record's Id as item data, and the trap that turns a run-time error inside a window procedure
// into its message.

#include "data/Messages.h"

#include <QComboBox>
#include <QFont>
#include <QString>
#include <functional>
#include <string>
#include <type_traits>

namespace tb {

class Value;

inline QString Q(const std::string& text) {
    return QString::fromStdString(text);
}
inline std::string S(const QString& text) {
    return text.toStdString();
}
// A value as a field shows it: Null is an empty field.
QString FieldText(const Value& value);

// Runs a window procedure; a run-time error becomes the "C-Error" text for the location.
std::string Trap(const char* location, const std::function<std::string()>& body);
// Every window slot that reaches the database or converts typed text runs through here: the
// message the procedure returns (if it returns one) is shown, and a run-time error inside it is
// shown as its message and never leaves the event loop.
template <typename Procedure>
void RunTrapped(const char* location, Procedure&& procedure) {
    ShowMessage(Trap(location, [&procedure]() -> std::string {
        if constexpr (std::is_void_v<std::invoke_result_t<Procedure&>>) {
            procedure();
            return {};
        } else {
            return procedure();
        }
    }));
}

// The font of lists padded into columns.
QFont ColumnFont();

// The Id of the chosen item, 0 when nothing is chosen.
int ChosenId(const QComboBox* list);
// Chooses the item whose Id is given, or nothing when no item has it, without running the
// list's selection handling.
void ChooseById(QComboBox* list, int id);
// An editable list counts as chosen only while its text is the chosen item's own text: a text
// typed over it is a search or a new name.
bool HasChosenItem(const QComboBox* list);
// An editable list whose typed text is a name to save: the text is never completed to, nor
// replaced by, an existing item's name when the user leaves the list or presses Enter, so a name
// another record holds is refused on saving rather than that record chosen and overwritten.
void KeepTypedName(QComboBox* list);
// Removes the item at a position and chooses the one now there, or the one before it when the
// last was removed (nothing in an emptied list), without running the selection handling.
void RemoveAndChooseNeighbour(QComboBox* list, int position);

}  // namespace tb
