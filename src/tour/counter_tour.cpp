#include "app/rooms.h"
#include "common/program.h"
#include "common/settings_database.h"
#include "tour/tour.h"

#include <QApplication>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

const QString kTill = u"stfatura"_s;
const QString kEntry = u"srvadi"_s;
const QString kFinder = u"FinderForm"_s;
const QString kMilk = u"8692848009608"_s;
const QString kPassword = u"TEZGAH"_s;
constexpr QSize kCustomerScreen(1024, 600);

} // namespace

/// Deleting wants the settings' password while it is set.
void Tour::guardDeleting(bool on)
{
    const OpenDatabase open(m_program.files(), settings::kFile);
    m_program.db.execute(
        u"Update login set sifre = '%1' Where id ='1'"_s.arg(on ? kPassword : QString()));
    m_program.db.execute(
        u"Update kasa set silsifre = '%1' Where id ='1'"_s.arg(on ? u"1"_s : u"0"_s));
}

void Tour::givePermission()
{
    stepIn(u"PermissionBox"_s, u"Silmek ayarların parolasını ister"_s, [this] {
        picture(u"PermissionBox"_s, u"PermissionBox"_s);
        type(u"PermissionBox"_s, u"parola"_s, kPassword);
        press(control(u"PermissionBox"_s, u"parola"_s), Qt::Key_Return);
        guardDeleting(false);
    });
}

void Tour::find(const QString &what, const QString &text, int row, const QString &file)
{
    stepIn(kFinder, what, [this, text, row, file] {
        type(kFinder, u"Text1"_s, text);
        QWidget *box = control(kFinder, u"Text1"_s);
        press(box, Qt::Key_Return);
        for (int i = 0; i < row; ++i)
            press(box, Qt::Key_Down);
        picture(kFinder, file);
        press(box, Qt::Key_Return);
    });
}

/// What a counter asks for: an item by its name, several at once, a customer with an account, notes
/// and cards, and what the customer sees.
void Tour::atTheCounter()
{
    step(u"F11: ürün adıyla bulunur"_s, [this] { saleKey(Qt::Key_F11); });
    find(u"Ürün bulma penceresi"_s, u"süt"_s, 3, u"urun-bul"_s);
    step(u"Yıldızla üç tane, Ctrl+M: satışın müşterisi"_s, [this] {
        scan(u"3*"_s + kMilk);
        press(control(kTill, kEntry), Qt::Key_M, Qt::ControlModifier);
    });
    find(u"Müşteri seçme penceresi"_s, u"otel"_s, 0, u"satisin-musterisi"_s);
    step(u"Ctrl+6, Ctrl+6: iki 200 liralık verildi"_s, [this] {
        for (int i = 0; i < 2; ++i)
            press(control(kTill, kEntry), Qt::Key_6, Qt::ControlModifier);
        picture(kTill, u"stfatura-musterili"_s);
    });
    step(u"Müşterinin ekranı"_s, [] {
        for (QWidget *each : QApplication::topLevelWidgets()) // hidden, without a second screen
            if (each->objectName() == u"musteri") {
                each->resize(kCustomerScreen);
                each->show();
            }
    });
    step(u"Müşterinin gördüğü"_s, [this] {
        picture(u"musteri"_s, u"musteri-ekrani"_s);
        window(u"musteri"_s)->hide();
    });
    step(u"Ctrl+K: kartla ödenir, F2"_s, [this] {
        press(control(kTill, kEntry), Qt::Key_K, Qt::ControlModifier);
        saleKey(Qt::Key_F2);
    });
    step(u"Basılan fiş"_s, [this] { collectPrints(); });
}

void Tour::showTillBook()
{
    step(u"F1: kasanın eksik satışları"_s, [this] {
        picture(kTill, u"stfatura-eksik"_s);
        saleKey(Qt::Key_F1);
    });
    const auto page = [this](int number, const QString &file) {
        stepIn(u"TillBook"_s, u"Kasa sayfası"_s, [this, number, file] {
            auto *pages = qobject_cast<QTabWidget *>(control(u"TillBook"_s, u"pages"_s));
            pages->setCurrentIndex(number);
            picture(u"TillBook"_s, file);
        });
    };
    page(2, u"kasa-eksik"_s);
    step(u"Eksikleri tamamla"_s, [this] {
        click(u"TillBook"_s, u"completeButton"_s);
        picture(u"TillBook"_s, u"kasa-tamamlandi"_s);
        if (control(kTill, u"mark"_s)->isVisible())
            fail(u"eksik satış tamamlanmadı"_s);
    });
    page(1, u"kasa-gun-sonu"_s);
    page(0, u"kasa-fisler"_s);
    step(u"Satış ekranı kapanır"_s, [this] {
        window(u"TillBook"_s)->close();
        window(kTill)->close();
    });
}
