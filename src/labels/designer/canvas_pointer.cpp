#include "labels/designer/canvas_pointer.h"

#include "labels/designer/design_edits.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kSmallFactor = 4;   ///< times the reach; smaller frames are grasped outside only
constexpr double kGuideFactor = 0.6; ///< of the reach: guides are thin and lie over elements

std::vector<float> &guidesOf(Guides &guides, Qt::Orientation orientation)
{
    return orientation == Qt::Vertical ? guides.vertical : guides.horizontal;
}

double along(QPointF point, Qt::Orientation guide)
{
    return guide == Qt::Vertical ? point.x() : point.y();
}

/// Keeps the direction in which the mouse went farther.
QPointF straight(QPointF by)
{
    return std::abs(by.x()) >= std::abs(by.y()) ? QPointF(by.x(), 0) : QPointF(0, by.y());
}

QRectF spanned(QPointF a, QPointF b)
{
    return QRectF(a, b).normalized();
}

} // namespace

void CanvasPointer::setTool(Tool tool)
{
    cancel();
    m_tool = tool;
}

void CanvasPointer::begin(Drag drag, const PointerAt &at)
{
    m_drag = drag;
    m_dragging = false;
    m_pressed = at;
    m_now = at.mm;
    m_selectedBefore = m_document.selection();
    m_snapLines.clear();
}

void CanvasPointer::press(const PointerAt &at)
{
    cancel();
    m_drawn.reset();
    if (m_tool != Tool::pointer) {
        begin(Drag::draw, at);
        gatherTargets({});
        const QPointF start = at.free ? at.mm : snapPoint(m_targets, at.mm, at.reach).by;
        m_pressed.mm = start;
        m_newBox = QRectF(start, QSizeF());
        return;
    }
    if (!pressHandle(at) && !pressGuide(at))
        pressElement(at);
}

RefSet CanvasPointer::movable() const
{
    return edits::unlocked(m_document.design(), m_document.selection());
}

std::optional<Handle> CanvasPointer::handleUnder(const PointerAt &at) const
{
    const RefSet refs = movable();
    if (refs.isEmpty())
        return {};
    const QRectF frame = edits::bounds(m_document.layout(), refs);
    const bool small = std::min(frame.width(), frame.height()) < kSmallFactor * at.reach;
    if (small && frame.contains(at.mm))
        return {}; // else a small element could be resized but never moved
    return handleAt(frame, at.mm, at.reach);
}

bool CanvasPointer::pressHandle(const PointerAt &at)
{
    m_handle = handleUnder(at);
    if (!m_handle)
        return false;
    begin(Drag::resize, at);
    return true;
}

std::optional<CanvasPointer::GuideRef> CanvasPointer::guideUnder(const PointerAt &at) const
{
    if (!m_setting.guidesShown)
        return {};
    for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
        const Guides &guides = m_document.design().guides;
        const auto &lines = orientation == Qt::Vertical ? guides.vertical : guides.horizontal;
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (std::abs(static_cast<double>(lines[i]) - along(at.mm, orientation)) <=
                kGuideFactor * at.reach)
                return GuideRef{orientation, i};
    }
    return {};
}

bool CanvasPointer::pressGuide(const PointerAt &at)
{
    m_guide = guideUnder(at);
    if (!m_guide)
        return false;
    begin(Drag::guide, at);
    gatherTargets({}, false);
    return true;
}

void CanvasPointer::pressRuler(Qt::Orientation guide)
{
    cancel();
    m_drawn.reset();
    begin(Drag::guide, {});
    auto &lines = guidesOf(m_document.edit().guides, guide);
    lines.push_back(0);
    m_guide = GuideRef{guide, lines.size() - 1};
    m_dragging = true;
    gatherTargets({}, false);
}

std::optional<LabelRef> CanvasPointer::elementAt(QPointF mm, double reach) const
{
    const LabelLayout &layout = m_document.layout();
    std::optional<LabelRef> near;
    for (const ElementKind kind : {ElementKind::text, ElementKind::barcode, ElementKind::picture})
        for (std::size_t i = elementCount(layout, kind); i-- > 0;) {
            const QRectF box = rectangle(boxOf(layout, {kind, i})).normalized();
            if (box.contains(mm))
                return LabelRef{kind, i};
            // Thin and empty boxes are met from beside, when nothing lies there itself.
            const QRectF wide = box.adjusted(-reach / 2, -reach / 2, reach / 2, reach / 2);
            if (!near && std::min(box.width(), box.height()) < reach && wide.contains(mm))
                near = LabelRef{kind, i};
        }
    return near;
}

