#include "paper/bars.h"

#include "paper/millimetres.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSlack = 1e-3;      ///< dots lost to single precision
constexpr double kDigitShare = 0.35; ///< of a symbol's height, at most, goes to its digits
constexpr int kSmallestDigits = 4;   ///< dots; smaller digits are left out

bool canHoldBars(const QRectF &box)
{
    return onPaper(box.topLeft()) && onPaper({box.width(), box.height()}) && box.width() > 0 &&
           box.height() > 0;
}

} // namespace

std::optional<BarsGeometry> fitBars(const BarSymbol &symbol, const QRectF &box, QSizeF dpi)
{
    if (!canHoldBars(box))
        return {};
    const double perMmX = dpi.width() / kMmPerInch;
    const double perMmY = dpi.height() / kMmPerInch;
    // The room comes from the box's size alone, so that a symbol has the same modules wherever its
    // label lies on the sheet.
    const int width = static_cast<int>(std::floor(box.width() * perMmX + kSlack));
    const int height = static_cast<int>(std::floor(box.height() * perMmY + kSlack));
    int module = width / symbol.totalModules();
    if (module < 1 || height < 2)
        return {};
    if (symbol.longModules > 0) {
        const int full = static_cast<int>(std::ceil(kFullModule * perMmX - kSlack));
        module = std::min(module, std::max(width / symbol.longModules, full));
    }

    const int spare = width - module * symbol.totalModules();
    BarsGeometry geometry;
    geometry.module = module;
    geometry.left = qRound(box.left() * perMmX) + spare / 2 + module * symbol.quietLeft;
    geometry.top = qRound(box.top() * perMmY);
    geometry.bottom = geometry.top + height;
    return geometry;
}

DigitStyle digitStyle(const BarSymbol &symbol, const BarsGeometry &geometry, QFont wanted)
{
    const int height = geometry.bottom - geometry.top;
    const QFontMetricsF metrics(wanted);
    double scale = std::min(1.0, height * kDigitShare / metrics.capHeight());
    for (const DigitGroup &group : symbol.groups) {
        const double room = (group.width - 1) * geometry.module;
        const double width =
            static_cast<double>(group.digits.size()) * metrics.horizontalAdvance(u'0');
        scale = std::min(scale, room / width);
    }
    wanted.setPixelSize(std::max(static_cast<int>(wanted.pixelSize() * scale), 1));

    const QFontMetricsF fitted(wanted);
    const bool readable = wanted.pixelSize() >= kSmallestDigits;
    return {wanted, fitted.horizontalAdvance(u'0'),
            readable ? static_cast<int>(std::ceil(fitted.capHeight())) : 0};
}

int barsBottom(const BarsGeometry &geometry, const DigitStyle &digits)
{
    const int guards = kGuardDepth * geometry.module;
    const int text = digits.height > 0 ? digits.height + geometry.module : 0;
    const int beneath = std::min(std::max(text, guards), (geometry.bottom - geometry.top) / 2);
    return geometry.bottom - beneath;
}

std::vector<QRect> barRectangles(const BarSymbol &symbol, const BarsGeometry &geometry, int bottom,
                                 int guardBottom)
{
    std::vector<QRect> rectangles;
    rectangles.reserve(symbol.bars.size());
    for (const Bar &bar : symbol.bars) {
        const int end = bar.guard ? guardBottom : bottom;
        rectangles.emplace_back(geometry.x(bar.start), geometry.top, bar.width * geometry.module,
                                end - geometry.top);
    }
    return rectangles;
}
