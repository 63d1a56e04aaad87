#include "acceptance/rooms_shop.h"
#include "common/settings_database.h"
#include "labels/designer/forms/Form1.h"
#include "labels/designer/forms/element_dialog.h"
#include "labels/designer/forms/measure_dialog.h"
#include "labels/designer/forms/page_setup.h"
#include "labels/desk/forms/baruret.h"
#include "labels/desk/forms/fatura.h"
#include "labels/desk/forms/fytdegisbul.h"
#include "labels/desk/print_queue.h"
#include "labels/print/forms/print_problems.h"
#include "labels/print/forms/yazfrm.h"
#include "platform/machine/window_style.h"
#include "sales/forms/receipt_designer.h"
#include "sales/forms/stfatura.h"
#include "shell/forms/baglan.h"
#include "shell/forms/kakknd.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

struct RoomsWithTray : RoomsTest
{
    RoomsWithTray() : RoomsTest(OdbcEngine::kPatience, true) {}
};

/// Captions whose letter another control that is seen with them answers to as well.
QStringList doubleKeys(QWidget &form)
{
    QHash<QKeySequence, int> keys;
    QStringList all;
    const auto add = [&](const QString &caption) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        // No key of a Turkish keyboard gives an İ by itself.
        if (!key.isEmpty() && (++keys[key] > 1 || caption.contains(u"&İ"_s)))
            all += caption;
    };
    for (const auto *menu : form.findChildren<QMenu *>()) {
        keys.clear();
        for (const QAction *entry : menu->actions())
            add(entry->text());
    }
    keys.clear();
    for (const auto *bar : form.findChildren<QMenuBar *>())
        for (const QAction *entry : bar->actions())
            add(entry->text());
    for (const auto *label : form.findChildren<QLabel *>())
        if (label->isVisible() && label->buddy())
            add(label->text());
    for (const auto *button : form.findChildren<QAbstractButton *>())
        if (button->isVisible())
            add(button->text());
    for (const auto *tabs : form.findChildren<QTabBar *>())
        for (int tab = 0; tab < tabs->count(); ++tab)
            add(tabs->tabText(tab));
    return all;
}

/// An entry of the main menu.
void choose(const QString &item)
{
    const auto *menu = open<stkkart>().first()->findChild<QToolButton *>(u"menuButton"_s);
    for (QAction *action : menu->menu()->actions())
        if (action->objectName() == item)
            action->trigger();
}

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
    ASSERT_NE(await<parametre>(), nullptr);
    EXPECT_TRUE(open<parametre>().first()->isModal());
    rooms.showLogin();
    EXPECT_EQ(open<login>().size(), 0);
    shop.program.bag.reset(); // saving opens what is closed, though nothing is new
    click(open<parametre>().first(), u"button1"_s);
    QTest::qWait(20);
    EXPECT_EQ(open<parametre>().size(), 0);
    EXPECT_TRUE(Program::isOpen(shop.program.bag));
}

TEST_F(RoomsTest, TheTillStaysOverOtherWindowsWhileTheSettingsSaySo)
{
    {
        const OpenDatabase open(shop.program.files(), settings::kFile);
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
    rooms.showStockList();
    EXPECT_TRUE(onTop(open<stkkart>().first())) << "and one that was there before, too";

    rooms.showLogin();
    enter(open<login>().first(), u"lgpass"_s, {});
    parametre *const form = await<parametre>();
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
        QTimer::singleShot(50, &rooms, [this] {
            EXPECT_EQ(open<stkkart>().size(), 0);
            ASSERT_EQ(open<baglan>().size(), 1);
            rooms.showLastWindow();
            EXPECT_EQ(open<stkkart>().size(), 0) << "nothing can be listed";
            open<baglan>().first()->close();
        });
    }));
    EXPECT_FALSE(rooms.restartWanted());
}

TEST_F(RoomsTest, WithoutATrayTheLastWindowEndsTheProgram)
{
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

TEST_F(RoomsTest, WhatTheMenuIsAskedForDuringAPrintComesWhenItIsDone)
{
    stkkart *const form = searched(u"GID.00"_s);
    click(form, u"ektm"_s);
    click(form, u"chooseLayout"_s);
    auto *const layouts = await<yazfrm>();
    layouts->findChild<QListWidget *>(u"liste"_s)->setCurrentRow(0);
    click(layouts, u"yazdir"_s);
    auto *const question = await<PrintProblems>(); // the run waits for its answer
    ASSERT_NE(question, nullptr);
    choose(u"ayr"_s);
    QTest::qWait(50);
    EXPECT_EQ(open<login>().size(), 0);
    click(question, u"yazdir"_s);
    EXPECT_NE(await<login>(), nullptr);
    EXPECT_FALSE(QDir(shop.program.path(u"cikti")).entryList({u"*.pdf"_s}).isEmpty());
}

TEST_F(RoomsTest, ALoaderClosedWhileItsStocksAreReadDoesNoHarm)
{
    rooms.open();
    auto *list = open<stkkart>().first();
    click(list, u"fytdegisbul"_s);
    ASSERT_EQ(open<fytdegisbul>().size(), 1);
    const QPointer<fytdegisbul> form = open<fytdegisbul>().first();
    form->findChild<QLineEdit *>(u"tr1"_s)->setText(u"01.01.2000"_s);
    const auto *stocks = list->findChild<QTreeView *>(u"l1"_s)->model();
    QObject::connect(stocks, &QAbstractItemModel::rowsInserted, form.data(),
                     [&] { QTimer::singleShot(0, form.data(), &QWidget::close); });
    QTest::keyClick(form->findChild<QLineEdit *>(u"tr1"_s), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }, 60'000));
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
        rooms.showSales();
        enter(open<stfatura>().first(), u"srvadi"_s, u"86933308"_s);
        QTimer::singleShot(50, &rooms, [this] {
            EXPECT_EQ(open<Baruret>().size(), 1);
            rooms.showConnection(); // the connection is open: the dialog unloads itself
        });
        click(list, u"brkdurt"_s);
    }));
    EXPECT_TRUE(rooms.restartWanted());
    EXPECT_TRUE(shop.prompt.shown.empty()) << "the sale comes back with the program";
}

