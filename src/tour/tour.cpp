#include "tour/tour.h"

#include "app/rooms.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTextStream>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTickMs = 120; ///< long enough for a form to lay itself out between two steps
constexpr int kPatienceMs = 3000;
constexpr int kMostTicks = 50; ///< that a window may keep a step waiting
constexpr int kLongestMs = 240'000;

/// True while the dialog, or without one any window, shows that stocks are read or labels printed.
bool showsProgress(QWidget *dialog)
{
    const QWidgetList windows = dialog ? QWidgetList{dialog} : QApplication::topLevelWidgets();
    for (const QWidget *window : windows)
        for (const auto *bar : window->findChildren<QProgressBar *>())
            if (bar->isVisible())
                return true;
    return false;
}

} // namespace

Tour::Tour(Rooms &rooms, Program &program, const QString &folder)
    : m_rooms(rooms), m_program(program), m_folder(folder)
{
    QDir().mkpath(m_folder);
    stockList();
    queueAndPrint();
    documents();
    numbers();
    turnedText();
    design();
    quickSale();
    settings();
    setup();
    connection();
    QTimer::singleShot(kTickMs, this, &Tour::tick);
    QTimer::singleShot(kLongestMs, this, &Tour::giveUp);
}

void Tour::stockList()
{
    step(u"Stok listesi açıldı"_s, [this] { window(u"stkkart"_s)->resize(kTourScreen); });
    step(u"Ada göre arama: süt"_s, [this] {
        type(u"stkkart"_s, u"Text1"_s, u"süt"_s);
        press(control(u"stkkart"_s, u"Text1"_s), Qt::Key_Return);
    });
    step(u"Aşağı oku listeye geçirir, Enter üç stoku kuyruğa ekler"_s, [this] {
        press(control(u"stkkart"_s, u"Text1"_s), Qt::Key_Down);
        QWidget *list = control(u"stkkart"_s, u"l1"_s);
        for (int i = 0; i < 3; ++i) {
            press(list, Qt::Key_Return);
            press(list, Qt::Key_Down);
        }
    });
    step(u"Ekran resmi"_s, [this] { picture(u"stkkart"_s, u"stkkart-ad-arama"_s); });
    step(u"Stok koduna göre arama: KRT.00"_s, [this] {
        type(u"stkkart"_s, u"Text4"_s, u"KRT.00"_s);
        press(control(u"stkkart"_s, u"Text4"_s), Qt::Key_Return);
    });
    step(u"Barkoda göre arama: listedeki ilk barkod"_s, [this] {
        const auto *list = qobject_cast<QAbstractItemView *>(control(u"stkkart"_s, u"l1"_s));
        QString barcode;
        for (int row = 0; list && barcode.isEmpty() && row < list->model()->rowCount(); ++row)
            barcode = list->model()->index(row, 0).data().toString();
        type(u"stkkart"_s, u"Text3"_s, barcode);
        press(control(u"stkkart"_s, u"Text3"_s), Qt::Key_Return);
    });
    step(u"Ekran resmi"_s, [this] { picture(u"stkkart"_s, u"stkkart-barkod-arama"_s); });
}

void Tour::queueAndPrint()
{
    step(u"Kod arama sonucunun tümü kuyruğa eklenir"_s, [this] {
        type(u"stkkart"_s, u"Text4"_s, u"GID.001"_s);
        press(control(u"stkkart"_s, u"Text4"_s), Qt::Key_Return);
        click(u"stkkart"_s, u"ektm"_s);
    });
    step(u"Her satır iki etiket, seçili satır beş"_s, [this] {
        type(u"stkkart"_s, u"Text2"_s, u"2"_s);
        press(control(u"stkkart"_s, u"Text2"_s), Qt::Key_Return);
        type(u"stkkart"_s, u"adet"_s, u"5"_s);
        press(control(u"stkkart"_s, u"adet"_s), Qt::Key_Return);
    });
    step(u"Sayı olmayan adet kabul edilmez"_s, [this] {
        type(u"stkkart"_s, u"adet"_s, u"2,5"_s);
        press(control(u"stkkart"_s, u"adet"_s), Qt::Key_Return);
    });
    step(u"Uyarı kutusu"_s, [this] {
        picture(u"mesaj"_s, u"mesaj"_s);
        press(window(u"mesaj"_s), Qt::Key_Return);
    });
    step(u"Ekran resmi"_s, [this] { picture(u"stkkart"_s, u"stkkart"_s); });
    step(u"Tümü yazdırılır"_s, [this] { click(u"stkkart"_s, u"printAll"_s); });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
    step(u"Tasarım seçilerek yazdırılır"_s, [this] { click(u"stkkart"_s, u"chooseLayout"_s); });
    step(u"Ekran resmi"_s, [this] {
        QWidget *list = control(u"yazfrm"_s, u"liste"_s);
        for (int i = 0; i < 4; ++i)
            press(list, Qt::Key_Down);
        picture(u"yazfrm"_s, u"yazfrm"_s);
        click(u"yazfrm"_s, u"yazdir"_s);
    });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
    step(u"Seçili satır yazdırılır"_s, [this] { click(u"stkkart"_s, u"printSelected"_s); });
    step(u"Soru varsa evet denir"_s, [this] { confirm(); });
    step(u"Basılan etiketler"_s, [this] { collectPrints(); });
}

