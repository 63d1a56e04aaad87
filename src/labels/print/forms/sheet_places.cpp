#include "labels/print/forms/sheet_places.h"

#include <QMouseEvent>
#include <QPainter>

void SheetPlaces::show(const SheetGrid &grid, qint64 first)
{
    m_grid = grid;
    m_first = first;
    update();
}

QRectF SheetPlaces::cell(qint64 place) const
{
    const auto across = static_cast<qint64>(m_grid.across);
    const double width = (QWidget::width() - 1.0) / static_cast<double>(m_grid.across);
    const double height = (QWidget::height() - 1.0) / static_cast<double>(m_grid.down);
    return {static_cast<double>((place - 1) % across) * width,
            static_cast<double>((place - 1) / across) * height, width, height};
}

void SheetPlaces::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    for (qint64 place = 1; place <= m_grid.places(); ++place) {
        const bool used = place < m_first;
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(used ? palette().mid() : palette().base());
        if (place == m_first)
            painter.setBrush(palette().highlight());
        painter.drawRect(cell(place));
    }
}

void SheetPlaces::mousePressEvent(QMouseEvent *event)
{
    for (qint64 place = 1; place <= m_grid.places(); ++place)
        if (cell(place).contains(event->position()))
            Q_EMIT placeChosen(place);
}
