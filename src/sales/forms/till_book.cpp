#include "sales/forms/till_book.h"

#include "sales/forms/day_page.h"
#include "sales/forms/incomplete_page.h"
#include "sales/forms/receipts_page.h"
#include "sales/journal/till_memory.h"
#include "ui_till_book.h"

#include <QTabBar>

using namespace Qt::StringLiterals;

TillBook::TillBook(TillMemory &memory, TillSession &till, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::TillBook>()), m_memory(memory),
      m_receipts(new ReceiptsPage(memory.receipts(), this)),
      m_day(new DayPage(memory.dayEnd(), this)),
      m_incomplete(new IncompletePage(memory.incomplete(), till, this))
{
    m_ui->setupUi(this);
    m_ui->pages->addTab(m_receipts, u"&Fişler"_s);
    m_ui->pages->addTab(m_day, u"&Gün sonu"_s);
    m_ui->pages->addTab(m_incomplete, u"&Eksik satışlar"_s);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_day, &DayPage::busyChanged, m_ui->pages->tabBar(), &QWidget::setDisabled);
}

TillBook::~TillBook() = default;

/// Escape ends what is under way first.
void TillBook::reject()
{
    if (!m_day->stop())
        QDialog::reject();
}

void TillBook::open(bool incomplete)
{
    m_memory.tryAgain();
    const QString fault = m_memory.fault();
    m_ui->fault->setVisible(!fault.isEmpty());
    m_ui->fault->tell(u"Kasa günlüğü (kasa.dbs) okunamıyor: %1 Fişler, gün sonu ve eksik satışlar "
                      "bilinmiyor."_s.arg(fault),
                      Notice::fault);
    m_ui->pages->setEnabled(fault.isEmpty());
    m_receipts->load();
    m_day->load();
    m_incomplete->load();
    QWidget *page = m_receipts;
    if (incomplete)
        page = m_incomplete;
    m_ui->pages->setCurrentWidget(page);
    page->setFocus();
}
