#pragma once

#include "labels/designer/design.h"
#include "labels/designer/geometry.h"

#include <vector>

/// What an edge has met.
enum class SnapKind
{
    grid,
    label,
    element,
    guide
};

/// A line to be shown where edges met: across the label for what lies over all of it, else from
/// one box to the other.
struct SnapLine
{
    Qt::Orientation orientation = Qt::Vertical;
    double at = 0; ///< mm: x of a vertical line, y of a horizontal one
    SnapKind kind = SnapKind::grid;

    friend bool operator==(const SnapLine &, const SnapLine &) = default;
};

/// The places things snap to, gathered once when a drag begins.
class SnapTargets
{
public:
    struct Line
    {
        double at = 0;
        SnapKind kind = SnapKind::grid;
    };

    /// `moving`: elements that are no targets, since they move. `label`: its size, mm. `grid`: mm
    /// between its lines, 0 = no grid. The others can be left out one by one.
    struct Wanted
    {
        double grid = 0;
        bool elements = true;
        bool guides = true;
        bool label = true;
    };
    SnapTargets() = default;
    SnapTargets(const Design &design, const RefSet &moving, QSizeF label, const Wanted &wanted);

    /// The line nearest to one of `edges` within `reach`, and how far the edge is from it. Where
    /// there is none, the first edge goes to the grid, however far.
    struct Hit
    {
        double by = 0; ///< mm from the edge to the line
        Line line;
    };
    std::optional<Hit> nearest(Qt::Orientation orientation, const std::vector<double> &edges,
                               double reach) const;

private:
    void add(const QRectF &box, SnapKind kind);
    const std::vector<Line> &lines(Qt::Orientation orientation) const
    {
        return orientation == Qt::Vertical ? m_vertical : m_horizontal;
    }

    std::vector<Line> m_vertical; ///< ascending
    std::vector<Line> m_horizontal;
    double m_grid = 0;
};

/// A movement after snapping and the lines that it met.
struct Snapped
{
    QPointF by; ///< mm
    std::vector<SnapLine> lines;
};

/// Moves a box `by` and on to what its edges or middle meet within `reach` (mm).
Snapped snapMove(const SnapTargets &targets, const QRectF &box, QPointF by, double reach);

/// The same for the edges that a handle moves. Proportional resizing snaps the edge that leads.
Snapped snapResize(const SnapTargets &targets, const QRectF &box, Handle handle, QPointF by,
                   bool proportional, double reach);

/// A single point, as when an element is drawn.
Snapped snapPoint(const SnapTargets &targets, QPointF at, double reach);
