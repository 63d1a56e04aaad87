#include "sales/forms/PER.h"

#include "sales/cashier.h"
#include "ui_PER.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

/// Head and shoulders.
QPixmap person(int size, const QColor &colour)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(size * 0.3, size * 0.08, size * 0.4, size * 0.4));
    painter.drawChord(QRectF(size * 0.1, size * 0.54, size * 0.8, size * 0.84), 0, 180 * 16);
    return picture;
}

} // namespace

PER::PER(CashierChoice &choice, QWidget *parent)
    : QDialog(parent), m_choice(choice), m_ui(std::make_unique<Ui::PER>())
{
    m_ui->setupUi(this);
    m_ui->Image2->setPixmap(person(32, palette().color(QPalette::Highlight)));
    m_ui->f1->setVisible(!choice.byCode());
    m_ui->f2->setVisible(choice.byCode());

    m_ui->l1->addItems(choice.names());
    m_ui->l1->setCurrentRow(0);
    if (choice.byCode())
        m_ui->Text1->setFocus();
    else
        m_ui->l1->setFocus();

    connect(m_ui->l1, &QListWidget::itemDoubleClicked, this,
            [this] { m_choice.perlistesec(m_ui->l1->currentRow()); });
    connect(&choice, &CashierChoice::chosen, this, &PER::accept);
    connect(&choice, &CashierChoice::rejected, this, &PER::askAgain);
}

PER::~PER() = default;

void PER::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QDialog::keyPressEvent(event);
    else if (m_choice.byCode())
        m_choice.persifresec(m_ui->Text1->text());
    else
        m_choice.perlistesec(m_ui->l1->currentRow());
}

void PER::askAgain()
{
    m_ui->Text1->clear();
    m_ui->Text1->setFocus();
}
