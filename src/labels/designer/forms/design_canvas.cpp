#include "labels/designer/forms/design_canvas.h"

#include "labels/designer/forms/canvas_overlay.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr double kFitMargin = 28;  ///< pixels around a fitted label
constexpr double kScrollRoom = 60; ///< pixels beyond the sheet that can be scrolled to
constexpr double kInkBeyond = 1;   ///< mm by which slanted letters stand out of their boxes

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

/// What can be scrolled to, in pixels of the page.
QRectF DesignCanvas::scrollable() const
{
    return m_view.toPixels(content()).adjusted(-kScrollRoom, -kScrollRoom, kScrollRoom,
                                               kScrollRoom);
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
    const QRectF all = scrollable();
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
