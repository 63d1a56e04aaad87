#include "labels/designer/forms/measure_dialog.h"

#include "ui_measure_dialog.h"

MeasureDialog::MeasureDialog(const MeasuredSheet &sheet, QSizeF paper, QWidget *parent)
    : QDialog(parent), m_paper(paper), m_ui(std::make_unique<Ui::MeasureDialog>())
{
    m_ui->setupUi(this);
    show(sheet);
    m_ui->left->setFocus();
    connect(m_ui->take, &QPushButton::clicked, this, &MeasureDialog::take);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

MeasureDialog::~MeasureDialog() = default;

void MeasureDialog::show(const MeasuredSheet &sheet)
{
    m_ui->left->showLength(sheet.left);
    m_ui->top->showLength(sheet.top);
    m_ui->across->showLength(sheet.width);
    m_ui->down->showLength(sheet.height);
    m_ui->gapX->showLength(sheet.gapX);
    m_ui->gapY->showLength(sheet.gapY);
    m_ui->columns->setValue(sheet.across);
    m_ui->rows->setValue(sheet.down);
}

MeasuredSheet MeasureDialog::shown() const
{
    return {m_ui->left->value(), m_ui->top->value(),  m_ui->across->value(),  m_ui->down->value(),
            m_ui->gapX->value(), m_ui->gapY->value(), m_ui->columns->value(), m_ui->rows->value()};
}

void MeasureDialog::take()
{
    const MeasuredSheet sheet = shown();
    const QString problem = measureProblem(sheet, m_paper);
    m_ui->problem->setText(problem);
    if (!problem.isEmpty())
        return;
    Q_EMIT measured(sheet);
    accept();
}
