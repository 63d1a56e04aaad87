#include "sales/forms/stfatura.h"
#include "sales/till_session.h"
#include "sales/till_shop.h"
#include "support/keyboard.h"

#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The real till on fakes, driven by keys as a cashier and a scanner would.
struct TillForm : testing::Test
{
    TillForm()
    {
        for (int i = 0; i < 10; ++i) {
            const QString code = QString::number(869000 + i);
            shop.add({code, u"S%1"_s.arg(i), u"Ürün %1"_s.arg(i), 10.0 + i});
        }
        shop.host.answers[host_queries::allOf(u"PERSONEL")] =
            RecordSet({u"PERKOD"_s, u"PERADSOYAD"_s, u"PEROZKOD"_s},
                      {{u"P1"_s, u"Ayşe"_s, u"1907"_s}, {u"P2"_s, u"Ali"_s, u"2580"_s}});
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    template <typename Control>
    Control &control(const QString &name)
    {
        auto *found = form.findChild<Control *>(name);
        if (!found)
            throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    QLineEdit &entry() { return control<QLineEdit>(u"srvadi"_s); }
    QString label(const QString &name) { return control<QLabel>(name).text(); }

    static void scan(const QString &code)
    {
        type(code);
        key(Qt::Key_Return);
    }

    /// What the user does in the dialog that opens next.
    void inDialog(const std::function<void()> &keys)
    {
        focused(); // the window has the keyboard before the dialog takes it
        dialogAwaited = true;
        auto *look = new QTimer(&form);
        look->callOnTimeout([this, look, keys] {
            const QWidget *dialog = QApplication::activeModalWidget();
            if (!dialog || !QApplication::focusWidget() ||
                QApplication::focusWidget()->window() != dialog)
                return;
            look->stop();
            keys();
            if (auto *left = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "dialog still open: " << left->objectName().toStdString();
                left->reject();
            }
            dialogAwaited = false;
        });
        look->start(1);
    }
    /// The same, opened by `opener`.
    void inDialogOf(Qt::Key opener, const std::function<void()> &keys)
    {
        inDialog(keys);
        key(opener);
        awaitItsEnd();
    }
    void awaitItsEnd()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !dialogAwaited && !session.work().busy(); }));
    }

    TillShop shop;
    TillSession session{shop.program};
    stfatura form{session};
    bool dialogAwaited = false;
};

} // namespace

TEST_F(TillForm, AWholeSaleIsDoneByKeys)
{
    scan(u"869005"_s);
    scan(u"869006"_s);
    scan(u"869005"_s);
    EXPECT_EQ(label(u"gentop1"_s), u"46,00"_s);
    EXPECT_EQ(entry().text(), QString());
    EXPECT_EQ(control<QTableView>(u"l1"_s).currentIndex().row(), 0);
    key(Qt::Key_Down);
    inDialogOf(Qt::Key_F3, [] {
        type(u"2a,-,5"_s); // letters, signs and the second comma are dropped
        key(Qt::Key_Return);
    });
    EXPECT_EQ(label(u"gentop1"_s), u"70,00"_s);
    inDialogOf(Qt::Key_F4, [] { key(Qt::Key_Escape); });
    EXPECT_EQ(label(u"gentop1"_s), u"70,00"_s);

    shop.prompt.answers = {Answer::yes};
    key(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([this] { return label(u"gentop1"_s) == u"30,00"; }));

    key(Qt::Key_F6);
    EXPECT_EQ(focused()->objectName(), u"nkit1"_s);
    type(u"1.000"_s);
    EXPECT_EQ(label(u"prust1"_s), u"970,00"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(focused(), &entry());
    EXPECT_EQ(control<QLineEdit>(u"nkit1"_s).text(), u"1.000,00"_s);

    shop.prompt.answers = {};
    key(Qt::Key_F2);
    EXPECT_EQ(label(u"gentop1"_s), u"0,00"_s);
    EXPECT_EQ(label(u"prust1"_s), u"970,00"_s);
    const auto *panel = control<QLabel>(u"prust1"_s).parentWidget();
    EXPECT_EQ(panel->findChild<QLabel *>(u"changeLabel"_s)->text(), u"PARA ÜSTÜ   (satış 30,00)"_s);
    ASSERT_EQ(shop.printed().size(), 1U);
    EXPECT_TRUE(shop.printed()[0].texts.contains(u"*970,00"_s));
}

TEST_F(TillForm, ListsAreSwitchedByKeysAndByMouse)
{
    scan(u"869001"_s);
    key(Qt::Key_F8);
    scan(u"869002"_s);
    EXPECT_EQ(session.list(1).size(), 1);
    EXPECT_EQ(label(u"gentop11"_s), u"12,00"_s);
    QTabBar &tabs = control<QTabBar>(u"tb1"_s);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(2).center());
    scan(u"869003"_s);
    EXPECT_EQ(label(u"gentop13"_s), u"13,00"_s);
    key(Qt::Key_F5);
    scan(u"S4"_s);
    EXPECT_EQ(session.list(2).size(), 2);
}

