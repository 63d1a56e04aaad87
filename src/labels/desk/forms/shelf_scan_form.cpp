#include "labels/desk/forms/shelf_scan_form.h"

#include "common/amount.h"
#include "labels/desk/label_desk.h"
#include "ui_shelf_scan_form.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRemembered = 1000; ///< scans in the list: those of a long walk
constexpr QRgb kMissed = 0xFFB00020;

} // namespace

ShelfScanForm::ShelfScanForm(LabelDesk &desk, QWidget *parent)
    : QDialog(parent), m_desk(desk), m_ui(std::make_unique<Ui::ShelfScanForm>())
{
    m_ui->setupUi(this);
    ShelfScan &scan = m_desk.scan();
    scan.begin();
    connect(m_ui->giris, &QLineEdit::returnPressed, this, &ShelfScanForm::enter);
    connect(m_ui->kapat, &QPushButton::clicked, this, &ShelfScanForm::reject);
    connect(&scan, &ShelfScan::taken, this, &ShelfScanForm::showTaken);
    connect(&scan, &ShelfScan::refused, this, &ShelfScanForm::showRefused);
    connect(&scan, &ShelfScan::removalWanted, this, &ShelfScanForm::showRemoved);
    connect(&m_desk.queue(), &PrintQueue::totalChanged, this, &ShelfScanForm::showTotals);
    showLast();
    showTotals();
    m_ui->giris->setFocus();
}

ShelfScanForm::~ShelfScanForm() = default;

void ShelfScanForm::enter()
{
    const QString text = m_ui->giris->text();
    m_ui->giris->clear();
    m_desk.scan().enter(text);
}

void ShelfScanForm::showTaken()
{
    showLast();
    if (const QueueRow *row = m_desk.scan().last())
        remember(u"%1 × %2"_s.arg(amount::whole(row->count), row->name));
}

void ShelfScanForm::showRemoved()
{
    remember(u"Çıkarıldı: %1"_s.arg(m_ui->ad->text()));
    showLast();
}

/// Whoever walks along the shelf sees the screen when they are back.
void ShelfScanForm::showRefused(const QString &reason, const QString &barcode)
{
    showLast();
    m_ui->durum->setText(reason);
    if (barcode.isEmpty())
        return;
    remember(reason.section(u'\n', 0, 0));
    m_ui->son->item(0)->setForeground(QColor(kMissed));
    showTotals();
}

void ShelfScanForm::showLast()
{
    const QueueRow *row = m_desk.scan().last();
    m_ui->ad->setText(row ? row->name : u"Barkod okutunuz"_s);
    m_ui->birim->setText(row ? u"%1 · %2"_s.arg(row->unitText(), row->barcode) : QString());
    m_ui->fiyat->setText(!row ? QString() : row->price.isEmpty() ? u"fiyatı yok"_s : row->price);
    m_ui->adet->setText(row ? u"%1 etiket"_s.arg(amount::whole(row->count)) : QString());
    m_ui->durum->clear();
}

void ShelfScanForm::remember(const QString &entry)
{
    m_ui->son->insertItem(0, entry);
    delete m_ui->son->takeItem(kRemembered);
}

void ShelfScanForm::showTotals()
{
    QString text = u"Kuyrukta %1 satır, %2 etiket"_s.arg(amount::whole(m_desk.queue().size()),
                                                         amount::whole(m_desk.queue().total()));
    const qsizetype missed = m_desk.scan().missed().size();
    if (missed > 0)
        text += u" · eklenmeyen %1 barkod (kırmızı)"_s.arg(amount::whole(missed));
    m_ui->toplam->setText(text);
}
