#pragma once

#include "labels/layout/label_layout.h"
#include "labels/print/ean.h"

#include <QPointF>
#include <QRectF>
#include <QRgb>

#include <variant>

/// Stretches a picture of ayar/pic over its box.
struct PictureCommand
{
    QRectF box;
    QString file;
};

/// Draws a bar symbol, its quiet zones and its digits inside the box.
struct BarsCommand
{
    QRectF box;
    ean::Symbol symbol;
    LabelFont font; ///< of the digits
    QRgb colour = 0;
};

/// Draws one line of text. `at` is the upper left corner of the line before it is turned about that
/// point, counter-clockwise by `angle` degrees.
struct TextCommand
{
    QPointF at;
    double angle = 0;
    LabelFont font;
    QRgb colour = 0;
    QString text;
};

/// One thing to draw on a label. Millimetres from the label's upper left corner.
using DrawCommand = std::variant<PictureCommand, BarsCommand, TextCommand>;

/// One line that says all of the command, its place counted from `origin`'s zero point.
QString toText(const DrawCommand &command, QPointF origin = {});
