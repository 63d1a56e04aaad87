#pragma once

#include <QPointF>
#include <QString>

/// Moves the starting point of a text line inside its box. `room` is the box width less the text
/// width, mm; it is negative when the text is wider than its box. The number in a name is the
/// text's rotation in degrees: the line runs right, up, left or down.
QPointF sag0(QPointF at, double room);
QPointF sag90(QPointF at, double room);
QPointF sag180(QPointF at, double room);
QPointF sag270(QPointF at, double room);
QPointF ort0(QPointF at, double room);
QPointF ort90(QPointF at, double room);
QPointF ort180(QPointF at, double room);
QPointF ort270(QPointF at, double room);

/// Applies the procedure for the alignment ("2" centre, "3" right) and rotation; any other
/// alignment or rotation leaves the point where it is.
QPointF alignText(QPointF at, const QString &alignment, double angle, double room);
