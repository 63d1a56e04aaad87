#pragma once

#include "labels/print/ean.h"

#include <QRect>
#include <QSizeF>

#include <optional>
#include <vector>

/// A bar symbol laid out in whole device dots.
struct BarsGeometry
{
    int module = 0; ///< width of the narrowest bar
    int left = 0;   ///< left edge of the first guard bar
    int top = 0;
    int bottom = 0; ///< lower end of the whole box

    int x(int atModule) const { return left + atModule * module; }
};

/// Lays the symbol out inside the box (mm): the widest whole-dot module with which bars and quiet
/// zones stay inside, the symbol in the middle. Nothing when not even one dot per module fits, or
/// for boxes no paper has. `dpi`: dots per inch, across and down.
std::optional<BarsGeometry> fitBars(const ean::Symbol &symbol, const QRectF &box, QSizeF dpi);

/// The bars as rectangles, one each, ending at `bottom`, guard bars at `guardBottom`.
std::vector<QRect> barRectangles(const ean::Symbol &symbol, const BarsGeometry &geometry,
                                 int bottom, int guardBottom);
