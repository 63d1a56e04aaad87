#pragma once

#include "labels/print/print_run.h"

#include <QDialog>

namespace Ui {
class PrintProgress;
}

/// Shows a long run: label, sheet, and a way to stop. Short runs never show it. It blocks the other
/// windows, so that the queue and the layouts stay as they are.
class PrintProgress final : public QDialog
{
    Q_OBJECT

public:
    /// `run` is kept by reference.
    explicit PrintProgress(PrintRun &run, QWidget *parent = nullptr);
    ~PrintProgress() override;

    /// Escape and the window's close button stop the run; the window goes when it has ended.
    void reject() override;

private:
    void showProgress(qint64 label, qint64 labels, int page);

    PrintRun &m_run;
    std::unique_ptr<Ui::PrintProgress> m_ui;
};