TEST_F(TillForm, TheEntryBoxGetsTheFocusBack)
{
    scan(u"869001"_s);
    QTableView &list = control<QTableView>(u"l1"_s);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(focused(), &entry());
    for (QPushButton *button : form.findChildren<QPushButton *>())
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus) << button->objectName().toStdString();
    QTest::mouseClick(&control<QLineEdit>(u"nkit1"_s), Qt::LeftButton);
    EXPECT_NE(focused(), &entry());
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), &entry());
    inDialog([] { scan(u"1"_s); });
    QTest::mouseClick(&control<QPushButton>(u"button2"_s), Qt::LeftButton);
    awaitItsEnd();
    EXPECT_EQ(focused(), &entry());
}

TEST_F(TillForm, AScanIntoTheQuantityDialogIsRefused)
{
    scan(u"869001"_s);
    inDialogOf(Qt::Key_F3, [] {
        scan(u"8690123456789"_s);
        auto *dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        EXPECT_FALSE(dialog->findChild<QLabel *>(u"fault"_s)->text().isEmpty());
        key(Qt::Key_Escape);
    });
    EXPECT_EQ(session.list(0).line(0)[SaleColumn::quantity], u"1"_s);
}

TEST_F(TillForm, AnUnknownCodeIsSeen)
{
    scan(u"123"_s);
    EXPECT_EQ(label(u"notice"_s), u"Barkod bulunamadı: 123"_s);
    scan(QString(500, u'9'));
    EXPECT_LT(label(u"notice"_s).size(), 200);
    scan(u"869001"_s);
    EXPECT_EQ(label(u"notice"_s), QString());
}

/// Keys as the window system brings them while the program does not look.
void typeAhead(QWidget &window, const QString &text)
{
    const auto send = [&](Qt::Key key, const QString &letter) {
        qt_handleKeyEvent(window.windowHandle(), QEvent::KeyPress, key, Qt::NoModifier, letter);
        qt_handleKeyEvent(window.windowHandle(), QEvent::KeyRelease, key, Qt::NoModifier, letter);
    };
    for (const QChar c : text)
        c == u'\r'  ? send(Qt::Key_Return, u"\r"_s)
        : c == u'F' ? send(Qt::Key_F3, {}) // its key
                    : send(QTest::asciiToKey(c.toLatin1()), c);
}

/// The server is away for a while: a scan waits for it, others follow, a box comes up.
struct FrozenTill : TillForm
{
    FrozenTill()
    {
        shop.prompt.onShow = [this] {
            form.activateWindow();
            QDialog box(&form);
            new QLineEdit(&box);
            inDialog([&] {
                if (atBox)
                    atBox();
                box.accept();
            });
            box.exec();
        };
    }

    /// Lets so many look-ups run out of time; `meanwhile` happens during the first.
    void freeze(int times, const std::function<void()> &meanwhile)
    {
        shop.host.failOn = [=, this, left = times](const QString &) mutable -> std::optional<int> {
            if (left == 0)
                return {};
            if (left-- == times)
                meanwhile();
            return HostError::kConnectionLost;
        };
    }

