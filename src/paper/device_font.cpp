#include "paper/device_font.h"

#include "paper/millimetres.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPlainSize = 8;      ///< points, for fonts that name no size
constexpr double kLargestSize = 1000; ///< points
constexpr int kLongestName = 32;      ///< characters of a font name the printer is told

QFont makeFont(const PaperFont &source, double dpiY)
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

int pixelSize(const PaperFont &font, double dpiY)
{
    const double points = font.size > 0 ? std::min(font.size, kLargestSize) : kPlainSize;
    return std::max(qRound(points * dpiY / kPointsPerInch), 1);
}

DeviceFont::DeviceFont(const PaperFont &source, double dpiY)
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
        const bool known = letter < kLatin && m_widths[letter] != 0;
        if (!known && (letter >= kLatin || !c.isPrint()))
            return QFontMetricsF(m_font).horizontalAdvance(text.toString());
        if (!known)
            m_widths[letter] = QFontMetricsF(m_font).horizontalAdvance(c);
        width += m_widths[letter];
    }
    return width;
}

const DeviceFont &DeviceFonts::find(const PaperFont &font) const
{
    // Fonts of one device differ in their size more often than in their name.
    const auto known = std::find_if(m_fonts.cbegin(), m_fonts.cend(), [&](const DeviceFont &made) {
        return made.source().size == font.size && made.source() == font;
    });
    return known != m_fonts.cend() ? *known : m_fonts.emplace_back(font, m_dpi.height());
}

double DeviceFonts::width(const PaperFont &font, QStringView text) const
{
    return find(font).width(text) * kMmPerInch / m_dpi.width();
}

double DeviceFonts::lineHeight(const PaperFont &font) const
{
    return find(font).height() * kMmPerInch / m_dpi.height();
}
