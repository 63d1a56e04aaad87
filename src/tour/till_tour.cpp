#include "app/rooms.h"
#include "tour/tour.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kTill = u"stfatura"_s;
const QString kEntry = u"srvadi"_s;

// Barcodes of the demo shop.
const QString kOliveOil = u"8688107052881"_s;
const QString kSunflowerOil = u"86933308"_s; // three discounts
const QStringList kRest = {u"8692848009608"_s, u"8692848487390"_s, u"86916585"_s,
                           u"8683888055304"_s, u"8692848017849"_s};

} // namespace

/// A whole sale on each of two lists, by keys.
void Tour::quickSale()
{
    step(u"Satış ekranı"_s, [this] {
        m_ledger = LedgerRows(m_program.company());
        guardDeleting(true);
        m_rooms.showSales();
        window(kTill)->setWindowState(Qt::WindowNoState);
        window(kTill)->resize(kTourScreen);
    });
    fillFirstList();
    correctLines();
    fillSecondList();
    postBoth();
    atTheCounter();
    postIncompletely();
    showTillBook();
}

void Tour::fillFirstList()
{
    step(u"SATIS1: barkodlar okutulur, ilk barkod üç kez (tek satırda birleşir)"_s, [this] {
        for (const QString &barcode : {kOliveOil, kSunflowerOil, kOliveOil, kOliveOil})
            scan(barcode);
        for (const QString &barcode : kRest)
            scan(barcode);
    });
    step(u"Bilinmeyen barkod"_s, [this] { scan(u"8690000000001"_s); });
    step(u"Ekran resmi"_s, [this] { picture(kTill, u"stfatura-bilinmeyen"_s); });
    step(u"F5: stok kodu ile giriş, sonra yeniden barkod"_s, [this] {
        saleKey(Qt::Key_F5);
        scan(u"MNV.0011"_s);
        picture(kTill, u"stfatura-stok-kodu"_s);
        saleKey(Qt::Key_F5);
    });
}

void Tour::correctLines()
{
    step(u"F3: miktar girilir (1,2 kg)"_s, [this] { saleKey(Qt::Key_F3); });
    quantityWindow(u"1,2"_s, u"miktr"_s);
    step(u"Yukarı ok, F4: miktara 2 eklenir"_s, [this] {
        saleKey(Qt::Key_Up);
        saleKey(Qt::Key_F4);
    });
    quantityWindow(u"2"_s, u"miktr-ekle"_s);
    step(u"Delete: satır onaydan sonra silinir"_s, [this] {
        saleKey(Qt::Key_Up);
        saleKey(Qt::Key_Delete);
    });
    stepIn(u"mesaj"_s, u"Onay kutusu"_s, [this] {
        picture(u"mesaj"_s, u"mesaj-satir-sil"_s);
        press(control(u"mesaj"_s, u"button2"_s), Qt::Key_Return);
    });
    givePermission();
}

/// Answers the window that asks for a quantity and leaves its picture in `file`.
void Tour::quantityWindow(const QString &quantity, const QString &file)
{
    step(u"Miktar penceresi"_s, [this, quantity, file] {
        type(u"miktr"_s, u"Text1"_s, quantity);
        picture(u"miktr"_s, file);
        press(control(u"miktr"_s, u"Text1"_s), Qt::Key_Return);
    });
}

void Tour::fillSecondList()
{
    step(u"F8: SATIS2, müşteri bekletilmeden ikinci satış"_s, [this] {
        saleKey(Qt::Key_F8);
        for (const QString &barcode : {kRest.first(), kSunflowerOil, kSunflowerOil})
            scan(barcode);
        picture(kTill, u"stfatura-satis2"_s);
    });
    step(u"F10: kasiyer seçilir"_s, [this] { saleKey(Qt::Key_F10); });
    step(u"Kasiyer listesi"_s, [this] {
        QWidget *list = control(u"PER"_s, u"l1"_s);
        press(list, Qt::Key_Down);
        picture(u"PER"_s, u"PER"_s);
        press(list, Qt::Key_Return);
    });
}

void Tour::postBoth()
{
    step(u"F7, F6: SATIS1’in nakdi girilir"_s, [this] {
        saleKey(Qt::Key_F7);
        saleKey(Qt::Key_F6);
        type(kTill, u"nkit1"_s, u"10.000"_s);
        press(control(kTill, u"nkit1"_s), Qt::Key_Return);
    });
    step(u"Ekran resmi"_s, [this] { picture(kTill, u"stfatura"_s); });
    step(u"F2: SATIS1 deftere yazılır, fiş basılır"_s, [this] { saleKey(Qt::Key_F2); });
    step(u"Basılan fiş"_s, [this] {
        collectPrints();
        picture(kTill, u"stfatura-kaydedildi"_s);
    });
    step(u"F8, F6, F2: SATIS2 nakitle kapatılır"_s, [this] {
        saleKey(Qt::Key_F8);
        saleKey(Qt::Key_F6);
        type(kTill, u"nkit11"_s, u"500"_s);
        press(control(kTill, u"nkit11"_s), Qt::Key_Return);
        saleKey(Qt::Key_F2);
    });
    step(u"Basılan fiş"_s, [this] { collectPrints(); });
    step(u"F12: son fiş yeniden basılır"_s, [this] { saleKey(Qt::Key_F12); });
    step(u"Basılan fiş"_s, [this] { collectPrints(); });
    step(u"Satışların deftere yazdığı satırlar"_s, [this] { writeLedger(); });
}

/// A name with an apostrophe, which no statement of the ledger can carry.
void Tour::postIncompletely()
{
    step(u"Adında kesme işareti olan bir ürün: satış eksik kaydedilir"_s, [this] {
        m_program.company().execute(
            u"UPDATE STKKART SET STKCINSI='Ali''nin Zeytinyağı 5 L' where STKKOD='GID.0015'"_s);
        scan(kOliveOil);
        scan(kRest.first());
        saleKey(Qt::Key_F2);
    });
    stepIn(u"PostingReportBox"_s, u"Eksik kalan satışın raporu"_s, [this] {
        picture(u"PostingReportBox"_s, u"PostingReportBox"_s);
        click(u"PostingReportBox"_s, u"closeButton"_s);
    });
}

void Tour::scan(const QString &code)
{
    type(kTill, kEntry, code);
    press(control(kTill, kEntry), Qt::Key_Return);
}

void Tour::saleKey(int key)
{
    press(control(kTill, kEntry), key);
}

void Tour::writeLedger()
{
    const QString path = QDir(m_folder).filePath(u"defter.txt"_s);
    const QString rows = LedgerRows(m_program.company()).changedSince(m_ledger);
    if (rows.isEmpty())
        fail(u"satışlar deftere hiçbir şey yazmadı"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(rows.toUtf8()) < 0)
        fail(u"%1 yazılamadı"_s.arg(path));
    else
        say(u"   defter: "_s + QDir::toNativeSeparators(path));
}
