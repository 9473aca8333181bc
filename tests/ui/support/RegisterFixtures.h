#pragma once

// Shared ground of the register editors' window tests: a small club register in a fresh
// database, typing as a user types, and answering a window that another window opens modally.

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>

#include "support/TestDatabase.h"

namespace tb::test {

// Three people, three models, three boats with two handicaps, and one series with a race that
// Blue Moon and John Smith entered.
inline void SeedRegister(TestDatabase& db) {
    db.Exec(
        "INSERT INTO People (Id, Firstname, Lastname, City, ClubMember) VALUES "
        "(1, 'Ann', 'Adams', 'Poole', 1), (2, 'John', 'Smith', 'Hamble', 0), "
        "(3, 'Jim', 'Smithers', 'Cowes', 0);"
        "INSERT INTO BoatType (Id, Model, LOA, Draft) VALUES (1, 'Sigma 33', 10.1, 1.85), "
        "(2, 'Laser', 4.2, 0), (3, 'Unused', 0, 1.2);"
        "INSERT INTO Boat (Id, BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES "
        "(1, 'Aquila', 1, 'GBR 1234', 1234, 1), (2, 'Blue Moon', 1, 'K 77', 77, 2), "
        "(3, 'Zephyr', 2, '200', 200, 2);"
        "INSERT INTO HandicapType (Id, Description) VALUES (1, 'IRC'), (2, 'PY');"
        "INSERT INTO Handicap (Id, Boat, HandicapType, Handicap, EffectiveFrom, Expires) VALUES "
        "(1, 1, 1, 0.985, '2009-01-01 00:00:00', '2009-12-31 00:00:00'), "
        "(2, 1, 2, 1.02, '2010-01-01 00:00:00', NULL);"
        "INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Spring Series', 1, 1);"
        "INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES "
        "(1, 1, 'Race 1', '2010-04-10 00:00:00');"
        "INSERT INTO Entrant (Id, Series, Boat, Entrant, EntrantType) VALUES (1, 1, 2, 2, 0);");
}

// Replaces a field's text by typing, so the window sees a user's edit.
inline void Type(QLineEdit* field, const QString& text) {
    field->selectAll();
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    else
        QTest::keyClicks(field, text);
}

// Runs the answer on the next window opened modally, then closes it if the answer left it open,
// so a refused save cannot hang the test.
inline void AnswerNextModal(std::function<void(QDialog&)> answer) {
    QTimer::singleShot(0, [answer] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        answer(*dialog);
        if (dialog->isVisible())
            dialog->done(QDialog::Rejected);
    });
}

template <class Control>
Control* Child(const QObject& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr)
        qFatal("no control %s", name);
    return control;
}

}  // namespace tb::test
