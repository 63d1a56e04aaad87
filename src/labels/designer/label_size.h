#pragma once

#include "labels/designer/design.h"

#include <QRectF>
#include <QSizeF>

#include <vector>

/// Size of one label (mm): as measured, or else a step of the sheet, or the paper where there is
/// only one. Never empty.
QSizeF sizeOfLabel(const Design &design);

/// The sheet around the first label, in mm from that label's upper left corner.
struct SheetAround
{
    QRectF paper;              ///< null when the layout names no paper
    QRectF printable;          ///< null when the layout names no paper
    std::vector<QRectF> cells; ///< of the labels, the first among them; no more than a screen shows
};

/// `unprintable`: mm that the printer leaves free at the left, upper, right and lower edge; labels
/// are counted from the corner of what it can print.
SheetAround sheetAround(const Design &design, const QMarginsF &unprintable);
