#pragma once

#include "paper/draw_commands.h"

/// How a printer is made to hit the paper: what is meant for a place is drawn at that place times
/// `scale`, moved by `x` and `y` (mm). The sizes of type and bars stay, for they stand on whole
/// dots.
struct Calibration
{
    double x = 0;
    double y = 0;
    double scale = 1;

    bool isNone() const { return *this == Calibration{}; }
    QPointF place(QPointF mm) const { return mm * scale + QPointF(x, y); }

    friend bool operator==(const Calibration &, const Calibration &) = default;
};

/// A command as a calibrated printer draws it; its zero point is moved with the origin.
DrawCommand scaled(DrawCommand command, double scale);
