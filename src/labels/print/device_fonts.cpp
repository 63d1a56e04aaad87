#include "labels/print/device_fonts.h"

#include <QFontMetricsF>

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

const DeviceFont &DeviceFonts::find(const LabelFont &font) const
{
    const auto known = std::find_if(m_fonts.cbegin(), m_fonts.cend(),
                                    [&](const DeviceFont &made) { return made.source == font; });
    if (known != m_fonts.cend())
        return *known;

    DeviceFont made{.source = font, .font = makeFont(font, m_dpi.height())};
    const QFontMetricsF metrics(made.font);
    made.ascent = std::round(metrics.ascent());
    made.height = metrics.height();
    return m_fonts.emplace_back(std::move(made));
}

double DeviceFonts::width(const LabelFont &font, QStringView text) const
{
    const QFontMetricsF metrics(find(font).font);
    return metrics.horizontalAdvance(text.toString()) * kMmPerInch / m_dpi.width();
}

double DeviceFonts::lineHeight(const LabelFont &font) const
{
    return find(font).height * kMmPerInch / m_dpi.height();
}
