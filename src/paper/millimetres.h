#pragma once

#include <QPointF>
#include <QSizeF>

#include <cmath>

inline constexpr double kMmPerInch = 25.4;
inline constexpr double kPointsPerInch = 72;
inline constexpr double kLongestPaper = 5000; ///< mm; the longest page a PDF can have

/// A length or place in millimetres as dots of a device, and back. `dpi`: dots per inch, across and
/// down.
inline QPointF toDots(QPointF mm, QSizeF dpi)
{
    return {mm.x() * dpi.width() / kMmPerInch, mm.y() * dpi.height() / kMmPerInch};
}
inline QPointF toMillimetres(QPointF dots, QSizeF dpi)
{
    return {dots.x() * kMmPerInch / dpi.width(), dots.y() * kMmPerInch / dpi.height()};
}

/// False for places on no page, and for those that are no number.
inline bool onPaper(QPointF mm)
{
    return std::abs(mm.x()) <= kLongestPaper && std::abs(mm.y()) <= kLongestPaper;
}
