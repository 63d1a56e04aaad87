#include "labels/designer/geometry.h"

#include <algorithm>
#include <cmath>

float tenth(double mm)
{
    return static_cast<float>(std::round(mm * 10) / 10);
}

int horizontalSide(Handle handle)
{
    switch (handle) {
    case Handle::topLeft:
    case Handle::left:
    case Handle::bottomLeft:
        return -1;
    case Handle::topRight:
    case Handle::right:
    case Handle::bottomRight:
        return 1;
    default:
        return 0;
    }
}

int verticalSide(Handle handle)
{
    switch (handle) {
    case Handle::topLeft:
    case Handle::top:
    case Handle::topRight:
        return -1;
    case Handle::bottomLeft:
    case Handle::bottom:
    case Handle::bottomRight:
        return 1;
    default:
        return 0;
    }
}

QRectF rectangle(const LabelBox &box)
{
    return {static_cast<double>(box.left), static_cast<double>(box.top),
            static_cast<double>(box.width), static_cast<double>(box.height)};
}

LabelBox labelBox(const QRectF &rectangle)
{
    const double left = std::round(rectangle.left() * 10);
    const double top = std::round(rectangle.top() * 10);
    return {tenth(rectangle.left()), tenth(rectangle.top()),
            tenth((std::round(rectangle.right() * 10) - left) / 10),
            tenth((std::round(rectangle.bottom() * 10) - top) / 10)};
}

QPointF handlePoint(const QRectF &box, Handle handle)
{
    return {box.center().x() + horizontalSide(handle) * box.width() / 2,
            box.center().y() + verticalSide(handle) * box.height() / 2};
}

std::optional<Handle> handleAt(const QRectF &box, QPointF at, double reach)
{
    std::optional<Handle> found;
    double nearest = 0;
    for (const Handle handle : kHandles) {
        const QPointF away = handlePoint(box, handle) - at;
        if (std::abs(away.x()) > reach || std::abs(away.y()) > reach)
            continue;
        const bool corner = horizontalSide(handle) != 0 && verticalSide(handle) != 0;
        const double distance = std::hypot(away.x(), away.y()) + (corner ? 0 : reach);
        if (!found || distance < nearest) {
            found = handle;
            nearest = distance;
        }
    }
    return found;
}

namespace {

/// The new length of a side whose handle moved.
double newLength(double length, double by)
{
    return std::max(length + by, std::min(kSmallestSide, length));
}

/// The factor by which a box grows in proportion: the larger of what either direction asks for.
double proportion(const QRectF &box, Handle handle, QPointF by)
{
    const double x = box.width() > 0 ? horizontalSide(handle) * by.x() / box.width() : 0;
    const double y = box.height() > 0 ? verticalSide(handle) * by.y() / box.height() : 0;
    const double wanted = 1 + (std::abs(x) > std::abs(y) ? x : y);
    const double shorter = std::min(box.width(), box.height());
    return shorter > 0 ? std::max(wanted, std::min(kSmallestSide / shorter, 1.0)) : wanted;
}

/// A side of new length: the handle's end moves, or both ends when the handle is on neither.
void setLength(double &low, double &high, double length, int side)
{
    const double centre = (low + high) / 2;
    if (side < 0) {
        low = high - length;
    } else if (side > 0) {
        high = low + length;
    } else {
        low = centre - length / 2;
        high = centre + length / 2;
    }
}

} // namespace

QRectF resized(const QRectF &box, Handle handle, QPointF by, bool proportional)
{
    const int across = horizontalSide(handle);
    const int down = verticalSide(handle);
    double width = across != 0 ? newLength(box.width(), across * by.x()) : box.width();
    double height = down != 0 ? newLength(box.height(), down * by.y()) : box.height();
    if (proportional) {
        const double factor = proportion(box, handle, by);
        width = box.width() * factor;
        height = box.height() * factor;
    }
    double left = box.left();
    double right = box.right();
    double top = box.top();
    double bottom = box.bottom();
    setLength(left, right, width, across);
    setLength(top, bottom, height, down);
    return {QPointF(left, top), QPointF(right, bottom)};
}

QRectF stretched(const QRectF &inner, const QRectF &from, const QRectF &to)
{
    const double x = from.width() > 0 ? to.width() / from.width() : 1;
    const double y = from.height() > 0 ? to.height() / from.height() : 1;
    return {to.left() + (inner.left() - from.left()) * x, to.top() + (inner.top() - from.top()) * y,
            inner.width() * x, inner.height() * y};
}
