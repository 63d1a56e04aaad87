#include "labels/designer/forms/design_canvas.h"

#include "labels/designer/forms/canvas_overlay.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kReach = 6;       ///< pixels within which the mouse meets something
constexpr double kFitMargin = 28;  ///< pixels around a fitted label
constexpr double kScrollRoom = 60; ///< pixels beyond the sheet that can be scrolled to
constexpr double kInkBeyond = 1;   ///< mm by which slanted letters stand out of their boxes
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

DesignCanvas::DesignCanvas(DesignEditor &editor, const QString &pictures, QWidget *parent)
    : QAbstractScrollArea(parent), m_editor(editor), m_scene(pictures)
{
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setFrameShape(QFrame::NoFrame);
    // A fitted page follows the room that is left to it: bars that come and go would chase it.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(&editor, &DesignEditor::designChanged, this, &DesignCanvas::rebuild);
    connect(&editor, &DesignEditor::selectionChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&editor, &DesignEditor::overlayChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&editor, &DesignEditor::pageChanged, this, [this] { showChange(content()); });
    connect(&m_scrollTimer, &QTimer::timeout, this, &DesignCanvas::scrollWhileDragging);
    rebuild();
}

void DesignCanvas::setPrinter(QSizeF dpi, const QMarginsF &unprintable)
{
    m_scene.setDevice(dpi);
    m_unprintable = unprintable;
    rebuild();
    showChange(content());
}

void DesignCanvas::setRow(const LabelRow &row)
{
    m_row = row;
    rebuild();
}

void DesignCanvas::setNotices(const std::vector<DesignNotice> &notices)
{
    m_notices = notices;
    m_marked.clear();
    for (const DesignNotice &notice : notices)
        if (!notice.light)
            m_marked.insert(notice.ref);
    viewport()->update();
}

/// Everything that is painted from the design is worked out anew.
void DesignCanvas::rebuild()
{
    const SheetAround sheet = sheetAround(m_editor.design(), m_unprintable);
    const bool moved = sheet.paper != m_sheet.paper || sheet.cells != m_sheet.cells;
    m_sheet = sheet;
    const QRectF changed = m_scene.show(m_editor.layout(), m_row);
    if (moved) {
        if (m_fitted)
            zoomFit();
        updateScrollBars();
        showChange(content());
    } else if (!changed.isNull()) {
        showChange(changed);
    }
    viewport()->update();
}

/// Marks a place (mm) of the page to be painted anew.
void DesignCanvas::showChange(const QRectF &mm)
{
    const QRectF wide = mm.adjusted(-kInkBeyond, -kInkBeyond, kInkBeyond, kInkBeyond);
    m_staleBase += m_view.toPixels(wide).toAlignedRect();
    viewport()->update();
}

QRectF DesignCanvas::content() const
{
    QRectF all = m_sheet.paper;
    for (const QRectF &cell : {m_sheet.cells.front(), m_sheet.cells.back()})
        all |= cell;
    return all;
}

void DesignCanvas::viewMoved()
{
    m_staleBase = viewport()->rect();
    updateScrollBars();
    viewport()->update();
    Q_EMIT viewChanged();
}

void DesignCanvas::zoomStep(int steps)
{
    m_fitted = false;
    m_view.zoomStep(QRectF(viewport()->rect()).center(), steps);
    viewMoved();
}

void DesignCanvas::zoomFit()
{
    m_fitted = true;
    m_view.setScreen(screen()->physicalDotsPerInch() / 25.4);
    m_view.fit({QPointF(), m_editor.labelSize()}, viewport()->size(), kFitMargin);
    viewMoved();
}

void DesignCanvas::zoomActual()
{
    m_fitted = false;
    m_view.zoomAt(QRectF(viewport()->rect()).center(), 1);
    viewMoved();
}

void DesignCanvas::reset()
{
    m_scene.forgetPictures();
    rebuild();
    zoomFit();
}

void DesignCanvas::updateScrollBars()
{
    const QScopedValueRollback setting(m_settingBars, true);
    const QRectF all =
        m_view.toPixels(content()).adjusted(-kScrollRoom, -kScrollRoom, kScrollRoom, kScrollRoom);
    const auto set = [](QScrollBar *bar, double low, double high, int page) {
        const int from = std::min(qRound(low), 0);
        const int to = std::max(qRound(high) - page, 0);
        bar->setRange(from, to);
        bar->setPageStep(page);
        bar->setSingleStep(20);
        bar->setValue(0);
    };
    set(horizontalScrollBar(), all.left(), all.right(), viewport()->width());
    set(verticalScrollBar(), all.top(), all.bottom(), viewport()->height());
}

void DesignCanvas::scrollContentsBy(int dx, int dy)
{
    if (m_settingBars)
        return;
    m_fitted = false;
    m_view.pan(QPointF(dx, dy));
    m_staleBase = viewport()->rect();
    viewport()->update();
    Q_EMIT viewChanged();
}

void DesignCanvas::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (m_fitted)
        zoomFit();
    else
        viewMoved();
}

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
    const QRectF all =
        m_view.toPixels(content()).adjusted(-kScrollRoom, -kScrollRoom, kScrollRoom, kScrollRoom);
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

void DesignCanvas::paintEvent(QPaintEvent *event)
{
    const qreal ratio = viewport()->devicePixelRatioF();
    const QSize size = (QSizeF(viewport()->size()) * ratio).toSize();
    if (m_base.size() != size || m_base.devicePixelRatio() != ratio) {
        m_base = QPixmap(size);
        m_base.setDevicePixelRatio(ratio);
        m_staleBase = viewport()->rect();
    }
    fillBase(m_staleBase & viewport()->rect());
    m_staleBase = {};

    QPainter painter(viewport());
    painter.drawPixmap(
        event->rect(), m_base,
        QRectF(QPointF(event->rect().topLeft()) * ratio, QSizeF(event->rect().size()) * ratio)
            .toRect());
    paintOverlay(painter, {m_view, m_editor, m_scene, m_marked, hasFocus()});
}

void DesignCanvas::fillBase(const QRegion &exposed)
{
    if (exposed.isEmpty())
        return;
    QPainter painter(&m_base);
    painter.setClipRegion(exposed);
    const QRect rect = exposed.boundingRect();
    paintSheet(painter, rect, {m_view, m_editor, m_sheet});
    m_scene.paint(painter, m_view, m_view.toMm(QRectF(rect)));
}
