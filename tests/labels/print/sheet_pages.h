#pragma once

#include "labels/print/label_builder.h"
#include "labels/print/sheet_grid.h"
#include "paper/command_painter.h"
#include "paper/millimetres.h"

#include <QImage>
#include <QPainter>

#include <zbar.h>
inline QRectF toDots(const QRectF &mm, double dpi)
{
    const double perMm = dpi / kMmPerInch;
    return {mm.x() * perMm, mm.y() * perMm, mm.width() * perMm, mm.height() * perMm};
}

/// Paints a job's pages as images at a resolution (dots per inch).
inline std::vector<QImage> paintPages(const PrintJob &job, double dpi, const QString &pictures = {})
{
    const DeviceFonts fonts({dpi, dpi});
    PictureStore store(pictures);
    LabelBuilder builder(job, fonts);
    GridWalk walk(job.grid);
    const QSize size = toDots({QPointF(), job.paper}, dpi).size().toSize();

    std::vector<QImage> pages;
    for (const LabelRow &row : job.rows) {
        const BuiltLabel built = builder.label(row);
        for (int copy = 0; copy < row.count; ++copy) {
            const GridWalk::Place place = walk.next();
            if (place.newPage || pages.empty()) {
                pages.emplace_back(size, QImage::Format_Grayscale8);
                pages.back().fill(Qt::white);
            }
            QPainter painter(&pages.back());
            CommandPainter(painter, fonts, store)
                .paint(built.commands,
                       {static_cast<double>(place.x), static_cast<double>(place.y)});
        }
    }
    return pages;
}

/// Reads every EAN barcode of a page, as a scanner would.
inline QStringList readBarcodes(const QImage &page)
{
    const QImage grey = page.convertToFormat(QImage::Format_Grayscale8);
    QByteArray bytes;
    for (int y = 0; y < grey.height(); ++y)
        bytes.append(reinterpret_cast<const char *>(grey.constScanLine(y)), grey.width());

    zbar::Image image(static_cast<unsigned>(grey.width()), static_cast<unsigned>(grey.height()),
                      "Y800", bytes.constData(), static_cast<unsigned long>(bytes.size()));
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(zbar::ZBAR_EAN13, zbar::ZBAR_CFG_ENABLE, 1);
    scanner.set_config(zbar::ZBAR_EAN8, zbar::ZBAR_CFG_ENABLE, 1);
    scanner.scan(image);

    QStringList found;
    for (auto symbol = image.symbol_begin(); symbol != image.symbol_end(); ++symbol)
        found += QString::fromStdString(symbol->get_data());
    return found;
}
