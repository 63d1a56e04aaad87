#include "paper/text_block.h"

#include "paper/text_lines.h"
#include "paper/turned_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace {

constexpr double kTolerance = 0.1; ///< mm by which a line may stand out of its box

/// A block's box as the text runs: width along the line, height across the lines.
struct RunBox
{
    QPointF start; ///< where the turned text starts
    double width = 0;
    double height = 0;
};

RunBox runBox(const QRectF &box, double angle)
{
    const QPoint corner = startCorner(angle).value_or(QPoint());
    const QPointF start(corner.x() != 0 ? box.right() : box.left(),
                        corner.y() != 0 ? box.bottom() : box.top());
    const bool upright = angle == 90 || angle == 270;
    return upright ? RunBox{start, box.height(), box.width()}
                   : RunBox{start, box.width(), box.height()};
}

/// Lines that go into the box, at least one.
qsizetype lineRoom(double boxHeight, double lineHeight)
{
    const double lines = (boxHeight + kTolerance) / lineHeight;
    return lines >= 1 ? static_cast<qsizetype>(std::min(lines, 1000.0)) : 1;
}

double turn(double angle)
{
    return std::isfinite(angle) ? std::fmod(angle, 360) : 0;
}

/// The largest size, no larger than the font's own, at which the text is as wide as the room.
PaperFont shrunk(PaperFont font, const QString &text, double room, const TextMeasure &measure)
{
    constexpr double step = 0.98; // type grows in whole dots, so the quotient may be too large
    constexpr double smallest = 1;
    const double width = measure.width(font, text);
    if (width > room && room > 0)
        font.size = std::max(font.size * room / width, smallest);
    while (font.size > smallest && measure.width(font, text) > room)
        font.size *= step;
    return font;
}

} // namespace

QPointF sag0(QPointF at, double room)
{
    return {at.x() + room, at.y()};
}

QPointF sag90(QPointF at, double room)
{
    return {at.x(), at.y() - room};
}

QPointF sag180(QPointF at, double room)
{
    return {at.x() - room, at.y()};
}

QPointF sag270(QPointF at, double room)
{
    return {at.x(), at.y() + room};
}

QPointF ort0(QPointF at, double room)
{
    return sag0(at, room / 2);
}

QPointF ort90(QPointF at, double room)
{
    return sag90(at, room / 2);
}

QPointF ort180(QPointF at, double room)
{
    return sag180(at, room / 2);
}

QPointF ort270(QPointF at, double room)
{
    return sag270(at, room / 2);
}

QPointF alignText(QPointF at, Alignment alignment, double angle, double room)
{
    struct Rule
    {
        double angle;
        QPointF (*right)(QPointF, double);
        QPointF (*centre)(QPointF, double);
    };
    static constexpr std::array<Rule, 4> rules = {
        {{0, sag0, ort0}, {90, sag90, ort90}, {180, sag180, ort180}, {270, sag270, ort270}}};

    for (const Rule &rule : rules) {
        if (rule.angle != angle)
            continue;
        if (alignment == Alignment::right)
            return rule.right(at, room);
        if (alignment == Alignment::centre)
            return rule.centre(at, room);
    }
    return at;
}

PlacedText placeText(const TextBlock &block, const TextMeasure &measure)
{
    const RunBox box = runBox(block.box, block.angle);
    const PaperFont font =
        block.shrink ? shrunk(block.font, block.text, box.width, measure) : block.font;
    const double lineHeight = measure.lineHeight(font);

    PlacedText placed;
    placed.fits = lineHeight <= box.height + kTolerance || block.text.isEmpty();
    QPointF at = box.start;
    const auto place = [&](const QString &line, double width) {
        const double room = box.width - width;
        placed.fits = placed.fits && room >= -kTolerance;
        placed.lines.push_back({alignText(at, block.alignment, block.angle, room),
                                turn(block.angle), font, block.colour, line});
    };

    // Only quarter turns run along their box.
    const bool isBounded = box.width > 0 && startCorner(block.angle) && !block.shrink;
    const double width = measure.width(font, block.text);
    if (isOneLine(block.text) && (!isBounded || width <= box.width)) { // as most are
        if (!block.text.isEmpty())
            place(block.text, width);
        return placed;
    }

    const auto isInside = [&](QStringView part) { return measure.width(font, part) <= box.width; };
    const SplitText split =
        splitLines(block.text, lineRoom(box.height, lineHeight),
                   block.angle == 0 ? Breaking::words : Breaking::lineEnds,
                   isBounded ? std::function<bool(QStringView)>(std::cref(isInside)) : nullptr);
    placed.fits = placed.fits && split.complete;
    for (const QString &line : split.lines) {
        if (!line.isEmpty())
            place(line, measure.width(font, line));
        at.ry() += lineHeight;
    }
    return placed;
}