void Tour::settings()
{
    step(u"Ayarlar menüden istenir"_s, [this] { m_rooms.showLogin(); });
    step(u"Yanlış parola"_s, [this] {
        type(u"login"_s, u"lgpass"_s, u"yanlış"_s);
        picture(u"login"_s, u"login"_s);
        press(control(u"login"_s, u"lgpass"_s), Qt::Key_Return);
    });
    step(u"Yanlış Şifre"_s, [this] {
        picture(u"mesaj"_s, u"mesaj-yanlis-sifre"_s);
        press(window(u"mesaj"_s), Qt::Key_Return);
    });
    step(u"Boş parola ile giriş"_s,
         [this] { press(control(u"login"_s, u"lgpass"_s), Qt::Key_Return); });
    for (int page = 0; page < 3; ++page)
        step(u"Ayarlar, sayfa %1"_s.arg(page + 1), [this, page] {
            if (auto *tabs = qobject_cast<QTabWidget *>(control(u"parametre"_s, u"tabs"_s)))
                tabs->setCurrentIndex(page);
            picture(u"parametre"_s, u"parametre-%1"_s.arg(page + 1));
        });
    step(u"Fiş tasarımı"_s, [this] { click(u"parametre"_s, u"button6"_s); });
    step(u"Ekran resmi"_s, [this] {
        picture(u"ReceiptDesigner"_s, u"receipt_designer"_s);
        click(u"ReceiptDesigner"_s, u"closeButton"_s);
    });
    step(u"Ayarlar kaydedilir"_s, [this] { click(u"parametre"_s, u"button1"_s); });
    step(u"Hakkında"_s, [this] { m_rooms.showAbout(); });
    step(u"Ekran resmi"_s, [this] {
        picture(u"kakknd"_s, u"kakknd"_s);
        press(window(u"kakknd"_s), Qt::Key_Return);
    });
}

void Tour::connection()
{
    step(u"Bağlantı ekranı; bağlantı açık olduğu için kendisi kapanır ve program biter"_s, [this] {
        m_rooms.showConnection();
        picture(u"baglan"_s, u"baglan"_s);
    });
}

void Tour::step(const QString &what, const Action &action, std::function<bool()> ready)
{
    m_steps.push_back({what, action, std::move(ready)});
}

void Tour::stepIn(const QString &window, const QString &what, const Action &action)
{
    step(what, action, [this, window] { return isThere(window); });
}

/// Whether a window is there; one that never comes is a fault of its step.
bool Tour::isThere(const QString &window)
{
    const QWidgetList all = QApplication::topLevelWidgets();
    const bool there = std::any_of(all.begin(), all.end(), [&](const QWidget *each) {
        return each->isVisible() && each->objectName() == window;
    });
    if (!there && ++m_waited <= kMostTicks)
        return false;
    m_waited = 0;
    return true;
}

void Tour::tick()
{
    if (m_next == m_steps.size()) {
        m_ended = true;
        // The connection dialog ends the program by itself, unless the connection was never open.
        QTimer::singleShot(kPatienceMs, this, &Tour::giveUp);
        return;
    }
    // A fresh timer each time: one that is being handled does not fire inside a dialog it opened.
    QTimer::singleShot(kTickMs, this, &Tour::tick);
    // A step that still runs only lets the next one in when it waits for the dialog it opened.
    QWidget *dialog = QApplication::activeModalWidget();
    if (m_depth > 0 && (!dialog || dialog == m_dialogBefore))
        return;
    if (showsProgress(dialog))
        return; // it ends by itself
    if (const auto &ready = m_steps[m_next].ready; ready && !ready())
        return;
    const Step &now = m_steps[m_next++];
    say(u"%1. %2"_s.arg(m_next).arg(now.what));
    const QScopedValueRollback before(m_dialogBefore, dialog);
    const QScopedValueRollback depth(m_depth, m_depth + 1);
    now.action();
}