TEST_F(RoomsTest, ADoubleClickOnALayoutPrintsWhenItsListIsDoneWithIt)
{
    stkkart *const list = searched(u"GID.00"_s);
    click(list, u"ektm"_s);
    click(list, u"chooseLayout"_s);
    auto *const layouts = await<yazfrm>()->findChild<QListWidget *>(u"liste"_s);
    ASSERT_TRUE(QTest::qWaitForWindowActive(layouts->window()));
    EXPECT_EQ(doubleKeys(*layouts->window()), QStringList());
    const auto printed = [this] {
        for (const PrintProblems *asked : open<PrintProblems>())
            asked->findChild<QPushButton *>(u"yazdir"_s)->click();
        return !QDir(shop.program.path(u"cikti")).entryList({u"*.pdf"_s}).isEmpty();
    };
    const QPoint first = layouts->visualItemRect(layouts->item(0)).center();
    QTest::mouseClick(layouts->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(layouts->viewport(), Qt::LeftButton, {}, first);
    EXPECT_FALSE(printed()) << "the list is deleted while the run lets the windows live";
    EXPECT_TRUE(QTest::qWaitFor(printed, 20'000));
    EXPECT_TRUE(open<yazfrm>().isEmpty());
}

TEST_F(RoomsTest, TheDesignerOpensTheLayoutThatWasChosenToPrint)
{
    stkkart *const list = searched(u"GID.00"_s);
    click(list, u"ektm"_s);
    click(list, u"chooseLayout"_s);
    auto *const layouts = await<yazfrm>()->findChild<QListWidget *>(u"liste"_s);
    layouts->setCurrentRow(1);
    const QString name = layouts->currentItem()->text();
    click(layouts->window(), u"duzenle"_s);
    ASSERT_NE(await<Form1>(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return await<Form1>()->windowTitle().contains(name); }))
        << await<Form1>()->windowTitle().toStdString();
}

TEST_F(RoomsTest, WhoDoesNotWantToEndKeepsEveryForm)
{
    rooms.open();
    rooms.showSales();
    enter(open<stfatura>().first(), u"srvadi"_s, u"86933308"_s);
    choose(u"cikis"_s);
    choose(u"cikis"_s); // and nobody says yes
    EXPECT_TRUE(QTest::qWaitFor([this] { return !shop.prompt.shown.empty(); }));
    QTest::qWait(100);
    EXPECT_EQ(shop.prompt.shown.size(), 1U);
    EXPECT_EQ(open<stkkart>().size() + open<stfatura>().size(), 2);

    rooms.showDesigner();
    Form1 *const designer = await<Form1>();
    designer->findChild<QAction *>(u"barkod"_s)->trigger();
    QTest::keyClick(designer->findChild<QWidget *>(u"canvas"_s), Qt::Key_Return);
    shop.prompt.answers = {Answer::yes, Answer::closed}; // the sale may go, the design not
    choose(u"cikis"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return shop.prompt.shown.size() == 3U; }));
    QTest::qWait(20);
    EXPECT_EQ(open<stkkart>().size() + open<stfatura>().size() + open<Form1>().size(), 3);
}

// The tray can be reached, and a timer can close a form, while a box waits for its answer.
TEST_F(RoomsWithTray, NoFormGoesAndNothingEndsWhileABoxIsOpen)
{
    bool answered = false;
    EXPECT_TRUE(endsByItself([&] {
        rooms.open();
        rooms.showLogin();
        const QPointer form = open<login>().first();
        shop.prompt.onShow = [&, form] { // the password is wrong
            form->close();
            choose(u"stkkrt"_s);
            choose(u"cikis"_s);
            QEventLoop box;
            QTimer::singleShot(200, &box, &QEventLoop::quit);
            box.exec();
            EXPECT_TRUE(form);
            EXPECT_EQ(open<stkkart>().size(), 1);
            answered = true;
        };
        enter(form, u"lgpass"_s, u"yok"_s);
    }));
    EXPECT_TRUE(answered);
}

