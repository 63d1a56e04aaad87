#include "paper/turned_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>

#include <cmath>

int normalisedAngle(double degrees)
{
    if (!std::isfinite(degrees))
        return 0;
    const double half = degrees > 0 ? 180 : degrees < 0 ? -180 : 0;
    return static_cast<int>(std::fmod(std::nearbyint(degrees + half), 360) - half);
}

QRectF turned(const QRectF &line, double angle)
{
    if (angle == 0)
        return line;
    // Which corner of the turned line lies lowest or leftmost depends on the quadrant; the mapped
    // rectangle knows.
    return QTransform().rotate(-angle).mapRect(line);
}

std::optional<QPoint> startCorner(double angle)
{
    if (angle == 0)
        return QPoint(0, 0);
    if (angle == 90)
        return QPoint(0, 1);
    if (angle == 180)
        return QPoint(1, 1);
    if (angle == 270)
        return QPoint(1, 0);
    return {};
}

void paintTurned(QPainter &painter, QPointF dot, double angle,
                 const std::function<void(QPointF)> &paint)
{
    if (angle == 0) {
        paint(dot);
        return;
    }
    const QTransform base = painter.worldTransform();
    painter.setWorldTransform(QTransform::fromTranslate(dot.x(), dot.y()).rotate(-angle) * base);
    paint({});
    painter.setWorldTransform(base);
}

void drawTurnedText(QPainter &painter, QPointF dot, double angle, const DeviceFont &font,
                    const QString &text)
{
    painter.setFont(font.font());
    paintTurned(painter, dot, angle, [&](QPointF corner) {
        painter.drawText(corner + QPointF(0, font.ascent()), text);
    });
}

TurnedBox turnedBox(double angle, const DeviceFont &font, const QString &text)
{
    // Slanted and ornamental letters reach beyond their widths.
    const QRectF letters =
        QFontMetricsF(font.font()).boundingRect(text).translated(0, font.ascent());
    const QRectF line = QRectF(0, 0, font.width(text), font.height()).united(letters);
    const QRectF box = turned(line, angle);
    const QPointF start(std::ceil(-box.left()), std::ceil(-box.top()));
    const QPointF end = box.bottomRight() + start;
    return {QSize(static_cast<int>(std::ceil(end.x())), static_cast<int>(std::ceil(end.y()))),
            start.toPoint()};
}
