#include "labels/print/forms/print_progress.h"

#include "common/amount.h"
#include "ui_print_progress.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

PrintProgress::PrintProgress(PrintRun &run, QWidget *parent)
    : QDialog(parent), m_run(run), m_ui(std::make_unique<Ui::PrintProgress>())
{
    m_ui->setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    connect(m_ui->durdur, &QPushButton::clicked, this, &PrintProgress::reject);
    connect(&run, &PrintRun::progressed, this, &PrintProgress::showProgress);
    connect(&run, &PrintRun::finished, this, &QWidget::hide);
}

PrintProgress::~PrintProgress() = default;

void PrintProgress::reject()
{
    m_ui->durum->setText(u"Durduruluyor…"_s);
    m_run.stop();
}

void PrintProgress::showProgress(qint64 label, qint64 labels, int page)
{
    m_ui->durum->setText(u"Etiket %1 / %2"_s.arg(amount::whole(label), amount::whole(labels)));
    m_ui->sayfa->setText(u"Sayfa %1"_s.arg(amount::whole(page)));
    m_ui->cubuk->setValue(static_cast<int>(label * m_ui->cubuk->maximum() / labels));
    show();
}
