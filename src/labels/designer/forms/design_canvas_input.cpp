#include "labels/designer/forms/design_canvas.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

// What mouse and keys do on the page.

namespace {

constexpr double kReach = 6; ///< pixels within which the mouse meets something
constexpr int kWheelNotch = 120;
constexpr int kScrollEvery = 30;   ///< milliseconds, while something is dragged out of the window
constexpr double kScrollMost = 25; ///< pixels at a time

Qt::CursorShape cursorOf(PointerShape shape)
{
    switch (shape) {
    case PointerShape::cross:
        return Qt::CrossCursor;
    case PointerShape::move:
        return Qt::SizeAllCursor;
    case PointerShape::sizeAcross:
        return Qt::SizeHorCursor;
    case PointerShape::sizeDown:
        return Qt::SizeVerCursor;
    case PointerShape::sizeFalling:
        return Qt::SizeFDiagCursor;
    case PointerShape::sizeRising:
        return Qt::SizeBDiagCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

PointerAt DesignCanvas::pointerAt(QPointF pixels, Qt::KeyboardModifiers modifiers) const
{
    return {.mm = m_view.toMm(pixels),
            .reach = kReach / m_view.scale(),
            .extend = modifiers.testFlag(Qt::ShiftModifier),
            .free = modifiers.testFlag(Qt::ControlModifier)};
}

void DesignCanvas::showShape(const PointerAt &at)
{
    viewport()->setCursor(m_panned      ? Qt::ClosedHandCursor
                          : m_spaceHeld ? Qt::OpenHandCursor
                                        : cursorOf(m_editor.pointer().shapeAt(at)));
}

void DesignCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_spaceHeld))
        m_panned = event->position();
    else if (event->button() == Qt::LeftButton)
        m_editor.press(pointerAt(event->position(), event->modifiers()));
    showShape(pointerAt(event->position(), event->modifiers()));
}

void DesignCanvas::mouseMoveEvent(QMouseEvent *event)
{
    const PointerAt at = pointerAt(event->position(), event->modifiers());
    if (m_panned) {
        m_fitted = false;
        m_view.pan(event->position() - *std::exchange(m_panned, event->position()));
        viewMoved();
    } else if (event->buttons().testFlag(Qt::LeftButton)) {
        m_editor.move(at);
        m_dragged = {event->position(), event->modifiers()};
        if (!viewport()->rect().contains(event->position().toPoint()))
            m_scrollTimer.start(kScrollEvery);
    }
    showShape(at);
    Q_EMIT pointerMoved(at.mm);
}

/// What is dragged out of the window takes the page along, faster the farther out, as far as there
/// is something of the sheet.
void DesignCanvas::scrollWhileDragging()
{
    const QRectF all = scrollable();
    const auto beyond = [](double at, double room) {
        return std::clamp(at < 0 ? at : std::max(at - room, 0.0), -kScrollMost, kScrollMost);
    };
    const auto left = [](double by, double low, double high) {
        return std::clamp(by, std::min(low, 0.0), std::max(high, 0.0));
    };
    const QPointF out(left(beyond(m_dragged.at.x(), viewport()->width()), all.left(),
                           all.right() - viewport()->width()),
                      left(beyond(m_dragged.at.y(), viewport()->height()), all.top(),
                           all.bottom() - viewport()->height()));
    if (out.isNull()) {
        m_scrollTimer.stop();
        return;
    }
    m_fitted = false;
    m_view.pan(-out);
    viewMoved();
    m_editor.move(pointerAt(m_dragged.at, m_dragged.modifiers));
}

void DesignCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    m_scrollTimer.stop();
    if (m_panned)
        m_panned.reset();
    else if (event->button() == Qt::LeftButton)
        m_editor.release(pointerAt(event->position(), event->modifiers()));
    showShape(pointerAt(event->position(), event->modifiers()));
}

void DesignCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_editor.doubleClick(pointerAt(event->position(), event->modifiers()));
}

void DesignCanvas::dragGuide(QPointF at, Qt::KeyboardModifiers modifiers, bool last)
{
    const PointerAt pointer = pointerAt(at, modifiers);
    if (last)
        m_editor.release(pointer);
    else
        m_editor.move(pointer);
    Q_EMIT pointerMoved(pointer.mm);
}

void DesignCanvas::wheelEvent(QWheelEvent *event)
{
    const QPoint turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        const int by = turned.y() != 0 ? turned.y() : turned.x();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by / 2);
    } else if (turned.y() != 0) {
        const int steps = turned.y() / kWheelNotch;
        m_fitted = false;
        m_view.zoomStep(event->position(), steps != 0 ? steps : turned.y() > 0 ? 1 : -1);
        viewMoved();
    }
    event->accept();
}

void DesignCanvas::contextMenuEvent(QContextMenuEvent *event)
{
    const PointerAt at = pointerAt(event->pos(), Qt::NoModifier);
    const auto ref = m_editor.pointer().elementAt(at.mm, at.reach);
    if (event->reason() == QContextMenuEvent::Mouse && ref && !m_editor.selection().contains(*ref))
        m_editor.select({*ref});
    Q_EMIT menuWanted(event->globalPos());
}

bool DesignCanvas::arrowKey(const QKeyEvent &event)
{
    QPointF way;
    switch (event.key()) {
    case Qt::Key_Left:
        way = {-1, 0};
        break;
    case Qt::Key_Right:
        way = {1, 0};
        break;
    case Qt::Key_Up:
        way = {0, -1};
        break;
    case Qt::Key_Down:
        way = {0, 1};
        break;
    default:
        return false;
    }
    const QPointF by = way * (event.modifiers().testFlag(Qt::ShiftModifier) ? 1.0 : 0.1);
    if (event.modifiers().testFlag(Qt::ControlModifier))
        m_editor.grow(by);
    else
        m_editor.nudge(by);
    return true;
}

void DesignCanvas::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        m_editor.escape();
    } else if (enter && m_editor.pointer().tool() != Tool::pointer) {
        m_editor.placeByKey();
    } else if (event->key() == Qt::Key_Space) {
        m_spaceHeld = true;
        viewport()->setCursor(Qt::OpenHandCursor);
    } else if (!arrowKey(*event)) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void DesignCanvas::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        m_spaceHeld = false;
        viewport()->unsetCursor();
    }
    QAbstractScrollArea::keyReleaseEvent(event);
}

/// Tab goes from element to element; Enter belongs to a tool that waits for its place.
bool DesignCanvas::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter && m_editor.pointer().tool() != Tool::pointer)
            event->accept();
    }
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            m_editor.run(key->key() == Qt::Key_Tab ? Command::selectNext : Command::selectPrevious);
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

QString DesignCanvas::noticeAt(QPointF pixels) const
{
    const PointerAt at = pointerAt(pixels, Qt::NoModifier);
    const auto ref = m_editor.pointer().elementAt(at.mm, at.reach);
    QStringList texts;
    for (const DesignNotice &notice : m_notices)
        if (ref == notice.ref)
            texts += notice.text;
    return texts.join(u'\n');
}

bool DesignCanvas::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), noticeAt(help->pos()), viewport());
        return true;
    }
    if (event->type() == QEvent::Leave)
        Q_EMIT pointerLeft();
    return QAbstractScrollArea::viewportEvent(event);
}
