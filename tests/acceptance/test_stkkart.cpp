#include "app/outer_loop.h"
#include "fakes/label_shop.h"
#include "labels/desk/forms/stkkart.h"
#include "support/keyboard.h"
#include "support/print_qt.h"

#include <QAbstractButton>
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The label form of the little shop, shown and worked with the keyboard.
class StockForm : public testing::Test
{
protected:
    LabelShop shop;
    stkkart form{shop.desk};

    StockForm()
    {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    template <typename T>
    T *child(const char *name)
    {
        auto *found = form.findChild<T *>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QTreeView *list(const char *name) { return child<QTreeView>(name); }
    QString cell(const char *name, int row, int column)
    {
        return list(name)->model()->index(row, column).data().toString();
    }
    int rows(const char *name) { return list(name)->model()->rowCount(); }
    QString text(const char *label) { return child<QLabel>(label)->text(); }

    /// Types into the box a function key leads to and presses Enter.
    static void search(Qt::Key box, const QString &words)
    {
        key(box);
        type(words);
        key(Qt::Key_Return);
    }
};

} // namespace

TEST_F(StockForm, FromSearchToQueueByKeyboard)
{
    EXPECT_EQ(focus(), u"Text1"_s);
    search(Qt::Key_F3, u"ü"_s);
    EXPECT_EQ(shop.host.statements.value(0), u"select * from STKKART where STKCINSI LIKE '%ü%'"_s);
    EXPECT_EQ(rows("l1"), 1);
    EXPECT_EQ(focus(), u"Text1"_s);

    key(Qt::Key_Tab);
    EXPECT_EQ(focus(), u"l1"_s);
    EXPECT_EQ(list("l1")->selectionModel()->selectedRows().size(), 1);
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    EXPECT_EQ(rows("l2"), 2);
    EXPECT_EQ(cell("l2", 1, 0), u"2"_s);
    EXPECT_EQ(cell("l2", 1, 3), u"Süt 1 L"_s);
    EXPECT_EQ(text("panel1"), u"Toplam etiket: 2"_s);

    key(Qt::Key_Escape);
    EXPECT_EQ(focus(), u"Text1"_s);
    search(Qt::Key_F4, u"S"_s);
    EXPECT_EQ(rows("l1"), 3);
    search(Qt::Key_F5, u"221"_s);
    EXPECT_EQ(cell("l1", 0, 3), u"ADET (BIRIM2)"_s);
    key(Qt::Key_F6);
    EXPECT_EQ(rows("l1"), 3);
    EXPECT_TRUE(shop.machine.prompt.shown.empty());
}

TEST_F(StockForm, TabAndDownLeaveEverySearchBoxForTheFirstStock)
{
    key(Qt::Key_F6);
    for (const Qt::Key box : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5})
        for (const Qt::Key leave : {Qt::Key_Tab, Qt::Key_Down}) {
            list("l1")->clearSelection();
            key(box);
            key(leave);
            EXPECT_EQ(focus(), u"l1"_s);
            ASSERT_EQ(list("l1")->selectionModel()->selectedRows().size(), 1);
            EXPECT_EQ(list("l1")->selectionModel()->selectedRows()[0].row(), 0);
        }
}

TEST_F(StockForm, UnitsAndBulkCommands)
{
    child<QRadioButton>("Option3")->click();
    key(Qt::Key_F6);
    EXPECT_EQ(rows("l1"), 4);
    const struct
    {
        Qt::Key key;
        int rows;
    } cases[] = {{Qt::Key_1, 3}, {Qt::Key_2, 1}, {Qt::Key_3, 4}};
    for (const auto &c : cases) {
        key(Qt::Key_F8);
        key(Qt::Key_Delete, Qt::ControlModifier);
        EXPECT_EQ(rows("l2"), 0);
        key(c.key, Qt::ControlModifier);
        EXPECT_EQ(rows("l2"), c.rows);
    }
}

