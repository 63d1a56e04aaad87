#include "labels/desk/forms/baruret.h"

#include "labels/desk/forms/task_progress.h"
#include "labels/desk/number_desk.h"
#include "labels/print/label_preview.h"
#include "ui_baruret.h"

#include <QKeyEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr double kScreenDpi = 96;

} // namespace

Baruret::Baruret(NumberDesk &numbers, QWidget *parent)
    : QDialog(parent), m_numbers(numbers), m_ui(std::make_unique<Ui::Baruret>())
{
    m_ui->setupUi(this);
    m_ui->c1->addItem(u"EAN-8"_s, static_cast<int>(ean::Symbology::ean8));
    m_ui->c1->addItem(u"EAN-13"_s, static_cast<int>(ean::Symbology::ean13));
    m_ui->Text1->installEventFilter(this);
    connect(m_ui->c1, &QComboBox::currentIndexChanged, this, &Baruret::choose);
    connect(m_ui->Text1, &QLineEdit::textChanged, this, &Baruret::showNumber);
    connect(m_ui->uret, &QPushButton::clicked, this, &Baruret::generate);
    connect(m_ui->kapat, &QPushButton::clicked, this, &Baruret::reject);
    connect(&m_numbers, &NumberDesk::baseChanged, m_ui->Text1, &QLineEdit::setText);
    connect(&m_numbers, &NumberDesk::busyChanged, this, &Baruret::showBusy);
    showTask(m_numbers, m_ui->durum, m_ui->cubuk);
    const int chosen = m_ui->c1->findData(static_cast<int>(m_numbers.symbology()));
    m_ui->c1->setCurrentIndex(chosen);
    choose(chosen);
    m_ui->Text1->setFocus();
}

Baruret::~Baruret() = default;

void Baruret::choose(int index)
{
    m_numbers.choose(static_cast<ean::Symbology>(m_ui->c1->itemData(index).toInt()));
    m_ui->baslik->setText(m_numbers.caption());
    m_ui->Text1->setText(m_numbers.nextBase());
    m_ui->Text1->selectAll();
    showNumber();
}

void Baruret::generate()
{
    m_numbers.generate(m_ui->Text1->text());
    m_ui->Text1->setFocus();
}

void Baruret::showNumber()
{
    const QString number = m_numbers.completeNumber(m_ui->Text1->text());
    const qreal ratio = devicePixelRatioF();
    const QSize room = (QSizeF(m_ui->onizleme->contentsRect().size()) * ratio).toSize();
    QImage image = previewBars(m_numbers.symbology(), number, room, kScreenDpi * ratio);
    image.setDevicePixelRatio(ratio);
    m_ui->onizleme->setPixmap(QPixmap::fromImage(image));
    m_ui->onizleme->setAccessibleName(number);
    m_ui->kod->setText(number);
    m_ui->aciklama->setText(m_numbers.rangeHint(m_ui->Text1->text()));
}

void Baruret::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    showNumber();
}

/// A full box takes no more digits; marked ones are about to be replaced.
bool Baruret::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_ui->Text1 && event->type() == QEvent::KeyPress &&
        !m_ui->Text1->hasSelectedText())
        return !m_numbers.takesKey(m_ui->Text1->text(), static_cast<QKeyEvent *>(event)->text());
    return QDialog::eventFilter(watched, event);
}

void Baruret::reject()
{
    if (m_numbers.isBusy())
        m_numbers.stop();
    else
        QDialog::reject();
}

void Baruret::showBusy(bool busy)
{
    for (QWidget *control : std::initializer_list<QWidget *>{m_ui->c1, m_ui->Text1, m_ui->uret})
        control->setDisabled(busy);
    m_ui->kapat->setText(busy ? u"Durdur (Esc)"_s : u"Kapat (Esc)"_s);
}