    QStringList codes(int list)
    {
        QStringList all;
        for (const SaleLine &line : session.list(list).lines())
            all += line[SaleColumn::barcode];
        return all;
    }

    std::function<void()> atBox;
};

TEST_F(FrozenTill, WhatWasTypedMeanwhileIsEnteredBehindTheBox)
{
    freeze(1, [this] { typeAhead(form, u"869002\r869003\r86"_s); });
    atBox = [] { scan(u"9004"_s); };
    scan(u"869001"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return session.list(0).size() == 4; }));
    EXPECT_EQ(codes(0), QStringList({u"869001"_s, u"869002"_s, u"869003"_s, u"869004"_s}));
    EXPECT_EQ(entry().text(), QString());
}

TEST_F(FrozenTill, WhatWasTypedForADialogGoesIntoIt)
{
    shop.host.failOn = [this, looked = false](const QString &) mutable -> std::optional<int> {
        if (!std::exchange(looked, true))
            typeAhead(form, u"F5\r869002\rF,5\r"_s); // the quantity of each
        return {};
    };
    scan(u"869001"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return label(u"gentop1"_s) == u"61,00"; }))
        << label(u"gentop1"_s).toStdString();
    EXPECT_EQ(codes(0), QStringList({u"869001"_s, u"869002"_s}));
}

TEST_F(FrozenTill, WhatCannotBeEnteredIsShown)
{
    freeze(2, [this] {
        typeAhead(form, u"869002\r"_s);
        qt_handleKeyEvent(form.windowHandle(), QEvent::KeyPress, Qt::Key_Delete, {});
    });
    scan(u"869001"_s);
    const QString expected = u"Girilmedi, yeniden girin: 869001, 869002, Del"_s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return label(u"notice"_s) == expected; }))
        << label(u"notice"_s).toStdString();
    EXPECT_TRUE(session.list(0).isEmpty());
    EXPECT_EQ(entry().selectedText(), u"869001"_s); // the next scan replaces it
}

TEST_F(FrozenTill, KeysGoWhereTheyWereTyped)
{
    scan(u"869001"_s);
    shop.host.answers.remove(u"select * from EVRAKNO where EVRNOMODUL='1'AND EVRSIRANO='2'"_s);
    atBox = [] { scan(u"869002"_s); };
    shop.host.failOn = [this](const QString &statement) -> std::optional<int> {
        if (statement.contains(u"EVRNOMODUL='2'"_s))
            typeAhead(form, u"869003\r"_s);
        return {};
    };
    key(Qt::Key_F2); // tells of a missing counter in the middle of the posting
    EXPECT_TRUE(QTest::qWaitFor([this] { return session.list(0).size() == 2; }));
    EXPECT_EQ(codes(0), QStringList({u"869003"_s, u"869002"_s}));
    shop.host.failOn = nullptr;
    EXPECT_EQ(shop.sent(u"INSERT INTO FATHAR"_s).size(), 1);

    // A dialog of another room over the open till keeps its keys.
    QDialog settings;
    auto *box = new QLineEdit(&settings);
    inDialog([&] {
        scan(u"sifre"_s);
        EXPECT_EQ(box->text(), u"sifre"_s);
        settings.accept();
    });
    settings.exec();
    EXPECT_EQ(session.list(0).size(), 2);
}

/// Seen while the thread of the window waits: nothing is drawn later by the event loop.
TEST_F(TillForm, APostingThatWaitsShowsItsStepAtOnce)
{
    struct Paints : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    } paints;
    scan(u"869001"_s);
    control<QLabel>(u"notice"_s).installEventFilter(&paints);
    QString told;
    shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
        if (!statement.startsWith(u"INSERT INTO STKFIS "))
            return {};
        paints.count = 0;
        shop.program.host.waiting();
        EXPECT_GT(paints.count, 0);
        told = label(u"notice"_s);
        return {};
    };
    key(Qt::Key_F2);
    EXPECT_EQ(told, u"Sunucu bekleniyor: kayıt 5 / 27"_s);
    EXPECT_FALSE(shop.program.host.waiting);
}

