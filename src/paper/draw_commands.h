#pragma once

#include "paper/bars.h"
#include "paper/device_font.h"

#include <QPointF>
#include <QRectF>
#include <QRgb>

#include <variant>

/// Stretches a picture over its box.
struct PictureCommand
{
    QRectF box;
    QString file; ///< bare name in the folder of pictures
};

/// Draws a bar symbol, its quiet zones and its digits inside the box.
struct BarsCommand
{
    QRectF box;
    BarSymbol symbol;
    PaperFont font; ///< of the digits
    QRgb colour = 0;
};

/// Draws one line of text. `at` is the upper left corner of the line before it is turned about that
/// point, counter-clockwise by `angle` degrees.
struct TextCommand
{
    QPointF at;
    double angle = 0;
    PaperFont font;
    QRgb colour = 0;
    QString text;
    double nudge = 0; ///< device dots by which the text stands further right
};

/// Draws a straight line with flat ends.
struct LineCommand
{
    QPointF from;
    QPointF to;
    double width = 0; ///< mm, at least one dot is drawn
    QRgb colour = 0;
};

/// Draws the outline of a box, its line inside the box, or fills it.
struct RectangleCommand
{
    QRectF box;
    double line = 0; ///< mm, at least one dot is drawn
    QRgb colour = 0;
    bool filled = false;
};

/// What a command was made for, in numbers of the maker's own; paper hands them on unread.
struct ElementRef
{
    int kind = 0; ///< 0: nothing one could point at
    int index = 0;

    friend bool operator==(const ElementRef &, const ElementRef &) = default;
};

using DrawShape =
    std::variant<PictureCommand, BarsCommand, TextCommand, LineCommand, RectangleCommand>;

/// One thing to draw. Millimetres from the upper left corner of what is drawn: a label, a receipt.
struct DrawCommand
{
    DrawShape shape;
    ElementRef element;
};

/// One line that says all of the command, its place counted from `origin`'s zero point.
QString toText(const DrawCommand &command, QPointF origin = {});

/// The upright rectangle around what a command draws (mm). A text's is that of its turned line,
/// from which slanted letters may stand out a little.
QRectF boundingBox(const DrawCommand &command, const TextMeasure &measure);
