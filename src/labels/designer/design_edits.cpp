#include "labels/designer/design_edits.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace edits {

namespace {

constexpr double kBeside = 2; ///< mm that a copy stands off its original
constexpr std::array kKinds = {ElementKind::picture, ElementKind::barcode, ElementKind::text};

void place(LabelBox &box, QPointF at)
{
    box.left = tenth(std::clamp(at.x(), -kFarthest, kFarthest));
    box.top = tenth(std::clamp(at.y(), -kFarthest, kFarthest));
}

void shift(LabelBox &box, QPointF by)
{
    place(box, rectangle(box).topLeft() + by);
}

double edgeOf(const QRectF &box, Edge edge)
{
    switch (edge) {
    case Edge::left:
        return box.left();
    case Edge::centreX:
        return box.center().x();
    case Edge::right:
        return box.right();
    case Edge::top:
        return box.top();
    case Edge::centreY:
        return box.center().y();
    default:
        return box.bottom();
    }
}

bool isAcross(Edge edge)
{
    return edge == Edge::left || edge == Edge::centreX || edge == Edge::right;
}

/// Half the difference of two lengths in whole tenths, towards zero: turning on undoes it exactly.
double halfDifference(float a, float b)
{
    const double tenths = std::round((static_cast<double>(a) - static_cast<double>(b)) * 10);
    return std::trunc(tenths / 2) / 10;
}

void turnOnce(TextElement &text)
{
    LabelBox &box = text.box;
    const double half = halfDifference(box.width, box.height);
    std::swap(box.width, box.height);
    shift(box, {half, -half});
    text.angle = std::fmod(std::fmod(text.angle + 90, 360) + 360, 360);
}

template <typename Layout, typename Visitor>
void visitKind(Layout &layout, ElementKind kind, Visitor visit)
{
    switch (kind) {
    case ElementKind::picture:
        visit(layout.pictures);
        break;
    case ElementKind::barcode:
        visit(layout.barcodes);
        break;
    case ElementKind::text:
        visit(layout.texts);
        break;
    }
}

/// Reorders one kind: `order[i]` is the former place of the element that is now the i-th; places
/// that are missing from it are erased. Locks go with their elements.
template <typename Element>
void permute(std::vector<Element> &elements, const std::vector<std::size_t> &order)
{
    std::vector<Element> result;
    result.reserve(order.size());
    for (const std::size_t former : order)
        result.push_back(std::move(elements[former]));
    elements = std::move(result);
}

RefSet following(const RefSet &refs, ElementKind kind, const std::vector<std::size_t> &order)
{
    RefSet result = refs.filtered([kind](LabelRef ref) { return ref.kind != kind; });
    for (std::size_t i = 0; i < order.size(); ++i)
        if (refs.contains({kind, order[i]}))
            result.insert({kind, i});
    return result;
}

std::vector<std::size_t> newOrder(const RefSet &refs, ElementKind kind, std::size_t count,
                                  Order order)
{
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});
    const auto chosen = [&](std::size_t place) { return refs.contains({kind, place}); };
    const auto others = [&](std::size_t place) { return !chosen(place); };
    if (order == Order::front)
        std::stable_partition(places.begin(), places.end(), others);
    if (order == Order::back)
        std::stable_partition(places.begin(), places.end(), chosen);
    if (order == Order::forward)
        for (std::size_t i = count; i-- > 1;)
            if (chosen(places[i - 1]) && others(places[i]))
                std::swap(places[i - 1], places[i]);
    if (order == Order::backward)
        for (std::size_t i = 1; i < count; ++i)
            if (chosen(places[i]) && others(places[i - 1]))
                std::swap(places[i - 1], places[i]);
    return places;
}

template <typename Element>
bool sharesPlace(const std::vector<Element> &present, const std::vector<Element> &added, QPointF by)
{
    const auto moved = [by](const Element &element) {
        LabelBox box = element.box;
        shift(box, by);
        return box;
    };
    return std::any_of(added.begin(), added.end(), [&](const Element &element) {
        const LabelBox box = moved(element);
        return std::any_of(present.begin(), present.end(),
                           [&](const Element &other) { return other.box == box; });
    });
}

} // namespace

RefSet unlocked(const Design &design, const RefSet &refs)
{
    return refs.filtered([&](LabelRef ref) { return !design.locked.contains(ref); });
}

QRectF bounds(const LabelLayout &layout, const RefSet &refs)
{
    if (refs.isEmpty())
        return {};
    QRectF first = rectangle(boxOf(layout, refs.front()));
    QPointF low = first.topLeft();
    QPointF high = first.bottomRight();
    for (const LabelRef ref : refs) {
        const QRectF box = rectangle(boxOf(layout, ref));
        low = {std::min(low.x(), box.left()), std::min(low.y(), box.top())};
        high = {std::max(high.x(), box.right()), std::max(high.y(), box.bottom())};
    }
    return {low, high};
}

void move(Design &design, const RefSet &refs, QPointF by)
{
    for (const LabelRef ref : unlocked(design, refs))
        shift(boxOf(design.layout, ref), by);
}

void stretch(Design &design, const RefSet &refs, const QRectF &from, const QRectF &to)
{
    for (const LabelRef ref : unlocked(design, refs)) {
        LabelBox &box = boxOf(design.layout, ref);
        box = labelBox(stretched(rectangle(box), from, to));
    }
}

void grow(Design &design, const RefSet &refs, QPointF by)
{
    for (const LabelRef ref : unlocked(design, refs)) {
        LabelBox &box = boxOf(design.layout, ref);
        box = labelBox(resized(rectangle(box), Handle::bottomRight, by, false));
    }
}

