#pragma once

#include "paper/device_font.h"

#include <QPointF>
#include <QRectF>
#include <QSize>

#include <functional>
#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// The angle as a whole number of degrees from -180 to 180: 90 stays 90, 270 becomes -90, 180
/// becomes -180. What is no number is 0.
int normalisedAngle(double degrees);

/// The upright rectangle around `line` turned counter-clockwise about the zero point.
QRectF turned(const QRectF &line, double angle);

/// The corner of its box at which a turned text starts: 0 or 1 across, 0 or 1 down. Upright text
/// starts upper left, at 90 degrees lower left, upside-down lower right, at 270 upper right. Other
/// angles fill no box and have no corner.
std::optional<QPoint> startCorner(double angle);

/// Calls `paint` with the place of `dot` on a painter that is turned counter-clockwise about it.
void paintTurned(QPainter &painter, QPointF dot, double angle,
                 const std::function<void(QPointF)> &paint);

/// Draws one line of text in the painter's pen. `dot` is the upper left corner of the line before
/// it is turned about that point, counter-clockwise by `angle` degrees.
void drawTurnedText(QPainter &painter, QPointF dot, double angle, const DeviceFont &font,
                    const QString &text);

/// The room a turned line takes.
struct TurnedBox
{
    QSize size;   ///< whole dots around all of its letters
    QPoint start; ///< where drawTurnedText() starts inside
};

TurnedBox turnedBox(double angle, const DeviceFont &font, const QString &text);
