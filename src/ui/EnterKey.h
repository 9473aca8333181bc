#pragma once

class QKeyEvent;

namespace tb {

// Enter in the race-day windows moves on field by field, so a dialog must not press a default
// button when Enter reaches it from a field: only a button that has the focus answers Enter
// itself. Returns true when the key was Enter, which the dialog then ignores.
bool IsEnterKey(const QKeyEvent* event);

}  // namespace tb
