#pragma once

#include "labels/layout/label_layout.h"

#include <compare>
#include <cstddef>
#include <utility>

/// The three kinds of elements, in the order in which they are painted.
enum class ElementKind
{
    picture = 1,
    barcode = 2,
    text = 3
};

/// Names one element of a layout: its kind and its place among its kind, from 0.
struct LabelRef
{
    ElementKind kind = ElementKind::picture;
    std::size_t index = 0;

    friend auto operator<=>(const LabelRef &, const LabelRef &) = default; // NOLINT: taken for a 0
};

/// Calls `visit` with the element itself. The layout must have it.
template <typename Layout, typename Visitor>
decltype(auto) visitElement(Layout &layout, LabelRef ref, Visitor &&visit)
{
    switch (ref.kind) {
    case ElementKind::picture:
        return visit(layout.pictures[ref.index]);
    case ElementKind::barcode:
        return visit(layout.barcodes[ref.index]);
    default:
        return visit(layout.texts[ref.index]);
    }
}

inline std::size_t elementCount(const LabelLayout &layout, ElementKind kind)
{
    switch (kind) {
    case ElementKind::picture:
        return layout.pictures.size();
    case ElementKind::barcode:
        return layout.barcodes.size();
    default:
        return layout.texts.size();
    }
}

inline bool hasElement(const LabelLayout &layout, LabelRef ref)
{
    return ref.index < elementCount(layout, ref.kind);
}

inline LabelBox &boxOf(LabelLayout &layout, LabelRef ref)
{
    return visitElement(layout, ref, [](auto &element) -> LabelBox & { return element.box; });
}

inline const LabelBox &boxOf(const LabelLayout &layout, LabelRef ref)
{
    return visitElement(layout, ref,
                        [](const auto &element) -> const LabelBox & { return element.box; });
}
