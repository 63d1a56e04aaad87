#pragma once

#include "labels/print/print_job.h"

/// A row whose label no scanner would read as printed.
struct ScanProblem
{
    std::size_t row = 0; ///< of the job
    QString reason;      ///< for the user
};

/// The narrowest bar a shop's scanner can be trusted to read, mm.
inline constexpr double kNarrowestModule = 0.20;

/// Looks through the rows to be printed before anything is: barcodes that are missing or cannot be
/// encoded, bars too narrow at the printer's resolution or too light. None when the layout has no
/// barcode elements. `dpi`: dots per inch, across and down.
std::vector<ScanProblem> findScanProblems(const PrintJob &job, QSizeF dpi);

/// What the user is asked before such labels are printed: how many rows, the first few by name.
QString scanQuestion(const PrintJob &job, const std::vector<ScanProblem> &problems);
