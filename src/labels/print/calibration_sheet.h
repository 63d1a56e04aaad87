#pragma once

#include "paper/calibration.h"

#include <optional>

/// A page that shows how a printer hits the paper: a ruler cross in each corner and one row to read
/// off.
struct CalibrationSheet
{
    double inset = 0;  ///< mm from the corner where the printer counts to the first cross
    QPointF unreached; ///< mm from the paper's edges to that corner
    double row = 0;    ///< mm, length of the row, as it should be
    std::vector<DrawCommand> commands;
};

/// `area`: what the printer can print on (mm); `unreached`: how far its corner lies from the
/// paper's.
CalibrationSheet calibrationSheet(QSizeF area, QPointF unreached = {});

/// What was read off a printed sheet with a ruler (mm).
struct SheetReading
{
    double left = 0; ///< from the paper's edge to the first cross
    double top = 0;
    double row = 0; ///< length of the row
};

/// The calibration with which the next sheet comes out as it should, given the one the measured
/// sheet was printed with. Nothing when no printer is as far off as that.
std::optional<Calibration> calibrated(const Calibration &printed, const CalibrationSheet &sheet,
                                      const SheetReading &reading);
