#include "labels/designer/snapping.h"

#include <algorithm>
#include <cmath>

SnapTargets::SnapTargets(const Design &design, const RefSet &moving, QSizeF label,
                         const Wanted &wanted)
    : m_grid(wanted.grid)
{
    if (wanted.label)
        add(QRectF(QPointF(), label), SnapKind::label);
    if (wanted.elements)
        for (const LabelRef ref : RefSet::all(design.layout))
            if (!moving.contains(ref))
                add(rectangle(boxOf(design.layout, ref)), SnapKind::element);
    if (wanted.guides) {
        for (const float x : design.guides.vertical)
            m_vertical.push_back({static_cast<double>(x), SnapKind::guide});
        for (const float y : design.guides.horizontal)
            m_horizontal.push_back({static_cast<double>(y), SnapKind::guide});
    }
    const auto before = [](const Line &a, const Line &b) { return a.at < b.at; };
    std::stable_sort(m_vertical.begin(), m_vertical.end(), before);
    std::stable_sort(m_horizontal.begin(), m_horizontal.end(), before);
}

void SnapTargets::add(const QRectF &box, SnapKind kind)
{
    for (const double x : {box.left(), box.center().x(), box.right()})
        m_vertical.push_back({x, kind});
    for (const double y : {box.top(), box.center().y(), box.bottom()})
        m_horizontal.push_back({y, kind});
}

std::optional<SnapTargets::Hit> SnapTargets::nearest(Qt::Orientation orientation,
                                                     const std::vector<double> &edges,
                                                     double reach) const
{
    std::optional<Hit> best;
    const auto offer = [&](double edge, const Line &line) {
        const double by = line.at - edge;
        const bool nearer = !best || std::abs(by) < std::abs(best->by);
        const bool prior =
            best && std::abs(by) == std::abs(best->by) && line.kind > best->line.kind;
        if (nearer || prior)
            best = Hit{by, line};
    };
    const std::vector<Line> &all = lines(orientation);
    for (const double edge : edges) {
        const auto from =
            std::lower_bound(all.begin(), all.end(), edge - reach,
                             [](const Line &line, double least) { return line.at < least; });
        for (auto line = from; line != all.end() && line->at <= edge + reach; ++line)
            offer(edge, *line);
    }
    // A grid holds everywhere, and only the first edge: an odd width would make the others pull it
    // off again.
    if (!best && m_grid > 0 && !edges.empty())
        offer(edges.front(), {std::round(edges.front() / m_grid) * m_grid, SnapKind::grid});
    return best;
}

namespace {

/// Snaps one direction; returns the movement there.
double snapAlong(const SnapTargets &targets, Qt::Orientation lines,
                 const std::vector<double> &edges, double by, double reach, Snapped &result)
{
    std::vector<double> moved;
    moved.reserve(edges.size());
    for (const double edge : edges)
        moved.push_back(edge + by);
    const auto hit = targets.nearest(lines, moved, reach);
    if (!hit)
        return by;
    result.lines.push_back({lines, hit->line.at, hit->line.kind});
    return by + hit->by;
}

} // namespace

Snapped snapMove(const SnapTargets &targets, const QRectF &box, QPointF by, double reach)
{
    Snapped result;
    result.by.rx() = snapAlong(targets, Qt::Vertical, {box.left(), box.right(), box.center().x()},
                               by.x(), reach, result);
    result.by.ry() = snapAlong(targets, Qt::Horizontal, {box.top(), box.bottom(), box.center().y()},
                               by.y(), reach, result);
    return result;
}

Snapped snapResize(const SnapTargets &targets, const QRectF &box, Handle handle, QPointF by,
                   bool proportional, double reach)
{
    Snapped result{by, {}};
    const int across = horizontalSide(handle);
    const int down = verticalSide(handle);
    const bool leadsAcross = std::abs(by.x()) * box.height() >= std::abs(by.y()) * box.width();
    const bool bothSides = across != 0 && down != 0;
    if (across != 0 && !(proportional && bothSides && !leadsAcross))
        result.by.rx() = snapAlong(targets, Qt::Vertical, {across < 0 ? box.left() : box.right()},
                                   by.x(), reach, result);
    if (down != 0 && !(proportional && bothSides && leadsAcross))
        result.by.ry() = snapAlong(targets, Qt::Horizontal, {down < 0 ? box.top() : box.bottom()},
                                   by.y(), reach, result);
    return result;
}

Snapped snapPoint(const SnapTargets &targets, QPointF at, double reach)
{
    Snapped result;
    result.by.rx() = snapAlong(targets, Qt::Vertical, {0}, at.x(), reach, result);
    result.by.ry() = snapAlong(targets, Qt::Horizontal, {0}, at.y(), reach, result);
    return result;
}
