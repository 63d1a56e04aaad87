#pragma once

#include "labels/layout/label_layout.h"

#include <QPointF>
#include <QRectF>

#include <array>
#include <optional>

/// The corners and sides by which a box is resized.
enum class Handle
{
    topLeft,
    top,
    topRight,
    right,
    bottomRight,
    bottom,
    bottomLeft,
    left
};

inline constexpr std::array<Handle, 8> kHandles = {
    Handle::topLeft,     Handle::top,    Handle::topRight,   Handle::right,
    Handle::bottomRight, Handle::bottom, Handle::bottomLeft, Handle::left};

/// No element is made smaller by hand (mm): it could not be grasped again.
inline constexpr double kSmallestSide = 0.5;

/// Layout files keep one decimal of a length, so everything the designer sets is a whole number of
/// tenths: what is on screen is what is in the file.
float tenth(double mm);

/// −1 left or top, 0 middle, 1 right or bottom: which edges a handle moves.
int horizontalSide(Handle handle);
int verticalSide(Handle handle);

QRectF rectangle(const LabelBox &box);
/// With all four sides on whole tenths.
LabelBox labelBox(const QRectF &rectangle);

QPointF handlePoint(const QRectF &box, Handle handle);

/// The handle within `reach` of a point, the nearest of several; corners go before sides, so that a
/// small box can still be resized both ways.
std::optional<Handle> handleAt(const QRectF &box, QPointF at, double reach);

/// The box with the handle's edges moved by `by`. With `proportional` the sides keep their relation
/// and the opposite corner or side stays where it is. No side gets shorter than kSmallestSide, nor
/// than it was when it was shorter already.
QRectF resized(const QRectF &box, Handle handle, QPointF by, bool proportional);

/// Where `inner` goes when `from` is stretched to `to`.
QRectF stretched(const QRectF &inner, const QRectF &from, const QRectF &to);
