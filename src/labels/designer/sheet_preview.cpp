#include "labels/designer/sheet_preview.h"

#include "labels/print/label_builder.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kMostLabels = 2000;  ///< on a sheet; grids without an end stop here
constexpr double kMostDots = 6000; ///< along a side of an image

} // namespace

void paintFirstSheet(QPainter &painter, const PrintJob &job, QSizeF dpi, const QString &pictures)
{
    const DeviceFonts fonts(dpi);
    PictureStore store(pictures);
    CommandPainter ink(painter, fonts, store);
    LabelBuilder builder(job, fonts);
    GridWalk walk(job.grid);
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
        ink.paint(commands, {static_cast<double>(place.x), static_cast<double>(place.y)});
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
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(
        toDots({printer.unprintable.left(), printer.unprintable.top()}, {shown, shown}));
    painter.scale(shown / printer.dpi.width(), shown / printer.dpi.height());
    paintFirstSheet(painter, job, printer.dpi, pictures);
    return image;
}
