#pragma once

#include "labels/designer/ref_set.h"

#include <QSizeF>

#include <vector>

/// Lines drawn from the rulers to snap to, in mm from the label's upper left corner. They do not
/// print.
struct Guides
{
    std::vector<float> vertical;   ///< x of each
    std::vector<float> horizontal; ///< y of each

    friend bool operator==(const Guides &, const Guides &) = default;
};

/// What the designer works on: a layout, and what it remembers beside the layout's file, whose keys
/// other programs have settled.
struct Design
{
    LabelLayout layout;
    RefSet locked; ///< elements that are neither moved nor changed
    Guides guides;
    QSizeF label; ///< mm, of one label where there are gaps between labels; empty: a step of the
                  ///< sheet

    friend bool operator==(const Design &, const Design &) = default;
};
