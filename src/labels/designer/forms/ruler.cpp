#include "labels/designer/forms/ruler.h"

#include "labels/designer/forms/design_canvas.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr QRgb kBack = 0xFFFAFBFB;
constexpr QRgb kMark = 0xFF7B8686;
constexpr QRgb kSelected = 0x400B6E6E;
constexpr QRgb kPointer = 0xFFE0418A;
constexpr int kLengths[] = {5, 9, 14}; ///< pixels, of marks by rank

} // namespace

Ruler::Ruler(Qt::Orientation orientation, DesignEditor &editor, DesignCanvas &canvas,
             QWidget *parent)
    : QWidget(parent), m_orientation(orientation), m_editor(editor), m_canvas(canvas)
{
    if (orientation == Qt::Horizontal)
        setFixedHeight(kThickness);
    else
        setFixedWidth(kThickness);
    setCursor(orientation == Qt::Horizontal ? Qt::SplitVCursor : Qt::SplitHCursor);
    setToolTip(QStringLiteral("Kılavuz çizgisi için etikete sürükleyin"));
    connect(&canvas, &DesignCanvas::viewChanged, this, qOverload<>(&QWidget::update));
    connect(&editor, &DesignEditor::selectionChanged, this, qOverload<>(&QWidget::update));
    connect(&editor, &DesignEditor::designChanged, this, qOverload<>(&QWidget::update));
    connect(&canvas, &DesignCanvas::pointerMoved, this, [this](QPointF mm) {
        m_pointer = along(mm);
        update();
    });
    connect(&canvas, &DesignCanvas::pointerLeft, this, [this] {
        m_pointer.reset();
        update();
    });
}

double Ruler::along(QPointF point) const
{
    return m_orientation == Qt::Horizontal ? point.x() : point.y();
}

void Ruler::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgba(kBack));
    if (m_orientation == Qt::Vertical) { // painted as if it lay, then turned
        painter.translate(width(), 0);
        painter.rotate(90);
    }
    paintSelection(painter);
    paintMarks(painter);
    const int length = m_orientation == Qt::Horizontal ? width() : height();
    painter.setPen(QColor::fromRgba(kMark));
    const int edge = m_orientation == Qt::Horizontal ? kThickness - 1 : 0;
    painter.drawLine(0, edge, length, edge);
    if (m_pointer) {
        const int x = qRound(along(m_canvas.view().toPixels(QPointF(*m_pointer, *m_pointer))));
        painter.setPen(QColor::fromRgba(kPointer));
        painter.drawLine(x, 0, x, kThickness);
    }
}

void Ruler::paintSelection(QPainter &painter) const
{
    if (m_editor.selection().isEmpty())
        return;
    const QRectF box =
        m_canvas.view().toPixels(edits::bounds(m_editor.layout(), m_editor.selection()));
    const double from = along(box.topLeft());
    painter.fillRect(QRectF(from, 0, along(box.bottomRight()) - from, kThickness),
                     QColor::fromRgba(kSelected));
}

void Ruler::paintMarks(QPainter &painter) const
{
    const CanvasView &view = m_canvas.view();
    const bool lies = m_orientation == Qt::Horizontal; // else the marks stand on its other side
    const int length = m_orientation == Qt::Horizontal ? width() : height();
    const double from = along(view.toMm(QPointF(0, 0)));
    const double to = along(view.toMm(QPointF(length, length)));
    QFont font = this->font();
    font.setPixelSize(10);
    painter.setFont(font);
    painter.setPen(QColor::fromRgba(kMark));
    for (const RulerMark &mark : rulerMarks(from, to, view.scale())) {
        const int x = static_cast<int>(std::floor(along(view.toPixels(QPointF(mark.mm, mark.mm)))));
        const int end = kLengths[mark.rank];
        painter.drawLine(x, lies ? kThickness - end : 0, x, lies ? kThickness : end);
        if (mark.rank == 2)
            painter.drawText(QPoint(x + 3, lies ? 11 : kThickness - 3),
                             QString::number(mark.mm, 'g', 4).replace(u'.', u','));
    }
}

void Ruler::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = true;
    // The lying ruler gives lines that lie, the standing one lines that stand.
    m_editor.pressRuler(m_orientation);
}

void Ruler::mouseMoveEvent(QMouseEvent *event)
{
    if (m_pressed)
        m_canvas.dragGuide(m_canvas.viewport()->mapFromGlobal(event->globalPosition()),
                           event->modifiers(), false);
}

void Ruler::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_pressed)
        m_canvas.dragGuide(m_canvas.viewport()->mapFromGlobal(event->globalPosition()),
                           event->modifiers(), true);
    m_pressed = false;
}
