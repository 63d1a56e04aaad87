#include "app/rooms.h"
#include "common/settings_database.h"
#include "labels/desk/forms/baruret.h"
#include "labels/desk/forms/fytdegisbul.h"
#include "labels/desk/forms/stkkart.h"
#include "labels/desk/print_queue.h"
#include "labels/print/forms/yazfrm.h"
#include "platform/machine/window_style.h"
#include "sales/forms/stfatura.h"
#include "shell/forms/baglan.h"
#include "shell/forms/kakknd.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTimer>
#include <QTreeView>

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
        enter(list, u"Text4"_s, code);
        return list;
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

TEST_F(RoomsTest, SettingsAreReachedOnceThroughThePassword)
{
    rooms.open();
    rooms.showLogin();
    rooms.showLogin();
    ASSERT_EQ(open<login>().size(), 1);
    EXPECT_FALSE(open<login>().first()->isModal());
    enter(open<login>().first(), u"lgpass"_s, {});
    ASSERT_EQ(open<parametre>().size(), 1);
    EXPECT_TRUE(open<parametre>().first()->isModal());
    rooms.showLogin();
    EXPECT_EQ(open<login>().size(), 0);
    click(open<parametre>().first(), u"button1"_s);
    QTest::qWait(20);
    EXPECT_EQ(open<parametre>().size(), 0);
}

TEST_F(RoomsTest, TheTillStaysOverOtherWindowsWhileTheSettingsSaySo)
{
    {
        const OpenDatabase open(shop.db, shop.program.path(settings::kFile));
        shop.db.execute(u"Update liste set enust = '1' Where id ='1'"_s);
    }
    const auto onTop = [](QWidget *form) {
        return windowStyleOf(*form)->test(WindowStyle::ExtendedBit::topMost);
    };
    rooms.open();
    rooms.showSales();
    ASSERT_EQ(open<stfatura>().size(), 1);
    stfatura *const till = open<stfatura>().first();
    EXPECT_TRUE(onTop(till));
    rooms.showAbout();
    EXPECT_TRUE(onTop(open<kakknd>().first())) << "the till would hide it";

    rooms.showLogin();
    enter(open<login>().first(), u"lgpass"_s, {});
    parametre *const form = open<parametre>().first();
    form->findChild<QCheckBox *>(u"c3"_s)->setChecked(false);
    click(form, u"button1"_s);
    EXPECT_FALSE(onTop(till));
    EXPECT_TRUE(till->isVisible());
}

TEST_F(RoomsTest, AMasterThatIsGoneBringsTheConnectionDialogAndItsEndEndsTheProgram)
{
    QFile::remove(shop.program.path(u"DEMOANA.yerel"));
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        QTimer::singleShot(50, &rooms, [] {
            EXPECT_EQ(open<stkkart>().size(), 0);
            ASSERT_EQ(open<baglan>().size(), 1);
            open<baglan>().first()->close();
        });
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
        stkkart *const form = searched(u"GID.00"_s);
        click(form, u"ektm"_s);
        form->findChild<QLineEdit *>(u"Text2"_s)->setText(u"5000"_s);
        click(form, u"setAllCounts"_s);
        shop.prompt.answers.assign(8, Answer::yes);
        QTimer::singleShot(200, &rooms, [this] { rooms.showConnection(); });
        click(form, u"printAll"_s);
    }));
    EXPECT_TRUE(QDir(shop.program.path(u"cikti")).entryList({u"*.pdf"_s}).isEmpty());
}

TEST_F(RoomsTest, ALoaderClosedWhileItsStocksAreReadDoesNoHarm)
{
    rooms.open();
    auto *list = open<stkkart>().first();
    click(list, u"fytdegisbul"_s);
    ASSERT_EQ(open<fytdegisbul>().size(), 1);
    const QPointer<fytdegisbul> form = open<fytdegisbul>().first();
    form->findChild<QDateEdit *>(u"tr1"_s)->setDate(QDate(2000, 1, 1));
    const auto *stocks = list->findChild<QTreeView *>(u"l1"_s)->model();
    QObject::connect(stocks, &QAbstractItemModel::rowsInserted, form.data(),
                     [&] { QTimer::singleShot(0, form.data(), &QWidget::close); });
    QTest::keyClick(form->findChild<QDateEdit *>(u"tr1"_s), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return list->findChild<QPushButton *>(u"ektm"_s)->isEnabled(); }, 60'000));
    EXPECT_GT(stocks->rowCount(), 100);
}

