#pragma once

#include "labels/designer/design.h"

#include <ostream>

// Short ways to say a design in tests.

inline constexpr ElementKind kPicture = ElementKind::picture;
inline constexpr ElementKind kBars = ElementKind::barcode;
inline constexpr ElementKind kText = ElementKind::text;

inline TextElement textAt(const LabelBox &box, const QString &caption = QStringLiteral("metin"))
{
    TextElement text;
    text.box = box;
    text.font = {QStringLiteral("DejaVu Sans"), 8};
    text.alignment = QStringLiteral("1");
    text.caption = caption;
    return text;
}

inline BarcodeElement barsAt(const LabelBox &box)
{
    return {box, {QStringLiteral("DejaVu Sans"), 7}, 0, 0, 0, QStringLiteral("8690000000012")};
}

/// A design of texts in these boxes.
inline Design textsAt(const std::vector<LabelBox> &boxes)
{
    Design design;
    for (const LabelBox &box : boxes)
        design.layout.texts.push_back(textAt(box));
    return design;
}

inline std::ostream &operator<<(std::ostream &out, const LabelBox &box)
{
    return out << '{' << box.left << ", " << box.top << ", " << box.width << ", " << box.height
               << '}';
}

inline std::ostream &operator<<(std::ostream &out, const LabelRef &ref)
{
    return out << "?pbt"[static_cast<int>(ref.kind)] << ref.index;
}
