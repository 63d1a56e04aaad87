#include "labels/desk/forms/fatura.h"

#include "labels/desk/forms/form_keys.h"
#include "labels/desk/forms/task_progress.h"
#include "ui_fatura.h"

using namespace Qt::StringLiterals;

namespace {

/// Widths in pixels; the wide column takes what is left over.
const QList<int> kInvoiceWidths = {120, 110, 260};
const QList<int> kLineWidths = {180, 90};

} // namespace

fatura::fatura(InvoicePicker &picker, QWidget *parent)
    : QDialog(parent), m_picker(picker), m_ui(std::make_unique<Ui::fatura>())
{
    m_ui->setupUi(this);
    m_ui->l1->setModel(&m_picker.invoices());
    m_ui->l2->setModel(&m_picker.lines());
    m_ui->l1->setWidths({}, kInvoiceWidths, InvoiceList::customer);
    m_ui->l2->setWidths({}, kLineWidths, InvoiceLineList::stockCode);
    fill();
    connectCommands();
    connect(&m_picker, &InvoicePicker::busyChanged, this, &fatura::showBusy);
    showTask(m_picker, m_ui->durum, m_ui->cubuk);
}

fatura::~fatura() = default;

void fatura::enter()
{
    m_ui->c1->setFocus(Qt::ShortcutFocusReason);
}

void fatura::fill()
{
    m_picker.load();
    for (const InvoiceType &type : m_picker.types())
        m_ui->c1->addItem(type.name, type.code);
    m_ui->c1->setCurrentIndex(-1);
    m_ui->tr1->setDate(m_picker.today());
    m_ui->tr2->setDate(m_picker.today());
    m_ui->Check1->setChecked(m_picker.tracking().on);
    m_ui->Text1->setText(m_picker.tracking().number);
}

void fatura::connectCommands()
{
    connect(m_ui->listele, &QPushButton::clicked, this, &fatura::listInvoices);
    connect(m_ui->satirlar, &QPushButton::clicked, this,
            [this] { m_picker.loadLines(tracking()); });
    connect(m_ui->aktar, &QPushButton::clicked, &m_picker, &InvoicePicker::anafatekle);
    connect(m_ui->kaydet, &QPushButton::clicked, this,
            [this] { m_picker.saveTracking(tracking()); });
    connect(m_ui->kapat, &QPushButton::clicked, this, &fatura::reject);
    connect(m_ui->Check2, &QCheckBox::clicked, &m_picker.invoices(), &InvoiceList::checkAll);
    // A list that is filled anew has nothing marked.
    connect(&m_picker.invoices(), &QAbstractItemModel::modelReset, m_ui->Check2,
            [this] { m_ui->Check2->setChecked(false); });
    connect(m_ui->l1, &QTreeView::doubleClicked, this,
            [this](const QModelIndex &at) { m_picker.invoices().toggle(at.row()); });

    onKey(m_ui->l1, Qt::Key_Space, [this] { m_picker.invoices().toggle(m_ui->l1->selectedRow()); });
    // Enter lists the invoices only where the user says which; elsewhere it goes on with the
    // marked.
    for (QWidget *later : std::initializer_list<QWidget *>{m_ui->l1, m_ui->l2, m_ui->Check1,
                                                           m_ui->Check2, m_ui->Text1})
        for (const auto enter : {Qt::Key_Return, Qt::Key_Enter})
            onKey(later, enter, [this] { m_ui->satirlar->click(); });
    onKey(this, Qt::Key_F5, [this] { m_ui->listele->click(); });
    onKey(this, Qt::Key_F6, [this] { m_ui->satirlar->click(); });
    onKey(this, Qt::Key_F7, [this] { m_ui->l1->enter(); });
    onKey(this, Qt::Key_F9, [this] { m_ui->aktar->click(); });
}

TrackingFilter fatura::tracking() const
{
    return {m_ui->Check1->isChecked(), m_ui->Text1->text()};
}

void fatura::listInvoices()
{
    m_picker.listInvoices(m_ui->c1->currentIndex(), m_ui->tr1->date(), m_ui->tr2->date());
}

void fatura::reject()
{
    if (m_picker.isBusy())
        m_picker.stop();
    else
        QDialog::reject();
}

void fatura::showBusy(bool busy)
{
    for (QWidget *command :
         std::initializer_list<QWidget *>{m_ui->listele, m_ui->satirlar, m_ui->aktar, m_ui->Check2})
        command->setDisabled(busy);
    m_ui->kapat->setText(busy ? u"Durdur (Esc)"_s : u"Kapat (Esc)"_s);
}
