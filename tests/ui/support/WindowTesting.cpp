#include "support/WindowTesting.h"

#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace tb::test {

std::string DataText(const QString& name) {
    QFile file(QStringLiteral(TALLYBOARD_UI_TEST_DATA "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(name));
    return file.readAll().toStdString();
}

QStringList DataLines(const QString& name) {
    QStringList lines;
    for (const QString& line : QString::fromStdString(DataText(name)).split('\n'))
        if (!line.isEmpty() && !line.startsWith('#'))
            lines << line;
    return lines;
}

void CasesFrom(const QString& name) {
    QTest::addColumn<QStringList>("fields");
    for (const QString& line : DataLines(name)) {
        QStringList fields = line.split('\t');
        QTest::newRow(qPrintable(fields.takeFirst())) << fields;
    }
}

QStringList Case() {
    QFETCH(QStringList, fields);
    return fields;
}

namespace {

// A click into a window activates it, as a window manager does. A window closed just before may
// still be handing the activation back to its opener, so the keyboard is waited for too.
void ActivateWindowOf(QWidget* control) {
    QWidget* window = control->window();
    for (int wait = 0; wait < 200; ++wait) {
        if (window->isActiveWindow() && Focused() != nullptr && Focused()->window() == window)
            return;
        window->activateWindow();
        QTest::qWait(10);
    }
    qFatal("%s did not get the keyboard", qPrintable(window->objectName()));
}

}  // namespace

void FocusOn(QWidget* control) {
    ActivateWindowOf(control);
    const auto* list = qobject_cast<QComboBox*>(control);
    if (qobject_cast<QLineEdit*>(control) != nullptr || (list != nullptr && list->isEditable()))
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
    for (int tabs = 0; Focused() != control && tabs < 80; ++tabs)
        Key(Qt::Key_Tab);
    if (Focused() != control)
        qFatal("the keyboard does not reach %s (at %s)", qPrintable(control->objectName()),
               Focused() ? qPrintable(Focused()->objectName()) : "nothing");
}

void Controls::Type(const char* field, const QString& text) const {
    FocusOn(Get(field));
    Key(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        Key(Qt::Key_Delete);
    Keys(text);
}

void Controls::Choose(const char* name, const QString& text) const {
    auto* list = Get<QComboBox>(name);
    FocusOn(list);
    // A blank would open the list: the search goes as far as the first word. An editable list
    // takes typed text as a name, so its items are stepped through.
    if (!list->isEditable())
        Keys(text.section(' ', 0, 0));
    for (const Qt::Key step : {Qt::Key_Down, Qt::Key_Up}) {
        for (int i = 0; list->currentText() != text && i < list->count(); ++i)
            Key(step);
    }
    if (list->currentText() != text)
        qFatal("%s offers no %s", name, qPrintable(text));
}

void Controls::Press(const char* name) const {
    QWidget* button = Get(name);
    ActivateWindowOf(button);
    // A tick box or option answers a click on its mark, not anywhere in its stretched width.
    const bool marked = qobject_cast<QPushButton*>(button) == nullptr;
    QTest::mouseClick(button, Qt::LeftButton, {},
                      marked ? QPoint(6, button->height() / 2) : button->rect().center());
}

QStringList Controls::Items(const char* list) const {
    const auto* dropDown = qobject_cast<const QComboBox*>(Get(list));
    const QAbstractItemModel* model =
        dropDown != nullptr ? dropDown->model() : Get<QAbstractItemView>(list)->model();
    QStringList items;
    for (int row = 0; row < model->rowCount(); ++row)
        items << model->index(row, 0).data().toString();
    return items;
}

QString SharedAccelerators(const QWidget& window) {
    QMap<QChar, QStringList> users;
    const auto note = [&users](QString caption) {
        const int at = caption.replace("&&", "").indexOf('&');
        if (at >= 0 && at + 1 < caption.size())
            users[caption[at + 1].toLower()] << caption;
    };
    for (const auto* button : window.findChildren<QAbstractButton*>())
        note(button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        note(label->text());
    for (const auto* group : window.findChildren<QGroupBox*>())
        note(group->title());
    QString shared;
    for (auto user = users.cbegin(); user != users.cend(); ++user) {
        if (user->size() > 1)
            shared += QString(user.key()) + ": " + user->join(", ") + "\n";
    }
    return shared;
}

QStringList Shown(const RecordingMessages& messages) {
    QStringList texts;
    for (const auto& text : messages.Texts())
        texts << QString::fromStdString(text);
    return texts;
}

void ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("the window did not become active");
}

TemporarySettingsStore::TemporarySettingsStore() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(folder.path()));
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

TemporarySettingsStore::~TemporarySettingsStore() {
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

NextModal::NextModal(std::function<void(QDialog&)> act) {
    QObject::connect(&poll, &QTimer::timeout, [this, act = std::move(act)] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr || !window->isVisible())
            return;
        poll.stop();
        name = window->objectName();
        // The keyboard goes to the new window, as a window manager gives it.
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window))
            qFatal("%s did not become active", qPrintable(name));
        if (act)
            act(*window);
        if (window->isVisible())
            window->done(QDialog::Rejected);
    });
    poll.start(5);
}

RaceDay::RaceDay() {
    db.Exec(DataText("race-day.sql"));
}

int RaceDay::AddBoat(const std::string& name, const std::string& fullSailNo, int classId) {
    const QString sailNo = QString::fromStdString(fullSailNo).section(' ', -1);
    db.Exec(QString::fromStdString(DataText("race-day-boat.sql"))
                .arg(++boats)
                .arg(QString::fromStdString(name), QString::fromStdString(fullSailNo), sailNo)
                .arg(classId)
                .toStdString());
    return boats;
}

}  // namespace tb::test
