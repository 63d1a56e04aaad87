#include "app/rooms.h"
#include "tour/tour.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace {

const QString kDesigner = u"Form1"_s;
const QString kCanvas = u"canvas"_s;
const QString kLayout = u"Raf Etiketim"_s;
const QString kSheet = u"A4, 24 etiket 70 × 37, kenardan kenara"_s;

} // namespace

/// A shelf label from nothing, by keys and mouse, and a sheet of it from the fifth place on.
void Tour::design()
{
    step(u"Etiket tasarımı boş açılır"_s, [this] {
        m_rooms.showDesigner();
        window(kDesigner)->resize(kTourScreen);
    });
    designPage();
    designTexts();
    designBars();
    designPictures();
    designLook();
    designFiles();
    printFromPlace();
}

/// A key of the designer's menus.
void Tour::designKey(const QString &keys)
{
    const QKeySequence wanted(keys, QKeySequence::PortableText);
    for (auto *action : window(kDesigner)->findChildren<QAction *>())
        if (action->isEnabled() && action->shortcuts().contains(wanted))
            return action->trigger();
    fail(u"tasarım ekranında %1 tuşu iş görmüyor"_s.arg(keys));
}

/// Goes down a list until an item is reached.
void Tour::choose(const QString &windowName, const QString &name, const QString &item)
{
    auto *box = qobject_cast<QComboBox *>(control(windowName, name));
    for (int i = 0; box && i < box->count() && box->currentText() != item; ++i)
        press(box, Qt::Key_Down);
    if (!box || box->currentText() != item)
        fail(u"%1 listesinde %2 yok"_s.arg(name, item));
}

/// Drags on the canvas; places in parts of its size.
void Tour::drag(QPointF from, QPointF to)
{
    auto *page = control(kDesigner, kCanvas)->findChild<QWidget *>(u"qt_scrollarea_viewport"_s);
    const auto send = [page](QEvent::Type type, QPointF part, Qt::MouseButtons held) {
        const QPointF at(part.x() * page->width(), part.y() * page->height());
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, page->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(page, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, (from + to) / 2, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::NoButton);
}

/// A picture of the dialog that is open over the designer, and the key that closes it.
void Tour::designDialog(const QString &file, int key)
{
    step(u"Ekran resmi"_s, [this, file, key] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return fail(u"pencere açılmadı: "_s + file);
        picture(dialog->objectName(), file);
        press(dialog->focusWidget() ? dialog->focusWidget() : dialog, key);
    });
}

void Tour::designPage()
{
    step(u"Ctrl+E: sayfa ayarı, hazır kâğıt seçilir"_s, [this] {
        designKey(u"Ctrl+E"_s);
        choose(u"PageSetup"_s, u"hazir"_s, kSheet);
    });
    step(u"Ölçülen kâğıttan hesaplama"_s, [this] { click(u"PageSetup"_s, u"olc"_s); });
    designDialog(u"tasarim-olculen"_s, Qt::Key_Escape);
    designPrinter();
    step(u"Ekran resmi"_s, [this] {
        picture(u"PageSetup"_s, u"tasarim-sayfa-ayari"_s);
        click(u"PageSetup"_s, u"tamam"_s);
    });
}

void Tour::designPrinter()
{
    const QString form = u"PrinterCalibration"_s;
    step(u"Yazıcı ayarı"_s, [this] { click(u"PageSetup"_s, u"ayar"_s); });
    step(u"Deneme sayfası basılır"_s, [this, form] { click(form, u"deneme"_s); });
    step(u"Cetvelle ölçülen yazılır"_s, [this, form] {
        collectPrints();
        type(form, u"sol"_s, u"20,4"_s);
        type(form, u"ust"_s, u"19,8"_s);
        click(form, u"hesapla"_s);
    });
    step(u"Ekran resmi"_s, [this, form] {
        picture(form, u"tasarim-yazici-ayari"_s);
        click(form, u"kaydet"_s);
    });
}

/// One text by keys: M and Enter put it on the label, its dialog binds it, the panel places it.
/// `box`: left, top, width and height; `what`: a field, or in quotes the text itself.
void Tour::designText(const QString &what, const QStringList &box, const QString &points)
{
    const QString dialog = u"ElementDialog"_s;
    step(u"M, Enter: %1"_s.arg(what), [this] {
        designKey(u"M"_s);
        press(control(kDesigner, kCanvas), Qt::Key_Return);
    });
    step(u"Alanı ya da yazısı"_s, [this, what, dialog] {
        if (what.startsWith(u'"'))
            type(dialog, u"caption"_s, what.mid(1, what.size() - 2));
        else
            choose(dialog, u"field"_s, what);
        if (what == u"STKMENSEI"_s)
            picture(dialog, u"tasarim-metin"_s);
        press(control(dialog, u"caption"_s), Qt::Key_Return);
    });
    step(u"Yeri"_s, [this, box, points] {
        const QStringList sides = {u"left"_s, u"top"_s, u"across"_s, u"down"_s};
        for (qsizetype i = 0; i < sides.size(); ++i) {
            type(kDesigner, sides[i], box[i]);
            press(control(kDesigner, sides[i]), Qt::Key_Return);
        }
        type(kDesigner, u"points"_s, points);
        press(control(kDesigner, u"points"_s), Qt::Key_Return);
    });
}

