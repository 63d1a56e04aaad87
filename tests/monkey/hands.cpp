#include "monkey/hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QWidget *widget)
{
    if (!widget)
        return u"-"_s;
    const QString form = QString::fromLatin1(widget->window()->metaObject()->className());
    const QString type = QString::fromLatin1(widget->metaObject()->className());
    return u"%1/%2:%3"_s.arg(form, type, widget->objectName());
}

bool isControl(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const QAbstractSpinBox *>(widget) ||
           qobject_cast<const QTabBar *>(widget) ||
           qobject_cast<const QAbstractItemView *>(widget) || qobject_cast<const QMenu *>(widget);
}

constexpr Qt::Key kKeys[] = {
    Qt::Key_Return, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape, Qt::Key_Tab,
    Qt::Key_Tab,    Qt::Key_Space,  Qt::Key_Delete,   Qt::Key_Up,     Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_Backspace,
    Qt::Key_F2,     Qt::Key_F2,     Qt::Key_F3,       Qt::Key_F4,     Qt::Key_F5,
    Qt::Key_F6,     Qt::Key_F7,     Qt::Key_F8,       Qt::Key_F9,     Qt::Key_F10,
    Qt::Key_F11,    Qt::Key_F12,    Qt::Key_Backtab,  Qt::Key_Menu,   Qt::Key_Insert};
constexpr Qt::Key kControlKeys[] = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X,     Qt::Key_Z,
                                    Qt::Key_F, Qt::Key_D, Qt::Key_1, Qt::Key_3,     Qt::Key_4,
                                    Qt::Key_5, Qt::Key_6, Qt::Key_Y, Qt::Key_Delete};

/// No slashes and no dots in a row: a name that is typed stays in the working folder.
const QStringList kOddTexts = u"0|1|1,5|-3|1.000,50|999999|1500|'|%|ığüşöçİ| |a'b\"c|1e9|"
                              "200000000100|31.12.2026|{x;}|8690000000001234567"_s.split(u'|');

/// Where keys go.
QWidget *keyboardOwner()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup->focusWidget() ? popup->focusWidget() : popup;
    return QApplication::focusWidget();
}

} // namespace

QWidget *Hands::window()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    QWidgetList windows;
    for (QWidget *each : QApplication::topLevelWidgets())
        if (each->isVisible() && each->windowHandle() && !each->windowFlags().testFlag(Qt::ToolTip))
            windows += each;
    if (windows.isEmpty())
        return nullptr;
    // The set of windows has no order of its own; a replay needs one.
    std::sort(windows.begin(), windows.end(),
              [](const QWidget *a, const QWidget *b) { return nameOf(a) < nameOf(b); });
    QWidget *active = QApplication::activeWindow();
    return active && windows.contains(active) && m_luck.chance(85) ? active : m_luck.pick(windows);
}

QList<QWidget *> Hands::controls(const QWidget &window)
{
    QList<QWidget *> found;
    for (QWidget *each : window.findChildren<QWidget *>())
        if (each->window() == &window && each->isVisible() && each->isEnabled() && isControl(each))
            found += each;
    return found;
}

Hands::Act Hands::click(QWidget &window)
{
    const QList<QWidget *> controls = Hands::controls(window);
    QWidget *const aim = controls.isEmpty() || m_luck.chance(4) ? &window : m_luck.pick(controls);
    const QRect seen = aim->visibleRegion().boundingRect(); // some of it may be scrolled away
    const QPoint inAim =
        seen.topLeft() + QPoint(m_luck.below(seen.width()), m_luck.below(seen.height()));
    const QPoint at = aim->mapTo(&window, inAim);
    const auto button = m_luck.chance(8) ? Qt::RightButton : Qt::LeftButton;
    const int presses = m_luck.chance(15) ? 2 : 1;
    const QPoint drag = m_luck.chance(6) ? QPoint(m_luck.below(200), m_luck.below(100)) : QPoint();
    return {u"click %1 %2 %3,%4%5"_s.arg(nameOf(aim), button == Qt::LeftButton ? u"left" : u"right")
                .arg(at.x())
                .arg(at.y())
                .arg(presses == 2    ? u" twice"_s
                     : drag.isNull() ? QString()
                                     : u" and drag"_s),
            [window = QPointer(window.windowHandle()), at, button, presses, drag] {
                constexpr int kApart = 1000; // milliseconds: no double click with the one before
                static int clock = 0;
                clock += kApart;
                const auto mouse = [&](QEvent::Type type, QPoint to) {
                    const bool down = type != QEvent::MouseButtonRelease;
                    if (window)
                        qt_handleMouseEvent(
                            window, to, window->mapToGlobal(to), down ? button : Qt::NoButton,
                            type == QEvent::MouseMove ? Qt::NoButton : button, type, {}, ++clock);
                };
                for (int press = 0; press < presses; ++press) {
                    mouse(QEvent::MouseButtonPress, at);
                    if (!drag.isNull())
                        mouse(QEvent::MouseMove, at + drag);
                    mouse(QEvent::MouseButtonRelease, at + drag);
                }
            }};
}

Hands::Act Hands::key()
{
    const bool control = m_luck.chance(15);
    const Qt::Key key = control ? m_luck.pick(kControlKeys) : m_luck.pick(kKeys);
    const Qt::KeyboardModifiers modifiers = control            ? Qt::ControlModifier
                                            : m_luck.chance(4) ? Qt::ShiftModifier
                                                               : Qt::NoModifier;
    return {
        u"key %1 in %2"_s.arg(QKeySequence(key | modifiers).toString(), nameOf(keyboardOwner())),
        [key, modifiers] {
            if (const QPointer<QWidget> owner = keyboardOwner())
                QTest::keyClick(owner, key, modifiers);
        }};
}

QString Hands::anything()
{
    QString text = m_luck.chance(65) ? m_luck.pick(m_words) : m_luck.pick(kOddTexts);
    if (m_luck.chance(3))
        text = text.repeated(40);
    return text;
}

Hands::Act Hands::text()
{
    const QString text = anything();
    const bool enter = m_luck.chance(70);
    return {u"type \"%1\"%2 in %3"_s.arg(text, enter ? u" Enter"_s : QString(),
                                         nameOf(keyboardOwner())),
            [text, enter] {
                for (const QChar c : text)
                    if (QWidget *owner = keyboardOwner())
                        QTest::sendKeyEvent(QTest::Click, owner,
                                            c.unicode() < 128 ? QTest::asciiToKey(c.toLatin1())
                                                              : Qt::Key_unknown,
                                            QString(c), Qt::NoModifier);
                if (QWidget *owner = keyboardOwner(); owner && enter)
                    QTest::sendKeyEvent(QTest::Click, owner, Qt::Key_Return, u"\r"_s,
                                        Qt::NoModifier);
            }};
}

Hands::Act Hands::resize(QWidget &window)
{
    const QSize size(300 + m_luck.below(1100), 200 + m_luck.below(600));
    return {u"resize %1 to %2x%3"_s.arg(nameOf(&window)).arg(size.width()).arg(size.height()),
            [window = QPointer(&window), size] {
                if (window)
                    window->resize(size);
            }};
}
