#include "sales/forms/miktr.h"

#include "sales/forms/amount_validator.h"
#include "ui_miktr.h"

#include <QKeyEvent>

miktr::miktr(const QString &item, const QString &caption, const QString &quantity, Taker taker,
             QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::miktr>()), m_taker(std::move(taker))
{
    m_ui->setupUi(this);
    m_ui->item->setText(item);
    m_ui->caption->setText(caption);
    m_ui->Text1->setValidator(new AmountValidator(this));
    m_ui->Text1->setText(quantity);
    m_ui->Text1->selectAll();
    m_ui->Text1->setFocus(); // keys may come before the window is active
    QPalette red = m_ui->fault->palette();
    red.setColor(QPalette::WindowText, QColor(0xB0, 0x10, 0x10));
    m_ui->fault->setPalette(red);
}

miktr::~miktr() = default;

void miktr::accept()
{
    const QString refusal = m_taker(m_ui->Text1->text());
    m_ui->fault->setText(refusal);
    if (refusal.isEmpty())
        QDialog::accept();
    else
        m_ui->Text1->selectAll();
}

void miktr::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        accept();
    else
        QDialog::keyPressEvent(event);
}