void Tour::designTexts()
{
    designText(u"Stok Adı"_s, {u"2"_s, u"1,5"_s, u"66"_s, u"9"_s}, u"10"_s);
    step(u"Kalın"_s, [this] { click(kDesigner, u"bold"_s); });
    designText(u"Fiyat"_s, {u"36"_s, u"10"_s, u"27"_s, u"9"_s}, u"20"_s);
    step(u"Kalın ve sağa"_s, [this] {
        click(kDesigner, u"bold"_s);
        click(kDesigner, u"alignRight"_s);
    });
    designText(u"\"TL\""_s, {u"63,5"_s, u"13,5"_s, u"5"_s, u"4"_s}, u"9"_s);
    designText(u"Birim Fiyatı"_s, {u"40"_s, u"20"_s, u"28"_s, u"4"_s}, u"9"_s);
    designText(u"\"Menşei:\""_s, {u"40"_s, u"25,5"_s, u"11"_s, u"3,5"_s}, u"7"_s);
    designText(u"STKMENSEI"_s, {u"51"_s, u"25,5"_s, u"17"_s, u"3,5"_s}, u"7"_s);
    designText(u"\"Fiyat tarihi:\""_s, {u"40"_s, u"30"_s, u"14"_s, u"3,5"_s}, u"7"_s);
    designText(u"Fiyat Tarihi"_s, {u"54"_s, u"30"_s, u"14"_s, u"3,5"_s}, u"7"_s);
}

void Tour::designBars()
{
    step(u"B: barkod fareyle çizilir"_s, [this] {
        designKey(u"B"_s);
        drag({0.05, 0.5}, {0.4, 0.75});
    });
    step(u"Çok küçük: uyarılır"_s, [this] { picture(kDesigner, u"tasarim-uyari"_s); });
    step(u"Okunur boya getirilir"_s, [this] {
        click(kDesigner, u"fix"_s);
        type(kDesigner, u"top"_s, u"15"_s);
        press(control(kDesigner, u"top"_s), Qt::Key_Return);
    });
    step(u"F2: barkodun özellikleri"_s, [this] { designKey(u"F2"_s); });
    designDialog(u"tasarim-barkod"_s, Qt::Key_Escape);
}

/// Tried and taken back: this label needs neither.
void Tour::designPictures()
{
    step(u"R, Enter: resim"_s, [this] {
        designKey(u"R"_s);
        press(control(kDesigner, kCanvas), Qt::Key_Return);
    });
    step(u"Klasördeki resim seçilir"_s,
         [this] { choose(u"ElementDialog"_s, u"file"_s, u"tezgah.png"_s); });
    designDialog(u"tasarim-resim"_s, Qt::Key_Escape);
    step(u"G, Enter: simge"_s, [this] {
        designKey(u"G"_s);
        press(control(kDesigner, kCanvas), Qt::Key_Return);
    });
    designDialog(u"tasarim-simge"_s, Qt::Key_Escape);
    step(u"Ctrl+D çoğaltır, Shift ve ok kaydırır, Ctrl+Z geri alır"_s, [this] {
        designKey(u"Ctrl+A"_s);
        designKey(u"Ctrl+D"_s);
        press(control(kDesigner, kCanvas), Qt::Key_Down, Qt::ShiftModifier);
        designKey(u"Ctrl+Z"_s);
        designKey(u"Ctrl+Z"_s);
    });
}

void Tour::designLook()
{
    step(u"F3: gerçek bir stok aranır"_s, [this] {
        type(kDesigner, u"ornek"_s, u"kaşar"_s);
        press(control(kDesigner, u"ornek"_s), Qt::Key_Return);
        designKey(u"Ctrl+A"_s);
    });
    step(u"Ekran resmi"_s, [this] {
        picture(kDesigner, u"tasarim"_s);
        press(control(kDesigner, kCanvas), Qt::Key_Escape);
    });
    step(u"F1: tuşlar"_s, [this] { designKey(u"F1"_s); });
    designDialog(u"tasarim-tuslar"_s, Qt::Key_Escape);
}

void Tour::designFiles()
{
    step(u"Ctrl+S: kaydedilir"_s, [this] { designKey(u"Ctrl+S"_s); });
    step(u"Ad yazılır"_s, [this] {
        type(u"SaveDialog"_s, u"ad"_s, kLayout);
        picture(u"SaveDialog"_s, u"tasarim-kaydet"_s);
        click(u"SaveDialog"_s, u"kaydet"_s);
    });
    step(u"F9: sayfa görünümü, beşinci yerden"_s, [this] {
        designKey(u"F9"_s);
        type(u"SheetView"_s, u"yer"_s, u"5"_s);
    });
    designDialog(u"tasarim-sayfa"_s, Qt::Key_Escape);
    step(u"Ctrl+O: açma penceresi"_s, [this] { designKey(u"Ctrl+O"_s); });
    designDialog(u"tasarim-ac"_s, Qt::Key_Escape);
    step(u"Ctrl+Shift+S: farklı kaydetme penceresi"_s, [this] { designKey(u"Ctrl+Shift+S"_s); });
    designDialog(u"tasarim-farkli"_s, Qt::Key_Escape);
    step(u"Kapatılır"_s, [this] { window(kDesigner)->close(); });
}

void Tour::printFromPlace()
{
    step(u"Kuyruk bu tasarımla basılacak"_s, [this] { click(u"stkkart"_s, u"chooseLayout"_s); });
    step(u"Sayfada kalınan yerden"_s, [this] {
        type(u"yazfrm"_s, u"ad"_s, kLayout + u".ayr"_s);
        click(u"yazfrm"_s, u"kaldigi"_s);
        picture(u"yazfrm"_s, u"yazfrm-yer"_s);
        click(u"yazfrm"_s, u"yazdir"_s);
    });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
}
