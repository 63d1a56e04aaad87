#pragma once

#include "common/program.h"
#include "labels/print/calibration_sheet.h"
#include "labels/print/print_job.h"
#include "labels/print/print_memory.h"

/// Makes one printer hit the paper: prints the sheet to measure, reckons with what was measured,
/// keeps the result.
class PrinterSetting
{
public:
    /// `layout`: whose printer and paper are set up.
    PrinterSetting(Program &program, const LabelLayout &layout);

    const QString &printer() const { return m_layout.printer; }
    const Calibration &calibration() const { return m_calibration; }
    const CalibrationSheet &sheet() const { return m_sheet; }

    void set(const Calibration &calibration) { m_calibration = calibration; }

    /// Prints the sheet with the calibration as it is. False when it was not printed (told).
    bool printSheet();

    /// Takes what was measured on the sheet printed last. False when no printer is as far off as
    /// that (told).
    bool measure(const SheetReading &reading);

    /// False when it could not be written (told).
    bool save();

private:
    std::unique_ptr<PrintDocument> open();

    Program &m_program;
    PrintMemory m_memory;
    LabelLayout m_layout;
    Calibration m_calibration;
    Calibration m_printed; ///< of the sheet printed last
    CalibrationSheet m_sheet;
    bool m_known = false; ///< the printer has said what it can print on
};
