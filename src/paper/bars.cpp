#include "paper/bars.h"

#include "paper/millimetres.h"

#include <cmath>

namespace {

constexpr double kSlack = 1e-3; ///< dots lost to single precision

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
    const int module = width / symbol.totalModules();
    if (module < 1 || height < 2)
        return {};

    const int spare = width - module * symbol.totalModules();
    BarsGeometry geometry;
    geometry.module = module;
    geometry.left = qRound(box.left() * perMmX) + spare / 2 + module * symbol.quietLeft;
    geometry.top = qRound(box.top() * perMmY);
    geometry.bottom = geometry.top + height;
    return geometry;
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
