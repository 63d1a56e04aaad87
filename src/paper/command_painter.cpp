#include "paper/command_painter.h"

#include "paper/millimetres.h"
#include "paper/screen_ink.h"
#include "paper/turned_text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// To make a pen costs more than to look whether it is there, and a label has few colours.
void takePen(QPainter &painter, QRgb colour)
{
    const QColor wanted(colour);
    const QPen &pen = painter.pen();
    if (pen.style() != Qt::SolidLine || pen.width() != 1 || pen.color() != wanted)
        painter.setPen(wanted);
}

} // namespace

CommandPainter::CommandPainter(QPainter &painter, const DeviceFonts &fonts, PictureStore &pictures,
                               ScreenInk *screen)
    : m_painter(painter), m_fonts(fonts), m_pictures(pictures), m_screen(screen), m_digits(fonts)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::LosslessImageRendering);
}

void CommandPainter::paint(std::span<const DrawCommand> commands, QPointF origin)
{
    for (const DrawCommand &command : commands)
        std::visit([&](const auto &one) { draw(one, origin); }, command.shape);
}

/// The box in whole dots, empty when it lies on no paper. Its size comes from the box alone: every
/// label uses the same scaled picture.
QRect CommandPainter::dotBox(const QRectF &box, QPointF origin) const
{
    const QPointF corner = box.topLeft() + origin;
    const QPointF opposite = box.bottomRight() + origin;
    if (!onPaper(corner) || !onPaper(opposite))
        return {};
    const QPointF size = toDots(opposite - corner, m_fonts.dpi());
    return {toDots(corner, m_fonts.dpi()).toPoint(), QSize(qRound(size.x()), qRound(size.y()))};
}

int CommandPainter::dotWidth(double mm) const
{
    return std::max(
        qRound(std::clamp(mm, 0.0, kLongestPaper) * m_fonts.dpi().height() / kMmPerInch), 1);
}

void CommandPainter::draw(const PictureCommand &picture, QPointF origin)
{
    const QRect box = dotBox(picture.box, origin);
    if (box.isEmpty())
        return;
    const QImage &image = m_pictures.find(picture.file, box.size());
    if (image.isNull())
        return;
    if (m_screen != nullptr)
        m_screen->drawPicture(m_painter, box, image);
    else
        m_painter.drawImage(box, image);
}

void CommandPainter::draw(const BarsCommand &bars, QPointF origin)
{
    const auto geometry = fitBars(bars.symbol, bars.box.translated(origin), m_fonts.dpi());
    if (!geometry)
        return;

    const DigitStyle &style =
        (m_screen != nullptr ? m_screen->digits() : m_digits).find(bars, *geometry);
    const int bottom = barsBottom(*geometry, style);
    const int guards = std::min(bottom + kGuardDepth * geometry->module, geometry->bottom);
    const auto rectangles = barRectangles(bars.symbol, *geometry, bottom, guards);
    if (m_screen != nullptr) {
        m_screen->drawBars(m_painter, rectangles, bars.colour);
    } else {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(QColor(bars.colour));
        m_painter.drawRects(rectangles.data(), static_cast<int>(rectangles.size()));
    }
    if (style.height > 0)
        drawDigits(bars, *geometry, style, bottom + geometry->module + style.height);
}

void CommandPainter::drawDigits(const BarsCommand &bars, const BarsGeometry &geometry,
                                const DigitStyle &style, int baseline)
{
    takePen(m_painter, bars.colour);
    for (const DigitGroup &group : bars.symbol.groups) {
        const double width = static_cast<double>(group.digits.size()) * style.advance;
        const double left = geometry.x(group.left) + (group.width * geometry.module - width) / 2;
        write(QPointF(std::round(left), baseline), style.font, group.digits);
    }
}

void CommandPainter::write(QPointF baseline, const QFont &font, const QString &text)
{
    if (m_screen != nullptr) {
        m_screen->drawText(m_painter, baseline, font, text);
        return;
    }
    m_painter.setFont(font);
    m_painter.drawText(baseline, text);
}

void CommandPainter::draw(const TextCommand &text, QPointF origin)
{
    const QPointF corner = text.at + origin;
    if (!onPaper(corner))
        return;
    const DeviceFont &font = m_fonts.find(text.font);
    const QPointF at = toDots(corner, m_fonts.dpi());
    const QPointF dot(std::round(at.x() + text.nudge), std::round(at.y()));

    takePen(m_painter, text.colour);
    const auto writeAt = [&](QPointF start) {
        write(start + QPointF(0, font.ascent()), font.font(), text.text);
    };
    paintTurned(m_painter, dot, text.angle, std::cref(writeAt));
}

void CommandPainter::draw(const LineCommand &line, QPointF origin)
{
    const QPointF from = line.from + origin;
    const QPointF to = line.to + origin;
    if (!onPaper(from) || !onPaper(to))
        return;
    const int width = dotWidth(line.width);
    const QPoint start = toDots(from, m_fonts.dpi()).toPoint();
    const QPoint end = toDots(to, m_fonts.dpi()).toPoint();
    const bool upright = start.x() == end.x();
    if (upright || start.y() == end.y()) {
        // Filled, so that it is exactly as many dots wide; half of them lie on each side.
        const QRect along = QRect(start, end).normalized();
        const QPoint half = upright ? QPoint(width / 2, 0) : QPoint(0, width / 2);
        const QSize size = upright ? QSize(width, along.height()) : QSize(along.width(), width);
        m_painter.fillRect(QRect(along.topLeft() - half, size), QColor(line.colour));
        return;
    }
    m_painter.setPen(QPen(QColor(line.colour), width, Qt::SolidLine, Qt::FlatCap));
    m_painter.drawLine(start, end);
}

void CommandPainter::draw(const RectangleCommand &rectangle, QPointF origin)
{
    const QRect box = dotBox(rectangle.box, origin);
    if (box.isEmpty())
        return;
    const QColor colour(rectangle.colour);
    const int line = dotWidth(rectangle.line);
    if (rectangle.filled || 2 * line >= std::min(box.width(), box.height())) {
        m_painter.fillRect(box, colour);
        return;
    }
    const int inner = box.height() - 2 * line;
    m_painter.fillRect(QRect(box.left(), box.top(), box.width(), line), colour);
    m_painter.fillRect(QRect(box.left(), box.bottom() + 1 - line, box.width(), line), colour);
    m_painter.fillRect(QRect(box.left(), box.top() + line, line, inner), colour);
    m_painter.fillRect(QRect(box.right() + 1 - line, box.top() + line, line, inner), colour);
}
