#pragma once

#include "labels/print/label_row.h"

#include <vector>

/// Which of the queue's rows are to be printed; the numbers are those the print dialog goes by.
enum class PrintMode
{
    all = 1,
    selected = 2
};

/// Labels that somebody wants printed. It goes as one value from the desk to the print run, by way
/// of the print dialog where a layout must be chosen first.
struct PrintRequest
{
    PrintMode mode = PrintMode::all;
    std::vector<LabelRow> rows; ///< in printing order
    qint64 firstPlace = 1;      ///< of the first sheet; the places before it are used already
    bool chooseLayout = false;  ///< ask for the layout even where there is a default
};