/// Ends a tour that has come to a stop.
void Tour::giveUp()
{
    fail(u"program kendiliğinden bitmedi"_s);
    QApplication::exit(1);
}

void Tour::fail(const QString &what)
{
    ++m_failures;
    say(u"   HATA: "_s + what);
}

/// A visible window by its name; never null, so that a tour goes on and reports all it missed.
QWidget *Tour::window(const QString &name)
{
    for (QWidget *candidate : QApplication::topLevelWidgets())
        if (candidate->isVisible() && candidate->objectName() == name)
            return candidate;
    fail(u"%1 penceresi açık değil"_s.arg(name));
    return &m_nowhere;
}

QWidget *Tour::control(const QString &windowName, const QString &name)
{
    QWidget *form = window(windowName);
    if (auto *found = form->findChild<QWidget *>(name))
        return found;
    fail(u"%1 penceresinde %2 yok"_s.arg(windowName, name));
    return form;
}

void Tour::press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers)
{
    widget->setFocus();
    for (const QEvent::Type type :
         {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        const bool enter = key == Qt::Key_Return;
        QKeyEvent event(type, key, modifiers, enter ? u"\r"_s : QString());
        QApplication::sendEvent(widget, &event);
    }
}

void Tour::type(const QString &windowName, const QString &name, const QString &text)
{
    QWidget *box = control(windowName, name);
    box->setFocus();
    auto *edit = qobject_cast<QLineEdit *>(box);
    if (!edit)
        edit = box->findChild<QLineEdit *>(); // of a box that counts
    if (edit)
        edit->selectAll();
    for (const QChar c : text) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(box, &event);
    }
}

void Tour::click(const QString &windowName, const QString &name)
{
    if (auto *button = qobject_cast<QAbstractButton *>(control(windowName, name)))
        button->click();
    else
        fail(u"%1 bir düğme değil"_s.arg(name));
}

void Tour::trigger(const QString &windowName, const QString &name)
{
    if (auto *action = window(windowName)->findChild<QAction *>(name))
        action->trigger();
    else
        fail(u"%1 penceresinde %2 yok"_s.arg(windowName, name));
}

/// Says yes where the program asks before printing.
void Tour::confirm()
{
    const QString name = u"PrintProblems"_s;
    const QWidget *asked = QApplication::activeModalWidget();
    if (!asked || asked->objectName() != name)
        return;
    picture(name, name);
    click(name, u"yazdir"_s);
}

void Tour::setDate(const QString &windowName, const QString &name, QDate date)
{
    if (!control(windowName, name)->setProperty("date", date))
        fail(u"%1 bir tarih kutusu değil"_s.arg(name));
}

/// Rows of a list of the label form.
int Tour::rows(const QString &list)
{
    const auto *view = qobject_cast<QAbstractItemView *>(control(u"stkkart"_s, list));
    return view ? view->model()->rowCount() : 0;
}

void Tour::picture(const QString &windowName, const QString &file)
{
    const QString path = QDir(m_folder).filePath(file + u".png"_s);
    if (window(windowName)->grab().save(path))
        say(u"   resim: "_s + QDir::toNativeSeparators(path));
    else
        fail(u"%1 yazılamadı"_s.arg(path));
}

/// Copies what was printed since the last time from the working folder.
void Tour::collectPrints()
{
    const QDir printed(m_program.path(u"cikti"));
    int fresh = 0;
    for (const QString &name : printed.entryList({u"*.pdf"_s}, QDir::Files, QDir::Time)) {
        if (m_collected.contains(name))
            continue;
        m_collected += name;
        ++fresh;
        const QString path = QDir(m_folder).filePath(name);
        if (printed.absolutePath() != QDir(m_folder).absolutePath() &&
            !QFile::copy(printed.filePath(name), path))
            fail(u"%1 kopyalanamadı"_s.arg(name));
        else
            say(u"   çıktı: "_s + QDir::toNativeSeparators(path));
    }
    if (fresh == 0)
        fail(u"hiçbir şey basılmadı"_s);
}

void Tour::say(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}
