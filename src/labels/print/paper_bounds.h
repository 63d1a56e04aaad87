#pragma once

#include <QPointF>

#include <cmath>

inline constexpr double kLongestPaper = 5000; ///< mm; the longest page a PDF can have

/// False for places on no page, and for those that are no number.
inline bool onPaper(QPointF mm)
{
    return std::abs(mm.x()) <= kLongestPaper && std::abs(mm.y()) <= kLongestPaper;
}
