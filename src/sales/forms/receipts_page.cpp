#include "sales/forms/receipts_page.h"

#include "sales/forms/receipt_preview.h"
#include "ui_receipts_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRest = 250; ///< milliseconds

QTableWidgetItem *cell(const QString &text, Qt::Alignment across = Qt::AlignLeft)
{
    auto *item = new QTableWidgetItem(text);
    item->setTextAlignment(across | Qt::AlignVCenter);
    return item;
}

} // namespace

ReceiptsPage::ReceiptsPage(ReceiptArchive &archive, QWidget *parent)
    : QWidget(parent), m_archive(archive), m_ui(std::make_unique<Ui::ReceiptsPage>()),
      m_preview(new ReceiptPreview)
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->wanted);
    m_ui->paper->setWidget(m_preview);
    m_ui->found->setHorizontalHeaderLabels(
        {u"Tarih"_s, u"Saat"_s, u"Fiş no"_s, u"Fatura"_s, u"Tutar"_s, u"Kasiyer"_s});
    m_typed.setSingleShot(true);
    m_typed.setInterval(kRest);
    connect(&m_typed, &QTimer::timeout, this, &ReceiptsPage::load);
    connect(m_ui->wanted, &QLineEdit::textChanged, this, [this] { m_typed.start(); });
    connect(m_ui->wanted, &QLineEdit::returnPressed, this, &ReceiptsPage::load);
    connect(m_ui->found, &QTableWidget::itemSelectionChanged, this, &ReceiptsPage::showChosen);
    connect(m_ui->printButton, &QPushButton::clicked, this, &ReceiptsPage::print);
}

ReceiptsPage::~ReceiptsPage() = default;

void ReceiptsPage::load()
{
    m_typed.stop();
    m_found = m_archive.find(m_ui->wanted->text());
    m_ui->found->setRowCount(static_cast<int>(m_found.size()));
    for (int row = 0; row < m_ui->found->rowCount(); ++row) {
        const ReceiptArchive::Entry &entry = m_found[static_cast<std::size_t>(row)];
        m_ui->found->setItem(row, 0, cell(entry.moment.toString(u"dd.MM.yyyy"_s)));
        m_ui->found->setItem(row, 1, cell(entry.moment.toString(u"HH:mm"_s)));
        m_ui->found->setItem(row, 2, cell(entry.receipt.isEmpty() ? u"—"_s : entry.receipt));
        m_ui->found->setItem(row, 3, cell(entry.invoice));
        m_ui->found->setItem(row, 4, cell(entry.total, Qt::AlignRight));
        m_ui->found->setItem(
            row, 5, cell(entry.incomplete ? entry.cashier + u"  (eksik)"_s : entry.cashier));
    }
    m_ui->found->resizeColumnsToContents();
    for (int column = 0; column < m_ui->found->columnCount() - 1; ++column)
        m_ui->found->setColumnWidth(column, m_ui->found->columnWidth(column) + 14);
    m_ui->count->setText(
        !m_archive.fault().isEmpty() ? u"Aranamadı: "_s + m_archive.fault()
        : m_found.empty()            ? u"Fiş bulunamadı."_s
        : static_cast<int>(m_found.size()) == ReceiptArchive::kMost
            ? u"En yeni %1 fiş gösteriliyor; aramayı daraltın."_s.arg(ReceiptArchive::kMost)
            : u"%1 fiş"_s.arg(m_found.size()));
    if (!m_found.empty())
        m_ui->found->selectRow(0);
    showChosen();
}

void ReceiptsPage::showChosen()
{
    const int row = m_ui->found->currentRow();
    const bool any = row >= 0 && row < static_cast<int>(m_found.size());
    m_ui->printButton->setEnabled(any);
    m_ui->paper->setVisible(any);
    if (any)
        m_preview->show(m_archive.page(m_found[static_cast<std::size_t>(row)].sale));
}

void ReceiptsPage::print()
{
    const int row = m_ui->found->currentRow();
    if (row >= 0 && row < static_cast<int>(m_found.size()))
        m_archive.print(m_found[static_cast<std::size_t>(row)].sale);
}