// With a tray the program goes on without a window; whoever starts it again gets the last one back.
TEST_F(RoomsWithTray, TheLastWindowComesBackAndBearsTheMenu)
{
    rooms.open();
    QTest::qWait(20); // the start timer shows the stock list
    rooms.showSales();
    await<stkkart>()->close();
    stfatura *const till = await<stfatura>();
    EXPECT_TRUE(till->menuButton()->isVisible());
    till->close();
    QTest::qWait(20);
    EXPECT_TRUE(open<stfatura>().isEmpty());
    rooms.showLastWindow();
    EXPECT_EQ(open<stfatura>().size(), 1);
    EXPECT_TRUE(open<stkkart>().isEmpty());
}

TEST_F(RoomsTest, ASavedServerIsConnectedOnOneKeyAndTheTillKeepsItsGoods)
{
    rooms.open();
    rooms.showSales();
    enter(open<stfatura>().first(), u"srvadi"_s, u"86933308"_s);
    for (const Answer answer : {Answer::no, Answer::yes}) {
        rooms.showLogin();
        enter(await<login>(), u"lgpass"_s, {});
        const QString company = answer == Answer::yes ? u"YOK"_s : u"BASKA"_s;
        await<parametre>()->findChild<QLineEdit *>(u"sqladi"_s)->setText(company);
        shop.prompt.shown.clear();
        shop.prompt.answers = {answer};
        click(open<parametre>().first(), u"button1"_s);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !shop.prompt.shown.empty(); }));
        QTest::qWait(20);
        EXPECT_EQ(Program::isOpen(shop.program.bag), answer == Answer::no);
        EXPECT_EQ(open<stfatura>().size(), 1);
    }
}

// 1366 × 768 at 150 %, less the frame of a window and the bar of the desktop.
TEST_F(RoomsTest, EveryFormFitsASmallScreenAndOpensAtItsFirstField)
{
    constexpr QSize room(895, 472);
    constexpr QSize frame(16, 40); // of a window
    rooms.open();
    stkkart *const list = searched(u"KRT."_s);
    list->findChild<QAction *>(u"ekbartum"_s)->trigger();
    rooms.showSales();
    rooms.showLogin();
    const auto check = [&](QWidget *form, const QString &focus) {
        ASSERT_NE(form, nullptr) << focus.toStdString();
        const QSize least = form->minimumSizeHint().expandedTo(form->minimumSize());
        EXPECT_EQ(least.boundedTo(room), least) << form->objectName().toStdString();
        const QSize wanted =
            form->sizeHint().boundedTo(room).boundedTo(form->screen()->availableSize() - frame);
        EXPECT_EQ(form->size().expandedTo(wanted), form->size())
            << form->objectName().toStdString();
        EXPECT_TRUE(QTest::qWaitFor([form] { return form->focusWidget() != nullptr; }));
        const QWidget *field = form->focusWidget();
        EXPECT_EQ(field ? field->objectName() : QString(), focus);
        EXPECT_EQ(doubleKeys(*form), QStringList()) << form->objectName().toStdString();
    };
    check(list, u"Text1"_s);
    check(open<stfatura>().value(0), u"srvadi"_s);
    check(open<login>().value(0), u"lgpass"_s);
    enter(open<login>().first(), u"lgpass"_s, {});
    check(await<parametre>(), u"srvadi"_s);
    click(open<parametre>().first(), u"button6"_s);
    check(await<ReceiptDesigner>(), u"headerText"_s);
    open<ReceiptDesigner>().first()->close();
    open<parametre>().first()->close();
    click(list, u"brkdurt"_s);
    check(await<Baruret>(), u"Text1"_s);
    open<Baruret>().first()->close();
    rooms.showDesigner();
    check(await<Form1>(), u"canvas"_s);
    open<Form1>().first()->findChild<QAction *>(u"sayfa_ayari"_s)->trigger();
    check(await<PageSetup>(), u"yazici"_s);
    click(open<PageSetup>().first(), u"olc"_s);
    check(await<MeasureDialog>(), u"left"_s);
    open<MeasureDialog>().first()->close();
    open<PageSetup>().first()->close();
    Form1 *const designer = open<Form1>().first();
    for (const QString &tool : {u"metin"_s, u"barkod"_s, u"resim"_s}) {
        designer->findChild<QAction *>(tool)->trigger();
        QTest::keyClick(designer->findChild<QWidget *>(u"canvas"_s), Qt::Key_Return);
        if (open<ElementDialog>().isEmpty()) // a barcode is placed without it
            designer->findChild<QAction *>(u"ozellikler"_s)->trigger();
        auto *const element = await<ElementDialog>();
        ASSERT_NE(element, nullptr);
        EXPECT_EQ(doubleKeys(*element), QStringList()) << tool.toStdString();
        element->accept();
        EXPECT_EQ(doubleKeys(*designer), QStringList()) << tool.toStdString();
    }
    designer->close();
    click(list, u"fatura"_s);
    check(await<fatura>(), u"c1"_s);
    click(list, u"fytdegisbul"_s);
    check(await<fytdegisbul>(), u"tr1"_s);
    rooms.showAbout();
    check(await<kakknd>(), u"button1"_s);
}
