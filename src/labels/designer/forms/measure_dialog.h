#pragma once

#include "labels/designer/page_values.h"

#include <QDialog>

#include <memory>

namespace Ui {
class MeasureDialog;
}

/// Asks for what a ruler says of a sheet of labels.
class MeasureDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `sheet`: what the layout says now; `paper`: size of the sheet, mm.
    MeasureDialog(const MeasuredSheet &sheet, QSizeF paper, QWidget *parent = nullptr);
    ~MeasureDialog() override;

Q_SIGNALS:
    void measured(const MeasuredSheet &sheet);

private:
    void show(const MeasuredSheet &sheet);
    MeasuredSheet shown() const;
    void take();

    QSizeF m_paper;
    std::unique_ptr<Ui::MeasureDialog> m_ui;
};
