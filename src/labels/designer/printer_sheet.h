#pragma once

#include "paper/calibration.h"

#include <QMarginsF>
#include <QSizeF>

/// How a printer lays down a layout's sheet.
struct PrinterSheet
{
    QSizeF dpi{600, 600};  ///< dots per inch, across and down
    QMarginsF unprintable; ///< mm at the edges
    Calibration calibration;
    bool answered = false; ///< else the printer is away and taken for the usual one
};
