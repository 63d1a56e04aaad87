#include "labels/print/forms/print_problems.h"

#include "ui_print_problems.h"

#include <QHeaderView>
#include <QPushButton>

using namespace Qt::StringLiterals;

PrintProblems::PrintProblems(PrintRun &run, std::vector<PrintProblem> problems, QWidget *parent)
    : QDialog(parent), m_run(run), m_problems(std::move(problems)),
      m_ui(std::make_unique<Ui::PrintProblems>())
{
    m_ui->setupUi(this);
    m_ui->baslik->setText(m_problems.heading());
    m_ui->liste->setModel(&m_problems);
    m_ui->liste->header()->setSectionResizeMode(PrintProblemList::problem, QHeaderView::Stretch);
    m_ui->liste->setColumnWidth(PrintProblemList::stock, width() * 2 / 5);
    m_ui->liste->setCurrentIndex(m_problems.index(0, 0));
    m_ui->unut->setVisible(m_problems.hasLayoutProblems());
    m_ui->liste->setFocus();

    connect(m_ui->liste->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PrintProblems::showChoice);
    connect(m_ui->liste, &QTreeView::doubleClicked, this, &PrintProblems::goToRow);
    connect(m_ui->satir, &QPushButton::clicked, this, &PrintProblems::goToRow);
    connect(m_ui->yazdir, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &QDialog::reject);
    connect(&run, &PrintRun::finished, this, [this] {
        m_answered = true; // stopped from elsewhere
        close();
    });
    showChoice();
}

PrintProblems::~PrintProblems() = default;

int PrintProblems::chosenQueueRow() const
{
    const QModelIndex chosen = m_ui->liste->currentIndex();
    return chosen.isValid() ? m_problems.at(chosen.row()).queueRow : -1;
}

void PrintProblems::showChoice()
{
    m_ui->satir->setEnabled(chosenQueueRow() >= 0);
}

void PrintProblems::goToRow()
{
    const int row = chosenQueueRow();
    if (row < 0)
        return;
    reject();
    Q_EMIT rowWanted(row);
}

void PrintProblems::done(int result)
{
    if (!std::exchange(m_answered, true)) {
        // Printing handles events: it must not begin inside this form's own handler.
        const bool print = result == Accepted;
        const bool forget = m_ui->unut->isChecked();
        QMetaObject::invokeMethod(
            &m_run, [&run = m_run, print, forget] { run.answer(print, print && forget); },
            Qt::QueuedConnection);
    }
    QDialog::done(result);
}
