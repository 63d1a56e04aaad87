#include "labels/print/label_painter.h"

#include "common/millimetres.h"
#include "labels/layout/turned_text.h"
#include "labels/print/paper_bounds.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTextNudge = 1.5;   ///< dots to the right, as the shop's old sheets have it
constexpr double kDigitShare = 0.35; ///< of a symbol's height, at most, goes to its digits
constexpr int kSmallestDigits = 4;   ///< dots; smaller digits are left out

/// A group of digits and the room it stands in, modules from the first guard bar.
struct DigitGroup
{
    QStringView digits;
    int left = 0;
    int width = 0;
};

std::vector<DigitGroup> digitGroups(const ean::Symbol &symbol)
{
    const QStringView digits = symbol.digits;
    if (symbol.symbology == ean::Symbology::ean8)
        return {{digits.first(4), 3, 28}, {digits.sliced(4), 36, 28}};
    return {{digits.first(1), -10, 8}, {digits.sliced(1, 6), 3, 42}, {digits.sliced(7), 50, 42}};
}

} // namespace

LabelPainter::LabelPainter(QPainter &painter, const DeviceFonts &fonts, PictureStore &pictures)
    : m_painter(painter), m_fonts(fonts), m_pictures(pictures)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::LosslessImageRendering);
}

void LabelPainter::paint(const std::vector<DrawCommand> &commands, QPointF origin)
{
    for (const DrawCommand &command : commands)
        std::visit([&](const auto &one) { draw(one, origin); }, command);
}

QPointF LabelPainter::toDots(QPointF mm) const
{
    return {mm.x() * m_fonts.dpi().width() / kMmPerInch,
            mm.y() * m_fonts.dpi().height() / kMmPerInch};
}

void LabelPainter::draw(const PictureCommand &picture, QPointF origin)
{
    const QPointF corner = picture.box.topLeft() + origin;
    const QPointF opposite = picture.box.bottomRight() + origin;
    if (!onPaper(corner) || !onPaper(opposite))
        return;
    // The size comes from the element alone, so that every label uses the same scaled picture.
    const QPointF size = toDots(opposite - corner);
    const QRect box(toDots(corner).toPoint(), QSize(qRound(size.x()), qRound(size.y())));
    if (box.isEmpty())
        return;
    const QImage &image = m_pictures.find(picture.file, box.size());
    if (!image.isNull())
        m_painter.drawImage(box, image);
}

void LabelPainter::draw(const BarsCommand &bars, QPointF origin)
{
    const auto geometry = fitBars(bars.symbol, bars.box.translated(origin), m_fonts.dpi());
    if (!geometry)
        return;

    const DigitFont &font = digitFont(bars, *geometry);
    const int gap = geometry->module;
    const int guards = ean::kGuardDepth * geometry->module;
    const int digits = font.digitHeight > 0 ? font.digitHeight + gap : 0;
    const int beneath = std::min(std::max(digits, guards), (geometry->bottom - geometry->top) / 2);
    const int bottom = geometry->bottom - beneath;

    const auto rectangles =
        barRectangles(bars.symbol, *geometry, bottom, std::min(bottom + guards, geometry->bottom));
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(QColor(bars.colour));
    m_painter.drawRects(rectangles.data(), static_cast<int>(rectangles.size()));
    if (font.digitHeight > 0)
        drawDigits(bars, *geometry, font, bottom + gap + font.digitHeight);
}

const LabelPainter::DigitFont &LabelPainter::digitFont(const BarsCommand &bars,
                                                       const BarsGeometry &geometry)
{
    const int height = geometry.bottom - geometry.top;
    for (const DigitFont &known : m_digitFonts)
        if (known.source == bars.font && known.symbology == bars.symbol.symbology &&
            known.module == geometry.module && known.height == height)
            return known;

    // The element's font, made smaller until every group of digits fits beneath its bars.
    QFont font = m_fonts.find(bars.font).font();
    const QFontMetricsF wanted(font);
    double scale = std::min(1.0, height * kDigitShare / wanted.capHeight());
    for (const DigitGroup &group : digitGroups(bars.symbol)) {
        const double room = (group.width - 1) * geometry.module;
        const double width =
            static_cast<double>(group.digits.size()) * wanted.horizontalAdvance(u'0');
        scale = std::min(scale, room / width);
    }
    font.setPixelSize(std::max(static_cast<int>(font.pixelSize() * scale), 1));

    const QFontMetricsF metrics(font);
    const bool readable = font.pixelSize() >= kSmallestDigits;
    const int digitHeight = readable ? static_cast<int>(std::ceil(metrics.capHeight())) : 0;
    return m_digitFonts.emplace_back(DigitFont{bars.font, bars.symbol.symbology, geometry.module,
                                               height, font, metrics.horizontalAdvance(u'0'),
                                               digitHeight});
}

void LabelPainter::drawDigits(const BarsCommand &bars, const BarsGeometry &geometry,
                              const DigitFont &font, int baseline)
{
    m_painter.setFont(font.font);
    m_painter.setPen(QColor(bars.colour));
    for (const DigitGroup &group : digitGroups(bars.symbol)) {
        const double width = static_cast<double>(group.digits.size()) * font.advance;
        const double left = geometry.x(group.left) + (group.width * geometry.module - width) / 2;
        m_painter.drawText(QPointF(std::round(left), baseline), group.digits.toString());
    }
}

void LabelPainter::draw(const TextCommand &text, QPointF origin)
{
    const QPointF corner = text.at + origin;
    if (!onPaper(corner))
        return;
    const DeviceFont &font = m_fonts.find(text.font);
    const QPointF at = toDots(corner);
    const QPointF dot(std::round(at.x() + kTextNudge), std::round(at.y()));

    m_painter.setPen(QColor(text.colour));
    drawTurnedText(m_painter, dot, text.angle, font, text.text);
}
