#include "sales/forms/scan_keeper.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace {

constexpr const char *kOwnsKeys = "ownsKeys";

/// The message box that is open, or null.
QWidget *openBox(const QWidget &window)
{
    QWidget *modal = QApplication::activeModalWidget();
    const bool watched =
        modal && modal != &window && window.isVisible() && !modal->property(kOwnsKeys).toBool();
    return watched ? modal : nullptr;
}

} // namespace

ScanKeeper::ScanKeeper(QWidget &window) : QObject(&window), m_window(window)
{
    qApp->installEventFilter(this);
}

void ScanKeeper::ownsKeys(QWidget &dialog)
{
    dialog.setProperty(kOwnsKeys, true);
}

bool ScanKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const QWidget *box = openBox(m_window);
        const auto *target = qobject_cast<QWidget *>(watched);
        if (box && target && target->window() == box)
            return keep(static_cast<const QKeyEvent &>(*event));
    } else if (event->type() == QEvent::Hide && !(m_codes.isEmpty() && m_partial.isEmpty())) {
        QTimer::singleShot(0, this, &ScanKeeper::deliver);
    }
    return false;
}

bool ScanKeeper::keep(const QKeyEvent &event)
{
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (enter && !m_partial.isEmpty()) {
        m_codes += std::exchange(m_partial, {});
        return true;
    }
    // Blank presses a button; letters with Alt are shortcuts.
    const QString text = event.text();
    const bool printable = text.size() == 1 && text.at(0).isPrint() && text.at(0) != u' ';
    if (enter || !printable || (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)))
        return false;
    m_partial += text;
    return true;
}

void ScanKeeper::deliver()
{
    if (openBox(m_window)) {
        QTimer::singleShot(50, this, &ScanKeeper::deliver);
        return;
    }
    if (!m_codes.isEmpty() || !m_partial.isEmpty())
        Q_EMIT kept(std::exchange(m_codes, {}), std::exchange(m_partial, {}));
}