void turn(Design &design, const RefSet &refs, int quarters)
{
    for (const LabelRef ref : unlocked(design, refs))
        if (ref.kind == ElementKind::text)
            for (int i = 0; i < (quarters % 4 + 4) % 4; ++i)
                turnOnce(design.layout.texts[ref.index]);
}

void align(Design &design, const RefSet &refs, Edge edge, const QRectF &frame)
{
    for (const LabelRef ref : unlocked(design, refs)) {
        LabelBox &box = boxOf(design.layout, ref);
        const double by = edgeOf(frame, edge) - edgeOf(rectangle(box), edge);
        shift(box, isAcross(edge) ? QPointF(by, 0) : QPointF(0, by));
    }
}

void distribute(Design &design, const RefSet &refs, Qt::Orientation along)
{
    const bool across = along == Qt::Horizontal;
    const auto start = [&](const QRectF &box) { return across ? box.left() : box.top(); };
    const auto length = [&](const QRectF &box) { return across ? box.width() : box.height(); };
    const auto boxAt = [&](LabelRef ref) { return rectangle(boxOf(design.layout, ref)); };

    std::vector<LabelRef> row(refs.begin(), refs.end());
    if (row.size() < 3)
        return;
    std::stable_sort(row.begin(), row.end(), [&](LabelRef a, LabelRef b) {
        return start(boxAt(a)) + length(boxAt(a)) / 2 < start(boxAt(b)) + length(boxAt(b)) / 2;
    });
    double taken = 0;
    for (const LabelRef ref : row)
        taken += length(boxAt(ref));
    const QRectF last = boxAt(row.back());
    const double from = start(boxAt(row.front()));
    const double gap =
        (start(last) + length(last) - from - taken) / static_cast<double>(row.size() - 1);

    double at = from;
    for (const LabelRef ref : row) {
        LabelBox &box = boxOf(design.layout, ref);
        const double by = at - start(rectangle(box));
        at += length(rectangle(box)) + gap;
        if (!design.locked.contains(ref))
            shift(box, across ? QPointF(by, 0) : QPointF(0, by));
    }
}

void sameSize(Design &design, const RefSet &refs, LabelRef model, Qt::Orientation side)
{
    const LabelBox wanted = boxOf(design.layout, model);
    for (const LabelRef ref : unlocked(design, refs)) {
        LabelBox &box = boxOf(design.layout, ref);
        (side == Qt::Horizontal ? box.width : box.height) =
            side == Qt::Horizontal ? wanted.width : wanted.height;
    }
}

RefSet reorder(Design &design, const RefSet &refs, Order order)
{
    const RefSet chosen = unlocked(design, refs);
    RefSet result = refs;
    for (const ElementKind kind : kKinds)
        visitKind(design.layout, kind, [&](auto &elements) {
            const auto places = newOrder(chosen, kind, elements.size(), order);
            permute(elements, places);
            design.locked = following(design.locked, kind, places);
            result = following(result, kind, places);
        });
    return result;
}

void setLocked(Design &design, const RefSet &refs, bool locked)
{
    for (const LabelRef ref : refs)
        locked ? design.locked.insert(ref) : design.locked.remove(ref);
}

void erase(Design &design, const RefSet &refs)
{
    const RefSet gone = unlocked(design, refs);
    for (const ElementKind kind : kKinds)
        visitKind(design.layout, kind, [&](auto &elements) {
            std::vector<std::size_t> kept;
            for (std::size_t i = 0; i < elements.size(); ++i)
                if (!gone.contains({kind, i}))
                    kept.push_back(i);
            permute(elements, kept);
            design.locked = following(design.locked, kind, kept);
        });
}

LabelLayout copied(const LabelLayout &layout, const RefSet &refs)
{
    LabelLayout result;
    for (const LabelRef ref : refs)
        visitKind(layout, ref.kind, [&](const auto &elements) {
            using Elements = std::decay_t<decltype(elements)>;
            visitKind(result, ref.kind, [&](auto &taken) {
                if constexpr (std::is_same_v<Elements, std::decay_t<decltype(taken)>>)
                    taken.push_back(elements[ref.index]);
            });
        });
    return result;
}

bool hasRoom(const LabelLayout &layout, const LabelLayout &elements)
{
    return std::all_of(kKinds.begin(), kKinds.end(), [&](ElementKind kind) {
        return elementCount(layout, kind) + elementCount(elements, kind) <=
               static_cast<std::size_t>(kMostElements);
    });
}

RefSet add(Design &design, const LabelLayout &elements)
{
    RefSet added;
    const auto append = [&](ElementKind kind, auto &to, const auto &from) {
        for (const auto &element : from) {
            added.insert({kind, to.size()});
            to.push_back(element);
        }
    };
    append(ElementKind::picture, design.layout.pictures, elements.pictures);
    append(ElementKind::barcode, design.layout.barcodes, elements.barcodes);
    append(ElementKind::text, design.layout.texts, elements.texts);
    return added;
}

LabelLayout besideOthers(const LabelLayout &layout, const LabelLayout &elements, QSizeF label)
{
    LabelLayout result = elements;
    const RefSet all = RefSet::all(result);
    const QRectF around = bounds(result, all);
    const QRectF room(QPointF(), label);
    const bool onLabel = around.left() < room.right() && around.right() > room.left() &&
                         around.top() < room.bottom() && around.bottom() > room.top();
    QPointF by = onLabel ? QPointF() : room.topLeft() - around.topLeft();
    while (sharesPlace(layout.pictures, result.pictures, by) ||
           sharesPlace(layout.barcodes, result.barcodes, by) ||
           sharesPlace(layout.texts, result.texts, by))
        by += QPointF(kBeside, kBeside);
    if (!by.isNull())
        for (const LabelRef ref : all)
            shift(boxOf(result, ref), by);
    return result;
}

} // namespace edits