TEST_F(TillForm, F2SpeaksUpForAnUnenteredCodeAndEscapeTakesItAway)
{
    scan(u"869001"_s);
    type(u"8690"_s);
    key(Qt::Key_F2);
    EXPECT_EQ(session.list(0).size(), 1);
    EXPECT_EQ(entry().selectedText(), u"8690"_s);
    key(Qt::Key_Escape);
    EXPECT_EQ(entry().text(), QString());
    key(Qt::Key_F6);
    scan(u"8692848009608"_s); // unknown, and no cash either
    EXPECT_EQ(label(u"notice"_s), u"Barkod bulunamadı: 8692848009608"_s);
    key(Qt::Key_F2);
    EXPECT_TRUE(session.list(0).isEmpty());
    EXPECT_EQ(session.postedTotal(0), u"11,00"_s);
}

/// Every figure can be read whole, at any width and with any widths saved before.
TEST_F(TillForm, ColumnsNeverCutAFigure)
{
    shop.add({u"1"_s, u"PAHALI"_s, u"Pahalı ürün"_s, 1234567.89, {10, 0, 0}});
    scan(u"1"_s);
    QTableView &list = control<QTableView>(u"l1"_s);
    const QAbstractItemView &view = list;
    for (const int width : {1920, 1366, 911, 640}) {
        form.setWindowState(Qt::WindowNoState);
        form.resize(width, 600);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return form.width() <= std::max(width, form.minimumWidth()); }));
        if (width == 1920) // by the user, whose wish stands
            list.horizontalHeader()->resizeSection(1, 300);
        for (const SaleColumn column :
             {SaleColumn::vatRate, SaleColumn::price, SaleColumn::quantity, SaleColumn::amount,
              SaleColumn::discount, SaleColumn::net}) {
            const int at = static_cast<int>(column) - 1;
            EXPECT_FALSE(list.isColumnHidden(at)) << width;
            EXPECT_GE(list.columnWidth(at), view.sizeHintForColumn(at)) << width << ' ' << at;
        }
    }
    EXPECT_FALSE(list.isColumnHidden(1));
    EXPECT_EQ(list.columnWidth(1), 300);
}

TEST_F(TillForm, TheCashierIsChosenFromTheListOrByCode)
{
    inDialogOf(Qt::Key_F10, [] {
        key(Qt::Key_Down);
        key(Qt::Key_Return);
    });
    EXPECT_EQ(label(u"panel4"_s), u"Ali"_s);

    shop.db.setRow(u"per"_s, {{u"per"_s, u"1"_s}});
    session.load();
    inDialogOf(Qt::Key_F10, [] {
        scan(u"0000"_s); // refused, the box is empty again
        scan(u"1907"_s);
    });
    EXPECT_EQ(label(u"panel4"_s), u"Ayşe"_s);
    EXPECT_EQ(shop.prompt.shown.size(), 1U);
    inDialogOf(Qt::Key_F10, [] { key(Qt::Key_Escape); });
    EXPECT_EQ(label(u"panel4"_s), u"Ayşe"_s);
}

TEST_F(TillForm, ClosingAsksAndKeepsTheColumnWidths)
{
    scan(u"869001"_s);
    form.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return shop.prompt.shown.size() == 1; }));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(session.list(0).size(), 1);
    shop.prompt.answers = {Answer::yes};
    session.setCashier({u"P1"_s, u"Ayşe"_s});
    form.close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return form.isHidden(); }));
    EXPECT_EQ(session.cashier(), Cashier()); // whoever opens it next chooses anew
    EXPECT_TRUE(session.list(0).isEmpty());
    EXPECT_TRUE(shop.db.statements.filter(u"Update olcu"_s).size() == 1);
}
