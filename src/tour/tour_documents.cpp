#include "labels/layout/forms/barkod.h"
#include "tour/tour.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QPainter>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

void Tour::documents()
{
    step(u"Faturadan etiket: form açılır"_s, [this] { click(u"stkkart"_s, u"fatura"_s); });
    step(u"Son bir ayın alış faturaları listelenir"_s, [this] {
        if (auto *types = qobject_cast<QComboBox *>(control(u"fatura"_s, u"c1"_s)))
            types->setCurrentIndex(0);
        setDate(u"fatura"_s, u"tr1"_s, QDate::currentDate().addDays(-30));
        press(control(u"fatura"_s, u"tr1"_s), Qt::Key_Return);
    });
    step(u"Son fatura işaretlenir, satırları getirilir"_s, [this] {
        QWidget *list = control(u"fatura"_s, u"l1"_s);
        press(list, Qt::Key_End);
        press(list, Qt::Key_Space);
        press(list, Qt::Key_F6);
    });
    step(u"Ekran resmi; satırlar etiket listesine aktarılır"_s, [this] {
        picture(u"fatura"_s, u"fatura"_s);
        press(window(u"fatura"_s), Qt::Key_F9);
    });
    step(u"Fatura formu kapanır"_s, [this] { press(window(u"fatura"_s), Qt::Key_Escape); });
    printList(u"fatura"_s);

    step(u"Fiyatı değişenler: form açılır"_s, [this] { click(u"stkkart"_s, u"fytdegisbul"_s); });
    step(u"Son yedi günün fiyat değişiklikleri bulunur"_s, [this] {
        setDate(u"fytdegisbul"_s, u"tr1"_s, QDate::currentDate().addDays(-7));
        setDate(u"fytdegisbul"_s, u"tr2"_s, QDate::currentDate());
        picture(u"fytdegisbul"_s, u"fytdegisbul"_s);
        click(u"fytdegisbul"_s, u"bul"_s);
    });
    step(u"Form Esc ile kapanır"_s, [this] { press(window(u"fytdegisbul"_s), Qt::Key_Escape); });
    printList(u"fiyat"_s);
}

/// Queues what is listed and prints it.
void Tour::printList(const QString &source)
{
    step(u"Listelenenler kuyruğa eklenir"_s, [this, source] {
        click(u"stkkart"_s, u"clearQueue"_s);
        click(u"stkkart"_s, u"ektm"_s);
        picture(u"stkkart"_s, u"stkkart-"_s + source);
        if (rows(u"l2"_s) == 0)
            fail(u"kuyruk boş"_s);
    });
    step(u"Tümü yazdırılır"_s, [this] { click(u"stkkart"_s, u"printAll"_s); });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
}

void Tour::numbers()
{
    step(u"Barkodsuz stoklar toplanır"_s, [this] {
        type(u"stkkart"_s, u"Text4"_s, u"KRT."_s);
        press(control(u"stkkart"_s, u"Text4"_s), Qt::Key_Return);
        trigger(u"stkkart"_s, u"ekbartum"_s);
        if (rows(u"l2"_s) == 0)
            fail(u"barkodsuz stok bulunamadı"_s);
    });
    step(u"Numara üretici açılır"_s, [this] { click(u"stkkart"_s, u"brkdurt"_s); });
    step(u"Numaralar 200000000100 numarasından sonra verilir"_s, [this] {
        type(u"Baruret"_s, u"Text1"_s, u"200000000100"_s);
        picture(u"Baruret"_s, u"Baruret"_s);
        press(control(u"Baruret"_s, u"Text1"_s), Qt::Key_Return);
    });
    step(u"Üretici kapanır"_s, [this] { press(window(u"Baruret"_s), Qt::Key_Escape); });
    step(u"Kaydedilmemiş numaralar; sonra kaydedilir"_s, [this] {
        picture(u"stkkart"_s, u"stkkart-yeni-numaralar"_s);
        click(u"stkkart"_s, u"brgnc"_s);
    });
    step(u"Yeni Barkod Numaraları Eklendi"_s,
         [this] { press(window(u"mesaj"_s), Qt::Key_Return); });
    step(u"Yeni numaralı etiketler yazdırılır"_s, [this] {
        picture(u"stkkart"_s, u"stkkart-numaralar-kaydedildi"_s);
        click(u"stkkart"_s, u"printAll"_s);
    });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
}

void Tour::turnedText()
{
    step(u"Dönen metin, her açıda"_s, [this] {
        constexpr int side = 900;
        constexpr double radius = 330;
        QWidget page;
        page.setObjectName(u"Barkod"_s);
        page.setFixedSize(side, side);
        page.setStyleSheet(u"#Barkod { background: white; }"_s);
        for (int angle = 0; angle < 360; angle += 30) {
            auto *text = new Barkod(u"Barkod%1"_s.arg(angle), &page);
            text->setCaptionFont(QFont(QApplication::font().family(), 14));
            text->setCaption(u"Çay 500 g  %1°"_s.arg(angle));
            text->setBorderStyle(angle % 90 == 0 ? 1 : 0);
            text->setAngle(static_cast<float>(angle));
            const double turn = angle * std::numbers::pi / 180;
            const QPointF centre(side / 2.0 + radius * std::cos(turn),
                                 side / 2.0 - radius * std::sin(turn));
            text->move((centre - QRectF(text->rect()).center()).toPoint());
        }
        page.show();
        picture(u"Barkod"_s, u"Barkod"_s);
    });
}
