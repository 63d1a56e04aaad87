#pragma once

#include "labels/print/printer_setting.h"

#include <QDialog>

namespace Ui {
class PrinterCalibration;
}

/// Makes one printer hit the paper: a sheet to measure, what was measured, and what is applied.
class PrinterCalibration final : public QDialog
{
    Q_OBJECT

public:
    explicit PrinterCalibration(PrinterSetting setting, QWidget *parent = nullptr);
    ~PrinterCalibration() override;

private:
    void showSheet();
    void showCalibration();
    Calibration shown() const;

    PrinterSetting m_setting;
    std::unique_ptr<Ui::PrinterCalibration> m_ui;
};
