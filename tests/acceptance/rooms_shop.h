#pragma once

#include "app/rooms.h"
#include "labels/desk/forms/stkkart.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

class RecordingAutostart final : public Autostart
{
public:
    bool set(bool on) override
    {
        wanted = on;
        return true;
    }
    bool wanted = false;
};

/// The windows of one kind that are seen.
template <typename Form>
QList<Form *> open()
{
    QList<Form *> forms;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *form = qobject_cast<Form *>(window); form && form->isVisible())
            forms += form;
    return forms;
}

/// The whole program over a demo shop, driven as its user would.
class RoomsTest : public testing::Test
{
protected:
    explicit RoomsTest(std::chrono::milliseconds patience = OdbcEngine::kPatience,
                       bool tray = false)
        : shop(Engine::embedded, FixedClock().moment, patience),
          rooms(shop.program, autostart, tray)
    {}

    /// The form of one kind, as soon as it is seen; null when it never is.
    template <typename Form>
    static Form *await()
    {
        return QTest::qWaitFor([] { return !open<Form>().isEmpty(); }, 20'000)
                   ? open<Form>().first()
                   : nullptr;
    }
    /// Runs the program until it ends by itself; false when it does not.
    bool endsByItself(const std::function<void()> &act)
    {
        QTimer::singleShot(0, &rooms, act);
        QTimer::singleShot(20'000, &rooms, [] { QCoreApplication::exit(99); });
        return QApplication::exec() == 0;
    }
    /// Types into a box of a form and presses Enter.
    static void enter(QWidget *form, const QString &box, const QString &text)
    {
        auto *const edit = form->findChild<QLineEdit *>(box);
        edit->setText(text);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    static void click(QWidget *form, const QString &button)
    {
        form->findChild<QPushButton *>(button)->click();
    }
    /// Opens the rooms and searches the stock list by stock code.
    stkkart *searched(const QString &code)
    {
        rooms.open();
        stkkart *const list = open<stkkart>().first();
        enter(list, QStringLiteral("Text4"), code);
        return list;
    }

    RealShop shop;
    RecordingAutostart autostart;
    Rooms rooms;
};
