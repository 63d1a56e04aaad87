#include "sales/forms/scan_keeper.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QWidget>

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kPause{60}; ///< a scanner's keys come faster
constexpr std::chrono::milliseconds kLongestPause{1000};

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isPrintable(const QString &text)
{
    return text.size() == 1 && text.at(0).isPrint();
}

bool isOver(const QWidget &window, const QWidget *box)
{
    return box && box->parentWidget() && box->parentWidget()->window() == &window;
}

/// Whether a widget stands in a box right over the window. A box over that box, where a file is
/// named, wants its keys.
bool isInBoxOver(const QWidget &window, const QWidget &widget)
{
    const QWidget *box = QApplication::activeModalWidget();
    return box && widget.window() == box && (!box->parentWidget() || isOver(window, box));
}

/// No scanner types one.
bool isPassword(const QWidget &widget)
{
    const auto *box = qobject_cast<const QLineEdit *>(&widget);
    return box && box->echoMode() == QLineEdit::Password;
}

} // namespace

void HeldKey::press(QWidget &window) const
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget *target = window.focusWidget() ? window.focusWidget() : &window;
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(target, &event);
    }
}

ScanKeeper::ScanKeeper(QWidget &window, std::function<bool()> atWork)
    : QObject(&window), m_window(window), m_atWork(std::move(atWork))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    m_patience.setSingleShot(true);
    m_patience.setInterval(kLongestPause);
    connect(&m_patience, &QTimer::timeout, &m_pause, &QTimer::stop);
    for (const QTimer *timer : {&m_pause, &m_patience})
        connect(timer, &QTimer::timeout, this, &ScanKeeper::quiet);
    connect(this, &ScanKeeper::quiet, &m_patience, &QTimer::stop);
    qApp->installEventFilter(this);
}

bool ScanKeeper::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *target = qobject_cast<QWidget *>(watched);
        if (!target || !m_atWork())
            return false;
        const auto &key = static_cast<const QKeyEvent &>(*event);
        const bool ofBox =
            isInBoxOver(m_window, *target) && !isPassword(*target) && keepsOfBox(key);
        if (!ofBox && target->window() != &m_window)
            return isHeldBack(*target);
        if (m_pause.isActive())
            m_pause.start();
        m_keys.push_back({key.key(), key.modifiers(), key.text()});
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: { // the box is about to open
        const auto *target = qobject_cast<QWidget *>(watched);
        return target && m_atWork() && (target->window() == &m_window || isHeldBack(*target));
    }
    case QEvent::Close:
        if (!m_takesIn)
            return false;
        event->ignore();
        return true;
    default:
        return false;
    }
}

void ScanKeeper::awaitQuiet()
{
    if (m_pause.isActive())
        return;
    m_pause.start();
    m_patience.start();
}

void ScanKeeper::takeIn()
{
    if (!m_window.isVisible() || m_takesIn)
        return;
    QEventLoop loop;
    connect(this, &ScanKeeper::quiet, &loop, &QEventLoop::quit);
    const QScopedValueRollback takes(m_takesIn, true);
    awaitQuiet();
    loop.exec();
}

/// A box that is about to be seen holds back all there is; one that it opens over goes on.
bool ScanKeeper::isHeldBack(const QWidget &target) const
{
    return m_takesIn && target.window() != QApplication::activeModalWidget();
}

/// Of the keys of a box, a scanner's are kept: letters and digits, and the Enter behind them. The
/// blank presses a button; letters with Alt are shortcuts.
bool ScanKeeper::keepsOfBox(const QKeyEvent &event) const
{
    if (isEnter(event.key()))
        return !m_keys.empty() && isPrintable(m_keys.back().text);
    return isPrintable(event.text()) && event.text() != u" " &&
           !(event.modifiers() & (Qt::AltModifier | Qt::ControlModifier));
}

void ScanKeeper::deliver()
{
    while (!m_keys.empty() && !m_atWork() && m_dialog && m_dialog->isVisible()) {
        const HeldKey held = m_keys.front();
        m_keys.erase(m_keys.begin());
        held.press(*m_dialog);
    }
    if (m_atWork() || m_dialog)
        return; // the end of the work, or of the dialog, brings the rest out
    const std::vector<HeldKey> keys = std::exchange(m_keys, {});
    // Behind the question whether to close, the answer counts: a closed till takes nothing.
    if (!keys.empty() && m_window.isVisible())
        Q_EMIT kept(keys);
}

void ScanKeeper::giveToDialog()
{
    QWidget *box = QApplication::activeModalWidget();
    m_dialog = isOver(m_window, box) ? box : nullptr;
    deliver();
}
