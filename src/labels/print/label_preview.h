#pragma once

#include "labels/print/ean.h"
#include "labels/print/print_job.h"

#include <QImage>

/// The job's first label as the printer would show it, drawn by the print engine and no larger than
/// `most` (pixels). `pictures`: folder of the pictures. Empty when the job has no rows or the label
/// no size.
QImage previewLabel(const PrintJob &job, const QString &pictures, QSize most);

/// Size of one label (mm): from one label to the next, or to the paper's end where there is only
/// one, and never less than its elements need.
QSizeF labelSize(const PrintJob &job);

/// The same without regard to its elements; empty when the layout does not say.
QSizeF labelRoom(const PrintJob &job);

/// A complete number as the print engine draws its bars, `size` pixels on a screen of `dpi` dots
/// per inch. Empty when the symbology refuses the number.
QImage previewBars(ean::Symbology symbology, const QString &number, QSize size, double dpi);
