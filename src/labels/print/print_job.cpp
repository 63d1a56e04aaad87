#include "labels/print/print_job.h"

#include "common/amount.h"
#include "paper/millimetres.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFinestQuality = 4800; ///< dots per inch

QSizeF paperSize(const LabelLayout &layout)
{
    const QSizeF size(static_cast<double>(layoutLength(layout.paperWidth)),
                      static_cast<double>(layoutLength(layout.paperHeight)));
    const auto usable = [](double side) { return side > 0 && side <= kLongestPaper; };
    return usable(size.width()) && usable(size.height()) ? size : QSizeF();
}

} // namespace

qint64 PrintJob::labelCount() const
{
    qint64 count = 0;
    for (const LabelRow &row : rows)
        count += std::max(row.count, 0);
    return count;
}

qint64 PrintJob::placeAfter() const
{
    const qint64 places = grid.places();
    if (places == 0)
        return 1;
    const qint64 first = firstPlace <= places ? std::max<qint64>(firstPlace, 1) : 1;
    return (first - 1 + labelCount()) % places + 1;
}

PrintJob makeSheet(const LabelLayout &layout)
{
    PrintJob job;
    job.grid = {.left = layoutLength(layout.left),
                .top = layoutLength(layout.top),
                .stepX = layoutLength(layout.stepX),
                .stepY = layoutLength(layout.stepY),
                .across = layoutLength(layout.across),
                .down = layoutLength(layout.down)};
    job.paper = paperSize(layout);
    return job;
}

PrintJob makePrintJob(const LabelLayout &layout, std::vector<LabelRow> rows)
{
    PrintJob job = makeSheet(layout);
    job.pictures = layout.pictures;
    job.barcodes = layout.barcodes;
    job.texts = layout.texts;
    job.rows = std::move(rows);
    // Fixed-length columns of the ledger pad their texts; the length decides the symbology.
    for (LabelRow &row : job.rows)
        row.barcode = row.barcode.trimmed();
    return job;
}

PrinterSetup printerSetup(const LabelLayout &layout, const QString &document)
{
    return {.document = document,
            .portrait = layout.orientation == u"1"_s,
            .paperCode = amount::integer(layout.paperCode, 1, 0xFFFF),
            .quality = amount::integer(layout.quality, -4, kFinestQuality),
            .paper = paperSize(layout)};
}
