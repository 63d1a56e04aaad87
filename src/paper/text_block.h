#pragma once

#include "paper/draw_commands.h"

/// How lines of text stand inside their box.
enum class Alignment
{
    left,
    centre,
    right
};

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

/// Applies the procedure for the alignment and rotation; other rotations leave the point where it
/// is.
QPointF alignText(QPointF at, Alignment alignment, double angle, double room);

/// A text and the upright box (mm) it is to stand in. At 90 and 270 degrees its lines run along the
/// box's height.
struct TextBlock
{
    QRectF box;
    double angle = 0; ///< degrees, counter-clockwise
    Alignment alignment = Alignment::left;
    PaperFont font;
    QRgb colour = 0xFF000000;
    QString text;
    bool shrink = false; ///< written on one line, smaller where it would be wider than its box
};

/// The lines of a block, each where it stands.
struct PlacedText
{
    std::vector<TextCommand> lines;
    bool fits = true; ///< every line is inside the box, and nothing of the text was left out
};

/// Breaks an upright text into lines as wide as its box and aligns them; turned texts stay on one
/// line, only a line end inside the text starts another. A text for which the box is too small
/// keeps its type and its end, where the size of a pack stands: words of its middle give way.
PlacedText placeText(const TextBlock &block, const TextMeasure &measure);
