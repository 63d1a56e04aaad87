#pragma once

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

/// The control of that name; a missing one fails the test.
template <typename T>
T *child(const QWidget &form, const QString &name)
{
    T *found = form.findChild<T *>(name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return found;
}

// Keys go where the focus is, as on a real keyboard.

/// The control that has the keyboard; waits until a window has taken it.
inline QWidget *focused()
{
    EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
    return QApplication::focusWidget();
}

/// Its name; empty when none has it.
inline QString focus()
{
    const QWidget *widget = QApplication::focusWidget();
    return widget ? widget->objectName() : QString();
}

inline void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(focused(), key, modifiers);
}

/// Types any letters, Turkish ones among them.
inline void type(const QString &text)
{
    for (const QChar c : text) {
        const Qt::Key code = c.unicode() < 128 ? QTest::asciiToKey(c.toLatin1()) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, focused(), code, QString(c), Qt::NoModifier);
    }
}
