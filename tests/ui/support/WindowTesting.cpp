#include "support/WindowTesting.h"

#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace tb::test {

int Club::Add(const std::string& insert) {
    db.Exec(insert);
    return static_cast<int>(db.raw().getLastInsertRowid());
}

std::string Club::Setting(const std::string& parameter) {
    return db.Text("SELECT Value FROM Settings WHERE Parameter='" + parameter + "'");
}

CaseTrace::~CaseTrace() {
    if (QTest::currentTestFailed())
        qWarning("in case: %s", qPrintable(name_));
}

void Type(QLineEdit* field, const QString& text) {
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

void Choose(QComboBox* list, const QString& text) {
    list->setCurrentIndex(list->findText(text));
}

QStringList Items(const QComboBox* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->itemText(i);
    return items;
}

QStringList Lines(const QListWidget* list) {
    QStringList lines;
    for (int i = 0; i < list->count(); ++i)
        lines << list->item(i)->text();
    return lines;
}

QStringList Shown(const RecordingMessages& messages) {
    QStringList texts;
    for (const auto& text : messages.Texts())
        texts << QString::fromStdString(text);
    return texts;
}

QString LastShown(const RecordingMessages& messages) {
    return messages.shown.empty() ? QString() : QString::fromStdString(messages.shown.back().text);
}

void Controls::Press(const char* button) const {
    Get<QPushButton>(button)->click();
}

void Controls::Type(const char* field, const QString& text) const {
    test::Type(Get<QLineEdit>(field), text);
}

void Controls::Choose(const char* list, const QString& text) const {
    test::Choose(Get<QComboBox>(list), text);
}

QString Controls::Text(const char* field) const {
    return Get<QLineEdit>(field)->text();
}

QString Controls::Current(const char* list) const {
    return Get<QComboBox>(list)->currentText();
}

QString Controls::Label(const char* label) const {
    return Get<QLabel>(label)->text();
}

bool Controls::Enabled(const char* control) const {
    return Get<QWidget>(control)->isEnabled();
}

void ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("the window did not become active");
}

TemporarySettingsStore::TemporarySettingsStore() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(folder_.path()));
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

TemporarySettingsStore::~TemporarySettingsStore() {
    QSettings(QStringLiteral("Tallyboard"), QStringLiteral("Tallyboard")).clear();
}

void SettleEvents() {
    QTest::qWait(10);
}

void Screenshot(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("TALLYBOARD_SCREENSHOTS");
    if (!folder.isEmpty())
        window.grab().save(folder + "/" + name + ".png");
}

}  // namespace tb::test
