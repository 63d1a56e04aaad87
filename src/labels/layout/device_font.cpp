#include "labels/layout/device_font.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kPlainSize = 8;      ///< points, for layouts that name no size
constexpr double kLargestSize = 1000; ///< points
constexpr int kLongestName = 32;      ///< characters of a font name the printer is told

QFont makeFont(const LabelFont &source, double dpiY)
{
    QFont font;
    if (!source.name.isEmpty())
        font.setFamilies({source.name.left(kLongestName)});
    font.setPixelSize(pixelSize(source, dpiY));
    font.setBold(source.bold);
    font.setItalic(source.italic);
    font.setUnderline(source.underline);
    font.setStrikeOut(source.strikeThrough);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

int pixelSize(const LabelFont &font, double dpiY)
{
    const double points = font.size > 0 ? std::min(font.size, kLargestSize) : kPlainSize;
    return std::max(qRound(points * dpiY / kPointsPerInch), 1);
}

DeviceFont::DeviceFont(const LabelFont &source, double dpiY)
    : m_source(source), m_font(makeFont(source, dpiY))
{
    const QFontMetricsF metrics(m_font);
    m_ascent = std::round(metrics.ascent());
    m_height = metrics.height();
}

double DeviceFont::width(QStringView text) const
{
    // Shaping a text costs as much as drawing it; adding up known letters costs nearly nothing.
    double width = 0;
    for (const QChar c : text) {
        const std::size_t letter = c.unicode();
        if (letter >= kLatin || !c.isPrint())
            return QFontMetricsF(m_font).horizontalAdvance(text.toString());
        if (m_widths[letter] == 0)
            m_widths[letter] = QFontMetricsF(m_font).horizontalAdvance(c);
        width += m_widths[letter];
    }
    return width;
}
