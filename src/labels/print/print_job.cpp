#include "labels/print/print_job.h"

#include "common/amount.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLongestPaper = 5000; ///< mm; the longest page a PDF can have
constexpr int kFinestQuality = 4800;   ///< dots per inch

/// A whole number of the layout inside its range, else 0.
int wholeNumber(const QString &text, int least, int most)
{
    const double value = amount::parse(text).value_or(0);
    const bool whole = std::floor(value) == value;
    return whole && value >= least && value <= most ? static_cast<int>(value) : 0;
}

QSizeF paperSize(const LabelLayout &layout)
{
    const QSizeF size(static_cast<double>(amount::single(layout.paperWidth)),
                      static_cast<double>(amount::single(layout.paperHeight)));
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

PrintJob makePrintJob(const LabelLayout &layout, std::vector<LabelRow> rows)
{
    PrintJob job;
    job.grid = {.left = amount::single(layout.left),
                .top = amount::single(layout.top),
                .stepX = amount::single(layout.stepX),
                .stepY = amount::single(layout.stepY),
                .across = amount::single(layout.across),
                .down = amount::single(layout.down)};
    job.paper = paperSize(layout);
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
            .paperCode = wholeNumber(layout.paperCode, 1, 0xFFFF),
            .quality = wholeNumber(layout.quality, -4, kFinestQuality),
            .paper = paperSize(layout)};
}
