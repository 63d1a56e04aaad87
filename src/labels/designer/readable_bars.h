#pragma once

#include "labels/layout/label_layout.h"

#include <QSizeF>

/// The box (mm) in which an element's barcode can be read at a resolution (dots per inch): never
/// smaller than it was, unless the label (mm) is too low for bars of that width, and on the label
/// where it can be. `number`: what the barcode shows; one that cannot be drawn counts as 13 digits.
LabelBox readableBox(const BarcodeElement &element, const QString &number, double dpi,
                     QSizeF label);

/// The smallest sizes that can be read on the usual printers, as a line for the user.
QString smallestSizes(const BarcodeElement &element, const QString &number);
