#include "sales/forms/posting_report_box.h"

#include "sales/till_session.h"
#include "ui_posting_report_box.h"

#include <QFileDialog>

using namespace Qt::StringLiterals;

PostingReportBox::PostingReportBox(TillSession &session, const PostingReport &report,
                                   QWidget *parent)
    : QDialog(parent), m_session(session), m_report(report),
      m_ui(std::make_unique<Ui::PostingReportBox>())
{
    m_ui->setupUi(this);
    m_ui->headline->tell(report.headline, Notice::warning);
    m_ui->records->addItems(report.lines);
    m_ui->advice->setText(report.advice);
    connect(m_ui->printButton, &QPushButton::clicked, this,
            [this] { m_session.printReport(m_report); });
    connect(m_ui->saveButton, &QPushButton::clicked, this, &PostingReportBox::save);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QDialog::accept);
    m_ui->closeButton->setFocus();
}

PostingReportBox::~PostingReportBox() = default;

void PostingReportBox::save()
{
    const QString path = QFileDialog::getSaveFileName(
        this, u"Raporu kaydet"_s, u"eksik-satis.txt"_s, u"Metin dosyası (*.txt)"_s);
    if (!path.isEmpty())
        m_session.saveReport(m_report, path);
}
