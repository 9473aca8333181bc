#pragma once

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "data/clResults.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"
#include "ui/ReportViewer.h"

namespace tb::test {

// A fresh database with the program's operations over it and its messages recorded.
struct Club {
    TestDatabase db;
    clResults results;
    RecordingMessages messages;
};

using Texts = std::vector<std::string>;

// A data file of the window tests (tests/ui/data): its whole text, and its lines without the
// blank ones and the "#" comments.
std::string DataText(const QString& name);
QStringList DataLines(const QString& name);
// A data file of cases, one a line, its fields separated by tabs, the first naming the case, as
// a Qt Test table of one column; Case() is the current case's fields after the name.
void CasesFrom(const QString& name);
QStringList Case();

// A small club register: three people, three models, three boats with two handicaps, and one
// series with a race that Blue Moon and John Smith entered.
struct Register : Club {
    Register() { db.Exec(DataText("register.sql")); }
};

// A person's input, through the real path only: keys go to whatever has the keyboard
// (QApplication::focusWidget()), the keyboard moves by a click into a text field or by Tab, and
// buttons are pressed with the mouse. Nothing here sets a control's value or emits its signal.
inline QWidget* Focused() {
    return QApplication::focusWidget();
}
inline void Keys(const QString& text) {
    QTest::keyClicks(Focused(), text);
}
inline void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(Focused(), key, modifiers);
}
inline void Enter() {
    Key(Qt::Key_Return);
}
// Gives the control the keyboard: a click into a text field, Tab through the window otherwise
// (a click would open a list or press a button).
void FocusOn(QWidget* control);
// The messages shown, each as kind letter + "-" + text.
QStringList Shown(const RecordingMessages& messages);

// The accelerator letters (the "&" of captions) that more than one control of the window uses,
// each as "letter: captions"; empty when every letter is unique.
QString SharedAccelerators(const QWidget& window);

// Acts on the controls of one window by name.
struct Controls {
    const QObject* window;
    template <typename T = QWidget>
    T* Get(const char* name) const {
        T* found = window->findChild<T*>(name);
        if (found == nullptr)
            qFatal("no control named %s", name);
        return found;
    }
    void Press(const char* button) const;
    // Replaces the text of a field or an editable list by selecting all of it and typing.
    void Type(const char* field, const QString& text) const;
    // Chooses a list's item by the keyboard: its first word searched, then arrow keys.
    void Choose(const char* list, const QString& text) const;
    // The lines of a list, or the items of a drop-down list.
    QStringList Items(const char* list) const;
    QString Text(const char* field) const { return Get<QLineEdit>(field)->text(); }
    QString Current(const char* list) const { return Get<QComboBox>(list)->currentText(); }
    QString Label(const char* label) const { return Get<QLabel>(label)->text(); }
};

// Shows the window and waits until it has the keyboard, as a user's window would.
void ShowActive(QWidget& window);

// A window made from the arguments, shown with the keyboard; its controls by name.
template <typename Window>
struct Opened : Controls {
    template <typename... Arguments>
    explicit Opened(Arguments&&... arguments)
        : Controls{nullptr}, w(std::forward<Arguments>(arguments)...) {
        Controls::window = &w;
        ShowActive(w);
    }
    Window w;
};

// Points the user's settings store at a temporary folder, empty, for the lifetime of the object.
struct TemporarySettingsStore {
    TemporarySettingsStore();
    ~TemporarySettingsStore();
    TempFolder folder;
};

// Records what would have been opened, as "browser: path" or "spreadsheet: path".
struct RecordingViewer : ReportViewer {
    void OpenInBrowser(const QString& path) override { opened << "browser: " + path; }
    void OpenInSpreadsheet(const QString& path) override { opened << "spreadsheet: " + path; }
    QStringList opened;
};

// Lets queued work (the first activation of a window) run.
inline void SettleEvents() {
    QTest::qWait(10);
}

// While it lives, waits for the next modal window that a button opens with exec(), lets `act`
// fill it in, then closes it if `act` left it open (as a refused save does), so a test cannot
// hang on it. `name` tells which window opened; it stays empty when none did.
struct NextModal {
    explicit NextModal(std::function<void(QDialog&)> act = {});
    QString name;
    QTimer poll;
};

// A race evening in a fresh database: series "Summer Series" (Id 1) with "Class 1" and
// "Class 2" on one handicap type, race "Race 1" on 12 Jun 2005 (Id 10), no class started. Boats
// are entered in the series and the race with a handicap of 1.000 valid all season; the sail
// number is the last word of the full one.
struct RaceDay {
    RaceDay();

    int AddBoat(const std::string& name, const std::string& fullSailNo, int classId);

    TestDatabase db;
    static constexpr int kSeries = 1;
    static constexpr int kRace = 10;
    static constexpr int kClass1 = 1;
    static constexpr int kClass2 = 2;

    int boats = 0;
};

}  // namespace tb::test
