#include "labels/print/label_preview.h"

#include "labels/print/label_builder.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFinest = 300;        ///< dots per inch
constexpr double kMostDots = 2000;     ///< along a side; keeps whole-sheet labels cheap
constexpr double kPreviewDigits = 12;  ///< points, of the digits beneath bars shown alone
constexpr double kLargestLabel = 1000; ///< mm; elements beyond are not shown

double side(float step, float count, double paper, float margin)
{
    if (step > 0 && (count > 1 || paper <= 0))
        return static_cast<double>(step);
    return std::max(paper - static_cast<double>(margin), 0.0);
}

} // namespace

QSizeF labelRoom(const PrintJob &job)
{
    return {side(job.grid.stepX, job.grid.across, job.paper.width(), job.grid.left),
            side(job.grid.stepY, job.grid.down, job.paper.height(), job.grid.top)};
}

QSizeF labelSize(const PrintJob &job)
{
    QSizeF size = labelRoom(job);
    const auto include = [&](const LabelBox &box) {
        const QSizeF end(static_cast<double>(box.left + box.width),
                         static_cast<double>(box.top + box.height));
        if (end.width() <= kLargestLabel && end.height() <= kLargestLabel)
            size = size.expandedTo(end);
    };
    for (const auto &picture : job.pictures)
        include(picture.box);
    for (const auto &barcode : job.barcodes)
        include(barcode.box);
    for (const auto &text : job.texts)
        include(text.box);
    return size.boundedTo({kLargestLabel, kLargestLabel});
}

QImage previewLabel(const PrintJob &job, const QString &pictures, QSize most)
{
    const QSizeF size = labelSize(job);
    if (job.rows.empty() || size.isEmpty() || most.isEmpty())
        return {};

    const double longest = std::max(size.width(), size.height());
    const double dpi = std::min(kFinest, kMostDots * kMmPerInch / longest);
    const QSizeF dots = size * dpi / kMmPerInch;
    QImage image(std::max(qRound(dots.width()), 1), std::max(qRound(dots.height()), 1),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        const DeviceFonts fonts({dpi, dpi});
        PictureStore store(pictures);
        QPainter painter(&image);
        CommandPainter(painter, fonts, store)
            .paint(LabelBuilder(job, fonts).label(job.rows.front()).commands);
    }
    return image.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage previewBars(ean::Symbology symbology, const QString &number, QSize size, double dpi)
{
    const auto symbol = ean::encode(symbology, number);
    if (!symbol || size.isEmpty())
        return {};
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    const DeviceFonts fonts({dpi, dpi});
    PictureStore store({});
    QPainter painter(&image);
    const QRectF box(QPointF(), QSizeF(size) * kMmPerInch / dpi);
    const DrawCommand bars{
        BarsCommand{box, *symbol, {.name = {}, .size = kPreviewDigits}, 0xFF000000}, {}};
    CommandPainter(painter, fonts, store).paint({&bars, 1});
    painter.end();
    return image;
}
