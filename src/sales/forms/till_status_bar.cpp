#include "sales/forms/till_status_bar.h"

#include "sales/cashier.h"
#include "sales/sale.h"

#include <QLabel>

using namespace Qt::StringLiterals;

TillStatusBar::TillStatusBar(QWidget *parent)
    : QStatusBar(parent), m_code(addPanel(u"cr1"_s, u"Cari:"_s, 0)),
      m_name(addPanel(u"cr2"_s, {}, 1)), m_printer(addPanel(u"panel3"_s, u"Yazıcı:"_s, 1)),
      m_cashier(addPanel(u"panel4"_s, u"Kasiyer:"_s, 1))
{}

QLabel *TillStatusBar::addPanel(const QString &name, const QString &caption, int stretch)
{
    if (!caption.isEmpty())
        addWidget(new QLabel(caption, this));
    auto *panel = new QLabel(this);
    panel->setObjectName(name);
    panel->setTextFormat(Qt::PlainText);
    addWidget(panel, stretch);
    return panel;
}

void TillStatusBar::showCustomer(const Customer &customer)
{
    m_code->setText(customer.code);
    m_name->setText(customer.name);
}

void TillStatusBar::showPrinter(const QString &printer)
{
    m_printer->setText(printer);
}

void TillStatusBar::showCashier(const Cashier &cashier)
{
    m_cashier->setProperty("tag", cashier.code);
    m_cashier->setText(cashier.name);
}
