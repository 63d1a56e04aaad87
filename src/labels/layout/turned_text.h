#pragma once

#include "labels/layout/device_font.h"

#include <QPointF>
#include <QSize>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/// The angle as a whole number of degrees from -180 to 180: 90 stays 90, 270 becomes -90, 180
/// becomes -180. What is no number is 0.
int normalisedAngle(double degrees);

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
