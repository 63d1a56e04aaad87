#include "labels/print/bars_geometry.h"

#include <cmath>

namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kFarthest = 5000; ///< mm; longer than any page
constexpr double kSlack = 1e-3;    ///< dots lost to single precision

bool onPaper(const QRectF &box)
{
    // Written so that a position that is no number fails, too.
    return std::abs(box.x()) <= kFarthest && std::abs(box.y()) <= kFarthest && box.width() > 0 &&
           box.width() <= kFarthest && box.height() > 0 && box.height() <= kFarthest;
}

} // namespace

std::optional<BarsGeometry> fitBars(const ean::Symbol &symbol, const QRectF &box, QSizeF dpi)
{
    if (!onPaper(box))
        return {};
    const double perMmX = dpi.width() / kMmPerInch;
    const double perMmY = dpi.height() / kMmPerInch;
    const int left = static_cast<int>(std::ceil(box.left() * perMmX - kSlack));
    const int right = static_cast<int>(std::floor(box.right() * perMmX + kSlack));
    const int module = (right - left) / symbol.totalModules();
    if (module < 1)
        return {};

    const int spare = right - left - module * symbol.totalModules();
    BarsGeometry geometry;
    geometry.module = module;
    geometry.left = left + spare / 2 + module * symbol.quietLeft();
    geometry.top = static_cast<int>(std::ceil(box.top() * perMmY - kSlack));
    geometry.bottom = static_cast<int>(std::floor(box.bottom() * perMmY + kSlack));
    if (geometry.bottom - geometry.top < 2)
        return {};
    return geometry;
}

std::vector<QRect> barRectangles(const ean::Symbol &symbol, const BarsGeometry &geometry,
                                 int bottom, int guardBottom)
{
    std::vector<QRect> rectangles;
    rectangles.reserve(symbol.bars.size());
    for (const ean::Bar &bar : symbol.bars) {
        const int end = bar.guard ? guardBottom : bottom;
        rectangles.emplace_back(geometry.x(bar.start), geometry.top, bar.width * geometry.module,
                                end - geometry.top);
    }
    return rectangles;
}
