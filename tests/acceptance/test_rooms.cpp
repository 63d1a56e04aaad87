#include "labels/print/forms/stkkart.h"
#include "rooms.h"
#include "shell/forms/baglan.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

template <typename Form>
QList<Form *> open()
{
    QList<Form *> forms;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *form = qobject_cast<Form *>(window); form && form->isVisible())
            forms += form;
    return forms;
}

class RoomsTest : public testing::Test
{
protected:
    /// Runs the program until it ends by itself; false when it does not.
    bool endsByItself(const std::function<void()> &act)
    {
        QTimer::singleShot(0, &rooms, act);
        QTimer::singleShot(20'000, &rooms, [] { QCoreApplication::exit(99); });
        return QApplication::exec() == 0;
    }

    RealShop shop;
    RecordingAutostart autostart;
    Rooms rooms{shop.program, autostart};
};

} // namespace

TEST_F(RoomsTest, TheStockListIsTheFirstWindowAndIsMadeOnce)
{
    rooms.open();
    QTest::qWait(50);
    EXPECT_EQ(open<stkkart>().size(), 1);
    EXPECT_EQ(open<baglan>().size(), 0);
    rooms.showStockList();
    EXPECT_EQ(open<stkkart>().size(), 1);
    open<stkkart>().first()->close();
    QTest::qWait(20);
    rooms.showStockList();
    EXPECT_EQ(open<stkkart>().size(), 1);
}

TEST_F(RoomsTest, AMasterThatIsGoneBringsTheConnectionDialog)
{
    QFile::remove(shop.program.path(u"DEMOANA.yerel"));
    rooms.open();
    QTest::qWait(50);
    EXPECT_EQ(open<stkkart>().size(), 0);
    EXPECT_EQ(open<baglan>().size(), 1);
}

TEST_F(RoomsTest, SettingsAreReachedOnceThroughThePassword)
{
    rooms.open();
    rooms.showLogin();
    rooms.showLogin();
    ASSERT_EQ(open<login>().size(), 1);
    EXPECT_FALSE(open<login>().first()->isModal());
    QTest::keyClick(open<login>().first()->findChild<QLineEdit *>(u"lgpass"_s), Qt::Key_Return);
    ASSERT_EQ(open<parametre>().size(), 1);
    EXPECT_TRUE(open<parametre>().first()->isModal());
    rooms.showLogin();
    EXPECT_EQ(open<login>().size(), 0);
    open<parametre>().first()->findChild<QPushButton *>(u"button1"_s)->click();
    QTest::qWait(20);
    EXPECT_EQ(open<parametre>().size(), 0);
}

TEST_F(RoomsTest, EndingTheConnectionDialogEndsTheProgramAndStartsItAnewWhenConnected)
{
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        rooms.showConnection(); // the connection is open: the dialog unloads itself
    }));
    EXPECT_TRUE(rooms.restartWanted());
}

TEST_F(RoomsTest, EndingAnUnconnectedDialogEndsTheProgramForGood)
{
    QFile::remove(shop.program.path(u"DEMOANA.yerel"));
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        open<baglan>().first()->close();
    }));
    EXPECT_FALSE(rooms.restartWanted());
}

TEST_F(RoomsTest, WithoutATrayTheLastWindowEndsTheProgram)
{
    if (QSystemTrayIcon::isSystemTrayAvailable())
        GTEST_SKIP() << "there is a tray";
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        open<stkkart>().first()->close();
        QTimer::singleShot(100, &rooms, [] {
            for (stkkart *form : open<stkkart>()) // shown again by the start timer
                form->close();
        });
    }));
}

TEST_F(RoomsTest, ARunningPrintIsStoppedWhenTheProgramEnds)
{
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        auto *form = open<stkkart>().first();
        form->findChild<QLineEdit *>(u"Text4"_s)->setText(u"GID.00"_s);
        QTest::keyClick(form->findChild<QLineEdit *>(u"Text4"_s), Qt::Key_Return);
        form->findChild<QPushButton *>(u"ektm"_s)->click();
        form->findChild<QLineEdit *>(u"Text2"_s)->setText(u"5000"_s);
        form->findChild<QPushButton *>(u"setAllCounts"_s)->click();
        shop.prompt.answers.assign(8, Answer::yes);
        QTimer::singleShot(200, &rooms, [this] { rooms.showConnection(); });
        form->findChild<QPushButton *>(u"printAll"_s)->click();
    }));
    EXPECT_TRUE(QDir(shop.program.path(u"cikti")).entryList({u"*.pdf"_s}).isEmpty());
}
