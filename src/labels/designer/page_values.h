#pragma once

#include "labels/designer/design.h"

#include <QMarginsF>
#include <QStringList>

/// A sheet of labels as a ruler measures it, mm from the edge of the paper.
struct MeasuredSheet
{
    double left = 0; ///< from the paper's edge to the first label
    double top = 0;
    double width = 0; ///< of one label
    double height = 0;
    double gapX = 0; ///< between two labels
    double gapY = 0;
    int across = 1;
    int down = 1;

    friend bool operator==(const MeasuredSheet &, const MeasuredSheet &) = default;
};

/// Writes the six label values of a measured sheet, and the label's own size. `unprintable`: what
/// the printer leaves free at the paper's edges; labels are counted from the corner of the rest.
void takeMeasured(Design &design, const MeasuredSheet &sheet, const QMarginsF &unprintable);

/// The other way round; what cannot be read is 0.
MeasuredSheet measuredOf(const Design &design, const QMarginsF &unprintable);

/// Why the page cannot be printed on as its values stand, for the user; "" when it can.
QString pageProblem(const Design &design);
QString measureProblem(const MeasuredSheet &sheet, QSizeF paper);

/// The print qualities that are offered, by the codes of a layout file.
struct Quality
{
    int code;
    QString name;
};
const QList<Quality> &qualities();