void CanvasPointer::pressElement(const PointerAt &at)
{
    m_pressedElement = elementAt(at.mm, at.reach);
    const RefSet &selection = m_document.selection();
    const bool adding = at.extend || at.free;
    const auto onSelected = [&](LabelRef ref) {
        return rectangle(boxOf(m_document.layout(), ref)).contains(at.mm);
    };
    // What is selected can be dragged from beneath others.
    const bool grasped = !adding && std::any_of(selection.begin(), selection.end(), onSelected);
    begin(grasped || m_pressedElement ? Drag::move : Drag::band, at);
    if (grasped)
        return;
    RefSet refs = adding ? selection : RefSet();
    if (m_pressedElement && refs.contains(*m_pressedElement))
        refs.remove(*m_pressedElement);
    else if (m_pressedElement)
        refs.insert(*m_pressedElement);
    m_document.select(refs, m_pressedElement);
}

void CanvasPointer::startMoving()
{
    const RefSet moving = movable();
    m_frame = edits::bounds(m_document.layout(), moving);
    m_boxes.clear();
    for (const LabelRef ref : moving)
        m_boxes.emplace_back(ref, boxOf(m_document.layout(), ref));
    gatherTargets(moving);
}

void CanvasPointer::gatherTargets(const RefSet &moving, bool guides)
{
    SnapTargets::Wanted wanted = m_setting.snapping;
    wanted.guides = wanted.guides && guides && m_setting.guidesShown;
    m_targets = SnapTargets(m_document.design(), moving, m_setting.label, wanted);
}

void CanvasPointer::move(const PointerAt &at)
{
    m_now = at.mm;
    if (m_drag == Drag::nothing)
        return;
    if (!m_dragging) {
        const QPointF away = at.mm - m_pressed.mm;
        if (std::hypot(away.x(), away.y()) < at.reach / 2)
            return;
        m_dragging = true;
        if (m_drag == Drag::move || m_drag == Drag::resize)
            startMoving();
    }
    m_snapLines.clear();
    if (m_drag == Drag::move)
        dragMove(at);
    if (m_drag == Drag::resize)
        dragResize(at);
    if (m_drag == Drag::draw)
        dragDraw(at);
    if (m_drag == Drag::guide)
        dragGuide(at);
    if (m_drag == Drag::band)
        selectInBand();
}

void CanvasPointer::dragMove(const PointerAt &at)
{
    if (m_boxes.empty())
        return;
    QPointF by = at.mm - m_pressed.mm;
    if (at.extend)
        by = straight(by);
    if (!at.free) {
        Snapped snapped = snapMove(m_targets, m_frame, by, at.reach);
        const bool across = !at.extend || by.y() == 0;
        const bool down = !at.extend || by.x() == 0;
        by = {across ? snapped.by.x() : 0, down ? snapped.by.y() : 0};
        m_snapLines = std::move(snapped.lines);
    }
    const QPointF whole = QPointF(std::round(by.x() * 10), std::round(by.y() * 10)) / 10;
    Design &design = m_document.edit();
    for (const auto &[ref, box] : m_boxes) {
        LabelBox &moved = boxOf(design.layout, ref);
        moved.left = tenth(static_cast<double>(box.left) + whole.x());
        moved.top = tenth(static_cast<double>(box.top) + whole.y());
    }
}

void CanvasPointer::dragResize(const PointerAt &at)
{
    QPointF by = at.mm - m_pressed.mm;
    if (!at.free) {
        Snapped snapped = snapResize(m_targets, m_frame, *m_handle, by, at.extend, at.reach);
        by = snapped.by;
        m_snapLines = std::move(snapped.lines);
    }
    const QRectF to = resized(m_frame, *m_handle, by, at.extend);
    Design &design = m_document.edit();
    for (const auto &[ref, box] : m_boxes)
        boxOf(design.layout, ref) = labelBox(stretched(rectangle(box), m_frame, to));
}

void CanvasPointer::dragDraw(const PointerAt &at)
{
    QPointF end = at.mm;
    if (!at.free) {
        Snapped snapped = snapPoint(m_targets, end, at.reach);
        end = snapped.by;
        m_snapLines = std::move(snapped.lines);
    }
    if (at.extend) {
        const QPointF by = end - m_pressed.mm;
        const double side = std::max(std::abs(by.x()), std::abs(by.y()));
        end = m_pressed.mm + QPointF(std::copysign(side, by.x()), std::copysign(side, by.y()));
    }
    m_newBox = spanned(m_pressed.mm, end);
}

