#pragma once

#include "labels/designer/design.h"
#include "labels/designer/geometry.h"

/// What can be done to the elements of a design. Locked elements stay as they are; every length
/// that is set is a whole tenth of a millimetre.
namespace edits {

/// Lengths in mm beyond this make no label.
inline constexpr double kFarthest = 1000;

enum class Edge
{
    left,
    centreX,
    right,
    top,
    centreY,
    bottom
};

enum class Order
{
    front,
    forward,
    backward,
    back
};

/// The elements of `refs` that may be changed.
RefSet unlocked(const Design &design, const RefSet &refs);

/// The smallest rectangle around elements; null for none.
QRectF bounds(const LabelLayout &layout, const RefSet &refs);

void move(Design &design, const RefSet &refs, QPointF by);

/// Puts elements from one rectangle to another, as when a handle of their common frame is drawn.
void stretch(Design &design, const RefSet &refs, const QRectF &from, const QRectF &to);

/// Makes the right and lower side longer by `by`, as far as kSmallestSide allows.
void grow(Design &design, const RefSet &refs, QPointF by);

/// Turns texts about their centres by quarters, counter-clockwise. Pictures and barcodes have no
/// angle in a layout's file and stay.
void turn(Design &design, const RefSet &refs, int quarters);

/// Brings one edge or the middle of each element to that of `frame`.
void align(Design &design, const RefSet &refs, Edge edge, const QRectF &frame);

/// Makes the gaps between three or more elements equal; the outermost two stay.
void distribute(Design &design, const RefSet &refs, Qt::Orientation along);

/// Gives elements the width (Qt::Horizontal) or height of `model`.
void sameSize(Design &design, const RefSet &refs, LabelRef model, Qt::Orientation side);

/// Changes which elements of a kind are painted over which; a kind never leaves its place among the
/// kinds. Returns where the elements are now.
RefSet reorder(Design &design, const RefSet &refs, Order order);

void setLocked(Design &design, const RefSet &refs, bool locked);

void erase(Design &design, const RefSet &refs);

/// A layout that holds nothing but these elements.
LabelLayout copied(const LabelLayout &layout, const RefSet &refs);

/// Whether that many elements more may come in: no reader takes more than kMostElements of a kind.
bool hasRoom(const LabelLayout &layout, const LabelLayout &elements);

/// Adds the elements above those of their kind; returns where they are. There must be room.
RefSet add(Design &design, const LabelLayout &elements);

/// The same elements moved so that none lies exactly on another of its kind, in steps of 2 mm; all
/// together come back onto the label when they lie off it. `label`: its size, mm.
LabelLayout besideOthers(const LabelLayout &layout, const LabelLayout &elements, QSizeF label);

} // namespace edits
