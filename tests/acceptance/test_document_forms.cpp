#include "fakes/invoice_shop.h"
#include "fakes/label_shop.h"
#include "labels/desk/forms/baruret.h"
#include "labels/desk/forms/fatura.h"
#include "labels/desk/forms/fytdegisbul.h"
#include "labels/desk/forms/stkkart.h"
#include "support/keyboard.h"
#include "support/print_qt.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The underlined letter of a box or button; Qt shows it going down for a tenth of a second.
void pressLetter(Qt::Key letter)
{
    key(letter, Qt::AltModifier);
    QTest::qWait(150);
}

/// The controls that Tab visits from the one with the focus on, until it comes back there.
QStringList tabRound()
{
    const QString start = focus();
    QStringList names;
    for (int presses = 0; presses < 40 && (names.isEmpty() || names.last() != start); ++presses) {
        key(Qt::Key_Tab);
        if (focus() != (names.isEmpty() ? start : names.last()))
            names += focus();
    }
    return names;
}

/// A form shown on a machine of fakes and worked with the keyboard.
template <typename Form>
struct Shown
{
    template <typename... Parts>
    explicit Shown(Parts &...parts) : form(parts...)
    {
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    template <typename T>
    T *child(const char *name)
    {
        auto *found = form.template findChild<T *>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    int rows(const char *list) { return child<QTreeView>(list)->model()->rowCount(); }
    Form form;
};

} // namespace

TEST(InvoiceForm, FromTypeToTransferByKeyboard)
{
    InvoiceShop shop(3);
    shop.lines(u"'0'"_s, {{u"S0"_s, 1}});
    shop.lines(u"'2'"_s, {{u"S2"_s, 3}});
    Shown<fatura> shown(shop.picker);
    EXPECT_EQ(focus(), u"c1"_s);
    key(Qt::Key_Return);
    ASSERT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_EQ(shop.machine.prompt.shown[0].text, u"Fatura Tipi Seçimi Yapmanız Gerekiyor..."_s);
    EXPECT_EQ(tabRound(), QStringList({u"tr1"_s, u"tr2"_s, u"listele"_s, u"Check2"_s, u"l1"_s,
                                       u"Check1"_s, u"Text1"_s, u"kaydet"_s, u"satirlar"_s, u"l2"_s,
                                       u"aktar"_s, u"kapat"_s, u"c1"_s}));

    key(Qt::Key_Down);
    key(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(focus(), u"tr1"_s);
    type(u"01022026"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(shown.child<QLineEdit>("tr1")->text(), u"01.02.2026"_s);
    EXPECT_EQ(shown.rows("l1"), 3);
    EXPECT_EQ(shop.host.statements.last(), u"select * from FATFIS"_s);

    key(Qt::Key_F7);
    key(Qt::Key_Space);
    key(Qt::Key_End);
    key(Qt::Key_Space);
    key(Qt::Key_Return);
    EXPECT_EQ(shown.rows("l2"), 2);
    const QSignalSpy transfers(&shop.picker, &InvoicePicker::transferred);
    key(Qt::Key_F9);
    ASSERT_EQ(transfers.count(), 1);
    EXPECT_EQ(transfers[0][0].value<QList<InvoiceLine>>(),
              (QList<InvoiceLine>{{u"S0"_s, u"1"_s}, {u"S2"_s, u"3"_s}}));
    key(Qt::Key_Escape);
    EXPECT_FALSE(shown.form.isVisible());
}

TEST(DocumentForms, ADateIsTakenHoweverItIsTyped)
{
    InvoiceShop shop(3); // of 07.03.2026
    Shown<fatura> shown(shop.picker);
    auto *const from = shown.child<QLineEdit>("tr1");
    key(Qt::Key_Down);
    const std::function<void()> ways[] = {
        [&] { // click and type
            QTest::mouseClick(from, Qt::LeftButton, {}, QPoint(30, from->height() / 2));
            type(u"5.3.26"_s);
        },
        [&] {
            key(Qt::Key_A, Qt::ControlModifier);
            type(u"05032026"_s);
        },
        [&] {
            QGuiApplication::clipboard()->setText(u" 2026-03-05 "_s);
            key(Qt::Key_A, Qt::ControlModifier);
            key(Qt::Key_V, Qt::ControlModifier);
        },
        [&] { // counted down from today, the 7th
            key(Qt::Key_Down);
            key(Qt::Key_Down);
        },
    };
    for (const auto &way : ways) {
        from->setText(u"07.03.2026"_s);
        shown.child<QComboBox>("c1")->setFocus();
        key(Qt::Key_Tab);
        way();
        key(Qt::Key_Return);
        EXPECT_EQ(from->text(), u"05.03.2026"_s);
        EXPECT_EQ(shown.rows("l1"), 3);
    }
    from->setText(u"31.02.2026"_s);
    key(Qt::Key_Return);
    ASSERT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_TRUE(shop.machine.prompt.shown[0].text.startsWith(u"Tarih anlaşılamadı"_s));
    EXPECT_EQ(shown.rows("l1"), 3);
    EXPECT_EQ(from->text(), u"31.02.2026"_s); // for correction
}

TEST(InvoiceForm, TheMarkOfAllFollowsTheList)
{
    InvoiceShop shop(3);
    Shown<fatura> shown(shop.picker);
    auto *all = shown.child<QCheckBox>("Check2");
    key(Qt::Key_Down);
    key(Qt::Key_F5);
    pressLetter(Qt::Key_T);
    EXPECT_EQ(shop.picker.invoices().checkedReferences().size(), 3);
    shown.child<QComboBox>("c1")->setCurrentIndex(-1);
    key(Qt::Key_F5); // refused: the rows stay marked, and so does the box
    EXPECT_TRUE(all->isChecked());
    pressLetter(Qt::Key_T);
    EXPECT_TRUE(shop.picker.invoices().checkedReferences().isEmpty());
    pressLetter(Qt::Key_T);
    shown.child<QComboBox>("c1")->setCurrentIndex(0);
    key(Qt::Key_F5);
    EXPECT_FALSE(all->isChecked());
}

TEST(InvoiceForm, TheTrackingFilterIsSavedByItsButtonOnly)
{
    InvoiceShop shop(1);
    const auto file = [&](const char *name) {
        return shop.machine.keys.values.value(u"/shop/fattakip.zev|fat|"_s +
                                              QString::fromLatin1(name));
    };
    {
        Shown<fatura> shown(shop.picker);
        pressLetter(Qt::Key_K);
        key(Qt::Key_Tab);
        type(u"T-1055"_s);
    }
    EXPECT_EQ(file("takipno"), QString());
    {
        Shown<fatura> shown(shop.picker);
        EXPECT_FALSE(shown.child<QCheckBox>("Check1")->isChecked());
        pressLetter(Qt::Key_K);
        key(Qt::Key_Tab);
        type(u"T-1055"_s);
        pressLetter(Qt::Key_D);
    }
    EXPECT_EQ(file("takip") + file("takipno"), u"1T-1055"_s);
    Shown<fatura> shown(shop.picker);
    EXPECT_TRUE(shown.child<QCheckBox>("Check1")->isChecked());
    EXPECT_EQ(shown.child<QLineEdit>("Text1")->text(), u"T-1055"_s);
}

TEST(InvoiceForm, EscapeStopsALongListAndLeavesTheFormOpen)
{
    InvoiceShop shop(100'000);
    Shown<fatura> shown(shop.picker);
    int seen = 0;
    const auto stopAtSecond = [&](const QString &, int done, int total) {
        EXPECT_LE(done, total);
        EXPECT_TRUE(shown.child<QWidget>("cubuk")->isVisible());
        EXPECT_FALSE(shown.child<QWidget>("listele")->isEnabled());
        if (++seen == 2)
            key(Qt::Key_Escape);
    };
    QObject::connect(&shop.picker, &InvoicePicker::progressed, &shown.form, stopAtSecond);
    key(Qt::Key_Down);
    key(Qt::Key_F5);
    EXPECT_EQ(seen, 2);
    EXPECT_FALSE(shop.picker.isBusy());
    EXPECT_TRUE(shown.form.isVisible());
    EXPECT_GT(shown.rows("l1"), 0);
    EXPECT_LT(shown.rows("l1"), 100'000);
    EXPECT_TRUE(shown.child<QLabel>("durum")->text().startsWith(u"Durduruldu"_s));
    EXPECT_FALSE(shown.child<QWidget>("cubuk")->isVisible());
}

TEST(PriceChangeForm, FindsByKeyboardAndClosesByEscape)
{
    FakeMachine machine; // today is 07.03.2026
    PriceChangeRequest request(machine.program);
    const QSignalSpy found(&request, &PriceChangeRequest::requested);
    Shown<fytdegisbul> shown(request);
    EXPECT_EQ(focus(), u"tr1"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(tabRound(),
              QStringList({u"tr2"_s, u"sat1"_s, u"sat2"_s, u"bul"_s, u"kapat"_s, u"tr1"_s}));
    key(Qt::Key_A, Qt::AltModifier);
    type(u"0830"_s);
    pressLetter(Qt::Key_T);
    type(u"1200"_s);
    key(Qt::Key_Return);
    ASSERT_EQ(found.count(), 2);
    const auto asked = [&](int time) {
        QStringList texts;
        for (const QVariant &value : found.at(time))
            texts += value.toString();
        return texts;
    };
    EXPECT_EQ(asked(0),
              QStringList({u"01.03.2026"_s, u"31.03.2026"_s, u"00:00:00"_s, u"23:59:00"_s}));
    EXPECT_EQ(asked(1),
              QStringList({u"01.03.2026"_s, u"31.03.2026"_s, u"08:29:00"_s, u"12:00:00"_s}));
    key(Qt::Key_Escape);
    EXPECT_FALSE(shown.form.isVisible());
}

TEST(NumberForm, TypesPreviewsAndGeneratesByKeyboard)
{
    LabelShop shop;
    shop.stockUp(2);
    shop.desk.loader().listele();
    shop.desk.ekbartum();
    shop.machine.keys.values[u"/shop/Ayar.zev|barno|ean8"_s] = u"41"_s;
    NumberDesk &numbers = shop.desk.numbers();
    Shown<Baruret> shown(numbers);
    auto *box = shown.child<QLineEdit>("Text1");
    const auto text = [&](const char *label) { return shown.child<QLabel>(label)->text(); };
    const auto picture = [&] { return shown.child<QLabel>("onizleme")->pixmap().toImage(); };
    EXPECT_EQ(focus(), u"Text1"_s);
    EXPECT_EQ(text("baslik"), u"Ean 13  (12 Karakter)"_s);
    EXPECT_EQ(box->text(), u"200000000000"_s); // none was used before: the shop's own range
    EXPECT_TRUE(text("aciklama").contains(u"kendi malları"_s));
    EXPECT_EQ(tabRound(), QStringList({u"uret"_s, u"kapat"_s, u"c1"_s, u"Text1"_s}));

    pressLetter(Qt::Key_T);
    key(Qt::Key_Up);
    EXPECT_EQ(text("baslik"), u"Ean 8  (7 Karakter)"_s);
    EXPECT_EQ(box->text(), u"41"_s); // the number used last
    EXPECT_EQ(text("kod"), u"00000413"_s);
    const QImage remembered = picture();
    EXPECT_FALSE(remembered.isNull());

    key(Qt::Key_S, Qt::AltModifier);
    type(u"12345678x"_s);
    EXPECT_EQ(box->text(), u"1234567"_s); // what stood there was marked; a full box takes no more
    EXPECT_EQ(text("kod"), u"12345670"_s);
    EXPECT_NE(picture(), remembered);
    type(u"."_s);
    key(Qt::Key_Backspace);
    key(Qt::Key_Backspace);
    EXPECT_EQ(box->text(), u"123456"_s);
    type(u"x"_s);
    EXPECT_EQ(text("kod"), QString());
    key(Qt::Key_Return);
    EXPECT_EQ(shop.machine.prompt.shown.size(), 1U);
    EXPECT_EQ(box->text(), u"123456x"_s); // for correction
    key(Qt::Key_Backspace);
    key(Qt::Key_Enter);
    EXPECT_EQ(numbers.unsaved(), 2);
    EXPECT_EQ(box->text(), u"123458"_s);
    EXPECT_EQ(shop.machine.keys.values[u"/shop/Ayar.zev|barno|ean8"_s], u"123458"_s);
    key(Qt::Key_Escape);
    EXPECT_FALSE(shown.form.isVisible());
}
