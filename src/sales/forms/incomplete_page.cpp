#include "sales/forms/incomplete_page.h"

#include "sales/journal/incomplete_sales.h"
#include "sales/till_session.h"
#include "ui_incomplete_page.h"

#include <QFileDialog>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

IncompletePage::IncompletePage(IncompleteSales &sales, TillSession &till, QWidget *parent)
    : QWidget(parent), m_sales(sales), m_till(till), m_ui(std::make_unique<Ui::IncompletePage>())
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->sales);
    m_ui->outcome->tell({}, Notice::done);
    connect(m_ui->sales, &QListWidget::currentRowChanged, this, &IncompletePage::showChosen);
    connect(m_ui->completeButton, &QPushButton::clicked, this, &IncompletePage::complete);
    connect(m_ui->byHandButton, &QPushButton::clicked, this, &IncompletePage::closeByHand);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &IncompletePage::save);
    connect(m_ui->printButton, &QPushButton::clicked, this, [this] {
        if (const JournaledSale *sale = chosen())
            m_till.printReport(IncompleteSales::report(*sale));
    });
}

IncompletePage::~IncompletePage() = default;

void IncompletePage::load()
{
    const int row = m_ui->sales->currentRow();
    m_all = m_sales.all();
    m_ui->sales->clear();
    for (const JournaledSale &sale : m_all)
        m_ui->sales->addItem(u"%1   %2   %3"_s.arg(sale.sale.moment.toString(u"dd.MM.yyyy HH:mm"_s),
                                                   TillSession::caption(sale.list),
                                                   sale.sale.totals.grand));
    m_ui->sales->setCurrentRow(std::clamp(row, 0, std::max(m_ui->sales->count() - 1, 0)));
    showChosen();
}

const JournaledSale *IncompletePage::chosen() const
{
    const int row = m_ui->sales->currentRow();
    return row >= 0 && row < static_cast<int>(m_all.size()) ? &m_all[static_cast<std::size_t>(row)]
                                                            : nullptr;
}

void IncompletePage::showChosen()
{
    const JournaledSale *sale = chosen();
    m_ui->completeButton->setEnabled(m_sales.count() > 0);
    for (QPushButton *button : {m_ui->byHandButton, m_ui->printButton, m_ui->saveButton})
        button->setEnabled(sale != nullptr);
    m_ui->records->clear();
    if (!sale) {
        m_ui->headline->setText(u"Eksik satış yok: muhasebe satışların tamamını taşıyor."_s);
        m_ui->advice->clear();
        return;
    }
    const PostingReport report = IncompleteSales::report(*sale);
    m_ui->headline->setText(report.headline);
    m_ui->records->addItems(report.lines);
    m_ui->advice->setText(report.advice);
}

void IncompletePage::complete()
{
    const QPointer<IncompletePage> there(this); // the till may be closed behind a question
    const IncompleteSales::Outcome outcome = m_sales.completeAll();
    if (!there)
        return;
    load();
    using End = IncompleteSales::Outcome::End;
    const bool well = outcome.end == End::whole || outcome.end == End::nothing;
    m_ui->outcome->tell(outcome.text, well ? Notice::done : Notice::fault);
}

void IncompletePage::closeByHand()
{
    const JournaledSale *sale = chosen();
    if (!sale)
        return;
    const qint64 number = sale->number;
    const QPointer<IncompletePage> there(this);
    m_sales.closeByHand(number);
    if (there)
        load();
}

void IncompletePage::save()
{
    const JournaledSale *sale = chosen();
    if (!sale)
        return;
    const QString path = QFileDialog::getSaveFileName(
        this, u"Raporu kaydet"_s, u"eksik-satis.txt"_s, u"Metin dosyası (*.txt)"_s);
    if (!path.isEmpty())
        m_till.saveReport(IncompleteSales::report(*sale), path);
}
