#pragma once

#include "labels/print/print_run.h"

#include <QDialog>

namespace Ui {
class PrintProblems;
}

/// Lists what would be printed other than the user thinks, and asks whether to print all the same.
/// Whatever way it closes, the run gets its answer, after the key or click that gave it.
class PrintProblems final : public QDialog
{
    Q_OBJECT

public:
    /// `run` is kept by reference; it waits for the answer.
    PrintProblems(PrintRun &run, std::vector<PrintProblem> problems, QWidget *parent = nullptr);
    ~PrintProblems() override;

    void done(int result) override;

Q_SIGNALS:
    /// The user wants to see to a row of the queue; nothing is printed.
    void rowWanted(int queueRow);

private:
    void showChoice();
    void goToRow();
    int chosenQueueRow() const;

    PrintRun &m_run;
    PrintProblemList m_problems;
    bool m_answered = false;
    std::unique_ptr<Ui::PrintProblems> m_ui;
};
