#include "labels/designer/label_size.h"

#include "labels/print/label_preview.h"

#include <QMarginsF>

#include <algorithm>

namespace {

constexpr QSizeF kUnknown(70, 37); ///< mm; a label of the usual sheet of 24
constexpr double kLargest = 1000;  ///< mm
constexpr std::size_t kMostCells = 2000;

double usable(double length, double otherwise)
{
    return length > 0 && length <= kLargest ? length : otherwise;
}

} // namespace

QSizeF sizeOfLabel(const Design &design)
{
    const PrintJob job = makeSheet(design.layout);
    const QSizeF cell = labelRoom(job);
    const QSizeF &measured = design.label;
    return {usable(measured.width(), usable(cell.width(), kUnknown.width())),
            usable(measured.height(), usable(cell.height(), kUnknown.height()))};
}

SheetAround sheetAround(const Design &design, const QMarginsF &unprintable)
{
    const PrintJob job = makeSheet(design.layout);
    const QSizeF label = sizeOfLabel(design);
    SheetAround sheet;
    const auto [left, top] =
        std::pair(static_cast<double>(job.grid.left), static_cast<double>(job.grid.top));
    if (!job.paper.isEmpty()) {
        const QPointF corner(-left - unprintable.left(), -top - unprintable.top());
        sheet.paper = QRectF(corner, job.paper);
        sheet.printable = sheet.paper.marginsRemoved(unprintable);
    }
    GridWalk walk(job.grid);
    while (sheet.cells.size() < kMostCells && job.grid.isCountable()) {
        const GridWalk::Place place = walk.next();
        if (place.newPage)
            break;
        sheet.cells.emplace_back(
            QPointF(static_cast<double>(place.x) - left, static_cast<double>(place.y) - top),
            label);
    }
    if (sheet.cells.empty())
        sheet.cells.emplace_back(QPointF(), label);
    return sheet;
}
