#include "labels/designer/sheet_preview.h"

#include "labels/print/label_builder.h"
#include "labels/print/label_preview.h"
#include "paper/millimetres.h"
#include "paper/paged_canvas.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMostLabels = 2000;  ///< on a sheet; grids without an end stop here
constexpr double kMostDots = 6000; ///< along a side of an image

void paintUsedPlaces(QPainter &painter, const PrintJob &job, QSizeF dpi)
{
    if (job.firstPlace > job.grid.places())
        return;
    GridWalk walk(job.grid);
    const QSizeF label = labelRoom(job);
    for (qint64 place = 1; place < job.firstPlace && place <= kMostLabels; ++place) {
        const GridWalk::Place at = walk.next();
        const QPointF corner(static_cast<double>(at.x), static_cast<double>(at.y));
        painter.fillRect(QRectF(toDots(corner, dpi),
                                toDots(corner + QPointF(label.width(), label.height()), dpi)),
                         QColor(0xE0, 0xE4, 0xE4));
    }
}

} // namespace

void paintFirstSheet(QPainter &painter, const PrintJob &job, const PrinterSheet &printer,
                     const QString &pictures)
{
    const DeviceFonts fonts(printer.dpi);
    PictureStore store(pictures);
    CommandPainter ink(painter, fonts, store);
    // Bars thinner than a pixel are shown as grey, not left out; at full size every dot counts.
    painter.setRenderHint(QPainter::Antialiasing, painter.transform().isScaling());
    LabelBuilder builder(job, fonts);
    GridWalk walk(job.grid, job.firstPlace);
    std::vector<DrawCommand> commands;
    std::size_t row = 0;
    int copies = 0;
    for (int label = 0; label < kMostLabels && !job.rows.empty(); ++label) {
        const GridWalk::Place place = walk.next();
        if (place.newPage || (label > 0 && !job.grid.isCountable()))
            return;
        if (copies == 0) {
            commands = builder.label(job.rows[row]).commands;
            copies = std::max(job.rows[row].count, 1);
        }
        paintCalibrated(ink, commands, {static_cast<double>(place.x), static_cast<double>(place.y)},
                        printer.calibration);
        if (--copies == 0)
            row = std::min(row + 1, job.rows.size() - 1);
    }
}

QImage previewSheet(const PrintJob &job, const PrinterSheet &printer, const QString &pictures,
                    double dpi)
{
    if (job.paper.isEmpty())
        return {};
    const double longest = std::max(job.paper.width(), job.paper.height());
    const double shown = std::min(dpi, kMostDots * kMmPerInch / longest);
    const QPointF dots = toDots({job.paper.width(), job.paper.height()}, {shown, shown});
    QImage image(std::max(qRound(dots.x()), 1), std::max(qRound(dots.y()), 1),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QPointF corner(printer.unprintable.left(), printer.unprintable.top());
    painter.translate(toDots(corner, {shown, shown}).toPoint()); // printers count in whole dots
    painter.scale(shown / printer.dpi.width(), shown / printer.dpi.height());
    paintUsedPlaces(painter, job, printer.dpi);
    paintFirstSheet(painter, job, printer, pictures);
    return image;
}
