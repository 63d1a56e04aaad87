#pragma once

#include "common/printers.h"
#include "labels/layout/label_layout.h"
#include "labels/print/label_row.h"
#include "labels/print/sheet_grid.h"

/// One label run as plain values: what is printed, where, and for whom. Knows no printer, no files
/// and no dots; lengths are millimetres.
struct PrintJob
{
    SheetGrid grid;
    QSizeF paper; ///< as the designer's page lies; empty when the layout names none
    std::vector<PictureElement> pictures;
    std::vector<BarcodeElement> barcodes;
    std::vector<TextElement> texts;
    std::vector<LabelRow> rows;
    qint64 firstPlace = 1; ///< of the first sheet, from 1

    /// Labels of all rows together.
    qint64 labelCount() const;

    /// The place after the last label, on a sheet that is partly used then; 1 after a full one.
    qint64 placeAfter() const;
};

/// The sheet alone, without elements and rows. Unreadable numbers count as 0.
PrintJob makeSheet(const LabelLayout &layout);

/// Reads all of a layout.
PrintJob makePrintJob(const LabelLayout &layout, std::vector<LabelRow> rows);

/// What the printer is told of this layout. `document`: name of the print job.
PrinterSetup printerSetup(const LabelLayout &layout, const QString &document);