TEST_F(StockForm, CountsAreTypedForOneRowOrForAll)
{
    key(Qt::Key_F6);
    key(Qt::Key_3, Qt::ControlModifier);
    key(Qt::Key_F8);
    key(Qt::Key_Return);
    EXPECT_EQ(focus(), u"adet"_s);
    type(u"12"_s);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    type(u"5"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(cell("l2", 0, 6) + cell("l2", 1, 6) + cell("l2", 2, 6), u"1251"_s);
    EXPECT_EQ(text("panel1"), u"Toplam etiket: 18"_s);

    auto *all = child<QLineEdit>("Text2");
    all->setFocus();
    all->setText(u"2,5"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_EQ(all->text(), u"2,5"_s); // what was typed stays for correction
    all->setText(u"3"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(all->text(), u"1"_s);
    EXPECT_EQ(text("panel1"), u"Toplam etiket: 9"_s);
    EXPECT_EQ(child<QLineEdit>("adet")->text(), u"3"_s);

    key(Qt::Key_F8);
    key(Qt::Key_Delete);
    EXPECT_EQ(rows("l2"), 2);
    EXPECT_EQ(cell("l2", 1, 0), u"2"_s);
    EXPECT_EQ(text("panel1"), u"Toplam etiket: 6"_s);
}

TEST_F(StockForm, AnEmptiedQueueHasNoCountAndAFreshListShowsItsStart)
{
    shop.stockUp(200);
    key(Qt::Key_F6);
    key(Qt::Key_3, Qt::ControlModifier);
    key(Qt::Key_F7);
    key(Qt::Key_End);
    EXPECT_GT(list("l1")->verticalScrollBar()->value(), 0);
    key(Qt::Key_F8);
    key(Qt::Key_End);
    EXPECT_EQ(child<QLineEdit>("adet")->text(), u"1"_s);
    child<QAction>("ekbartum")->trigger();
    EXPECT_EQ(rows("l2"), 200);
    EXPECT_EQ(child<QLineEdit>("adet")->text(), QString());
    EXPECT_EQ(list("l2")->verticalScrollBar()->value(), 0);
    key(Qt::Key_F6);
    EXPECT_EQ(list("l1")->verticalScrollBar()->value(), 0);
}

TEST_F(StockForm, PrintKeysAndMenusAskForTheQueueOrItsSelectedRow)
{
    QStringList requests;
    QObject::connect(
        &shop.desk.printing(), &LabelPrinting::printWanted, [&](const PrintRequest &request) {
            requests += QString::number(static_cast<int>(request.mode));
            for (const LabelRow &row : request.rows)
                requests.last() += u' ' + QString::number(row.queueRow) + row.stockCode;
            requests.last() += request.chooseLayout ? u" ?"_s : QString();
        });
    auto *menu = child<QMenu>("yzdlst");
    auto *stockMenu = child<QMenu>("stklist");
    const auto rightClick = [this](const char *name) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), QPoint(20, 20));
        QApplication::sendEvent(list(name)->viewport(), &event);
    };
    rightClick("l1");
    rightClick("l2");
    EXPECT_FALSE(menu->isVisible() || stockMenu->isVisible()); // both lists are empty
    key(Qt::Key_F9);
    key(Qt::Key_F9, Qt::ShiftModifier);

    key(Qt::Key_F6);
    rightClick("l1");
    EXPECT_TRUE(stockMenu->isVisible());
    stockMenu->actions().at(3)->trigger();
    const QList<QAction *> orders = stockMenu->findChild<QMenu *>()->actions();
    for (const auto &[order, first] : {std::pair(2, u"Çay 500 g"_s), std::pair(6, u"Süt 1 L"_s)}) {
        orders.at(order)->trigger();
        EXPECT_EQ(cell("l1", 0, 2), first);
    }
    stockMenu->close();
    EXPECT_EQ(rows("l2"), 3);
    key(Qt::Key_F9, Qt::ShiftModifier); // no row is selected
    EXPECT_TRUE(requests.isEmpty());
    rightClick("l2");
    EXPECT_TRUE(menu->isVisible());
    menu->close();

    key(Qt::Key_F9);
    key(Qt::Key_F8);
    key(Qt::Key_Down);
    key(Qt::Key_F9, Qt::ShiftModifier);
    child<QAction>("yzdsec")->trigger();
    child<QAction>("yzdtum")->trigger();
    key(Qt::Key_F9, Qt::ControlModifier);
    const QString all = u"1 0S1 1S2 2S3"_s;
    EXPECT_EQ(requests, QStringList({all, u"2 1S2"_s, u"2 1S2"_s, all, all + u" ?"_s}));
}