TEST_F(RoomsTest, NewNumbersAreSavedBeforeTheLabelFormMayClose)
{
    stkkart *const list = searched(u"KRT."_s);
    list->findChild<QAction *>(u"ekbartum"_s)->trigger();
    const auto *queue = list->findChild<QTreeView *>(u"l2"_s)->model();
    const int rows = queue->rowCount();
    ASSERT_GT(rows, 1);
    click(list, u"brkdurt"_s);
    ASSERT_EQ(open<Baruret>().size(), 1);
    Baruret *generator = open<Baruret>().first();
    EXPECT_TRUE(generator->isModal());
    enter(generator, u"Text1"_s, u"200000000100"_s);
    QTest::keyClick(generator, Qt::Key_Escape);
    QTest::qWait(20);
    EXPECT_TRUE(open<Baruret>().isEmpty());

    list->close(); // asked, and nobody says yes
    ASSERT_EQ(open<stkkart>().size(), 1);
    EXPECT_EQ(shop.prompt.shown.size(), 1U);
    click(list, u"brgnc"_s);
    EXPECT_EQ(shop.prompt.shown.back().text, u"Yeni Barkod Numaraları Eklendi..."_s);
    for (int row = 0; row < rows; ++row) {
        const QString barcode = queue->index(row, PrintQueue::barcode).data().toString();
        RecordSet saved = shop.program.company().execute(
            u"select * from STKBARKOD where STKBARKOD='%1'"_s.arg(barcode));
        ASSERT_EQ(saved.rowCount(), 1) << barcode.toStdString();
        EXPECT_EQ(saved.text(u"STKBARSTKKOD"),
                  queue->index(row, PrintQueue::code).data().toString());
        EXPECT_EQ(saved.text(u"STKBARTIP") + saved.text(u"STKBARITEMNO"), u"21"_s);
    }
    list->close();
    EXPECT_EQ(open<stkkart>().size(), 0);
}

TEST_F(RoomsTest, TheProgramEndsWhileTheGeneratorIsOpenAndStartsAnew)
{
    EXPECT_TRUE(endsByItself([this] {
        stkkart *const list = searched(u"KRT."_s);
        list->findChild<QAction *>(u"ekbartum"_s)->trigger();
        QTimer::singleShot(50, &rooms, [this] {
            EXPECT_EQ(open<Baruret>().size(), 1);
            rooms.showConnection(); // the connection is open: the dialog unloads itself
        });
        click(list, u"brkdurt"_s);
    }));
    EXPECT_TRUE(rooms.restartWanted());
}

// The till keeps its goods and so the program; the label form has gone by then, the print dialog
// with it.
TEST_F(RoomsTest, TheLabelFormEndsWhileALayoutIsChosen)
{
    stkkart *const list = searched(u"GID.00"_s);
    click(list, u"ektm"_s);
    rooms.showSales();
    enter(open<stfatura>().first(), u"srvadi"_s, u"86933308"_s);

    bool modal = false;
    QTimer::singleShot(50, &rooms, [&] {
        modal = QApplication::activeModalWidget() == open<yazfrm>().value(0);
        rooms.showConnection(); // the connection is open: the dialog unloads itself
    });
    click(list, u"chooseLayout"_s);
    EXPECT_TRUE(QTest::qWaitFor([] { return open<stkkart>().isEmpty(); }));
    QTest::qWait(20);
    EXPECT_TRUE(modal);
    EXPECT_TRUE(open<yazfrm>().isEmpty());
    EXPECT_EQ(open<stfatura>().size(), 1);
}