void CanvasPointer::dragGuide(const PointerAt &at)
{
    const bool vertical = m_guide->orientation == Qt::Vertical;
    QPointF place = at.mm;
    if (!at.free)
        place = snapPoint(m_targets, place, at.reach).by;
    auto &lines = guidesOf(m_document.edit().guides, m_guide->orientation);
    lines[m_guide->index] = tenth(vertical ? place.x() : place.y());
}

void CanvasPointer::selectInBand()
{
    const QRectF band = spanned(m_pressed.mm, m_now);
    RefSet refs = m_pressed.extend || m_pressed.free ? m_selectedBefore : RefSet();
    for (const LabelRef ref : RefSet::all(m_document.layout()))
        if (!m_document.design().locked.contains(ref) &&
            band.contains(rectangle(boxOf(m_document.layout(), ref)).normalized()))
            refs.insert(ref);
    m_document.select(refs);
}

bool CanvasPointer::release(const PointerAt &at)
{
    if (m_drag == Drag::nothing)
        return false;
    move(at);
    finish(at);
    const bool dragged = m_dragging;
    letGo();
    return dragged;
}

/// Nothing is dragged any more.
void CanvasPointer::letGo()
{
    m_drag = Drag::nothing;
    m_dragging = false;
    m_handle.reset();
    m_guide.reset();
    m_boxes.clear();
    m_snapLines.clear();
}

void CanvasPointer::finish(const PointerAt &at)
{
    switch (m_drag) {
    case Drag::move:
        if (m_dragging)
            m_document.commit(u"Taşıma"_s);
        else if (!at.extend && !at.free && m_pressedElement)
            m_document.select({*m_pressedElement}, m_pressedElement);
        break;
    case Drag::resize:
        m_document.commit(u"Boyutlandırma"_s);
        break;
    case Drag::guide:
        finishGuide(at);
        break;
    case Drag::draw:
        m_drawn = m_dragging ? m_newBox : QRectF(m_newBox.topLeft(), QSizeF());
        break;
    default:
        break;
    }
}

/// A guide that is dropped beside the label goes.
void CanvasPointer::finishGuide(const PointerAt &at)
{
    const double place = along(at.mm, m_guide->orientation);
    const double end =
        m_guide->orientation == Qt::Vertical ? m_setting.label.width() : m_setting.label.height();
    if (m_dragging && (place < -at.reach || place > end + at.reach)) {
        auto &lines = guidesOf(m_document.edit().guides, m_guide->orientation);
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(m_guide->index));
        m_document.commit(u"Kılavuz çizgisini kaldırma"_s);
        return;
    }
    m_document.commit(u"Kılavuz çizgisi"_s);
}

bool CanvasPointer::cancel()
{
    if (m_drag == Drag::nothing)
        return false;
    m_document.rollback();
    if (m_drag == Drag::band)
        m_document.select(m_selectedBefore);
    letGo();
    return true;
}

std::optional<QRectF> CanvasPointer::band() const
{
    return m_drag == Drag::band && m_dragging ? std::optional(spanned(m_pressed.mm, m_now))
                                              : std::nullopt;
}

std::optional<QRectF> CanvasPointer::newBox() const
{
    return m_drag == Drag::draw && m_dragging ? std::optional(m_newBox) : std::nullopt;
}

PointerShape CanvasPointer::shapeAt(const PointerAt &at) const
{
    if (m_tool != Tool::pointer)
        return PointerShape::cross;
    const auto handle = m_drag == Drag::resize ? m_handle : handleUnder(at);
    if (handle) {
        const int sides = horizontalSide(*handle) * verticalSide(*handle);
        if (sides != 0)
            return sides > 0 ? PointerShape::sizeFalling : PointerShape::sizeRising;
        return horizontalSide(*handle) != 0 ? PointerShape::sizeAcross : PointerShape::sizeDown;
    }
    const auto guide = m_drag == Drag::guide ? m_guide : guideUnder(at);
    if (guide)
        return guide->orientation == Qt::Vertical ? PointerShape::sizeAcross
                                                  : PointerShape::sizeDown;
    return elementAt(at.mm, at.reach) ? PointerShape::move : PointerShape::arrow;
}