TEST_F(StockForm, AQuoteBreaksTheStatementAndNothingElse)
{
    key(Qt::Key_F6);
    key(Qt::Key_3, Qt::ControlModifier);
    shop.host.failOn = [](const QString &statement) {
        return statement.count(u'\'') % 2 ? std::optional(HostError::kStatement) : std::nullopt;
    };
    search(Qt::Key_F3, u"Paşa'nın"_s);
    EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_EQ(rows("l1"), 3);
    EXPECT_EQ(rows("l2"), 3);
    EXPECT_EQ(child<QLineEdit>("Text1")->text(), u"Paşa'nın"_s);
    EXPECT_EQ(focus(), u"Text1"_s);
}

TEST_F(StockForm, EscapeStopsALongListAndItStillScrolls)
{
    shop.stockUp(100'000);
    const auto stopWhenSeen = [this](const QString &, int, int) {
        EXPECT_TRUE(child<QWidget>("progress")->isVisible());
        EXPECT_FALSE(child<QWidget>("addOne")->isEnabled());
        if (rows("l1") == 100'000)
            key(Qt::Key_Escape);
    };
    QObject::connect(&shop.desk, &LabelDesk::progressed, &form, stopWhenSeen);
    key(Qt::Key_F6);
    EXPECT_EQ(rows("l1"), 100'000);
    EXPECT_LT(shop.host.statements.size(), 200'001);
    EXPECT_TRUE(text("status").startsWith(u"Durduruldu"_s));
    EXPECT_FALSE(child<QWidget>("progress")->isVisible());

    QElapsedTimer timer;
    timer.start();
    key(Qt::Key_F7);
    for (int page = 0; page < 20; ++page) {
        key(page % 2 ? Qt::Key_Home : Qt::Key_End);
        key(Qt::Key_PageUp);
        form.grab();
    }
    EXPECT_LT(timer.elapsed(), 20 * 500); // with sanitizers; a screen takes some milliseconds
    key(Qt::Key_Return);
    EXPECT_EQ(rows("l2"), 1);
}

TEST(StockFormLife, ClosingDuringALoadEndsTheLoadThenTheForm)
{
    LabelShop shop;
    shop.stockUp(100'000);
    OuterLoop outer([&] { return shop.desk.isBusy(); });
    const QPointer<stkkart> form = new stkkart(shop.desk);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->show();
    QObject::connect(&shop.desk, &LabelDesk::progressed, form.data(), &QWidget::close);
    QTimer::singleShot(0, form.data(),
                       [&] { form->findChild<QAbstractButton *>(u"listAll"_s)->click(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form; }));
    EXPECT_FALSE(shop.desk.isBusy());
    EXPECT_LT(shop.host.statements.size(), 200'001);
}

TEST(StockFormLife, ColumnWidthsComeBack)
{
    LabelShop shop;
    const auto widths = [](const stkkart &form, const char *list) {
        const auto *header = form.findChild<QTreeView *>(QString::fromLatin1(list))->header();
        QStringList sizes;
        for (int column = 0; column < header->count(); ++column)
            sizes += QString::number(header->sectionSize(column));
        return sizes.join(u'-');
    };
    QString &stored = shop.machine.keys.values[u"/shop/Ayar.zev|list|wdt"_s];
    shop.machine.keys.values[u"/shop/Ayar.zev|list2|wdt"_s] = u"41-102-103-304-105-106-47"_s;
    for (const QString &kept : {u"101-102-303-104-105-106"_s, u"100-0-x"_s}) {
        stored = kept;
        stkkart form(shop.desk);
        form.show();
        const QString shown = widths(form, "l1");
        // The name takes what is left of the window, whatever was kept of it.
        EXPECT_EQ(shown.startsWith(u"101-102-"_s) && shown.endsWith(u"-104-105-106"_s),
                  kept.startsWith(u"101"_s))
            << shown.toStdString();
        EXPECT_TRUE(widths(form, "l2").startsWith(u"41-102-103-"_s));
        form.findChild<QTreeView *>(u"l1"_s)->header()->resizeSection(0, 77);
        form.close();
        EXPECT_TRUE(stored.startsWith(u"77-"_s)) << stored.toStdString();
        EXPECT_EQ(shop.machine.keys.values.value(u"/shop/Ayar.zev|list2|wdt"_s),
                  widths(form, "l2"));
    }
}
