#include "sales/till_list.h"

#include "common/amount.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

const SaleLine *TillList::currentLine() const
{
    return m_currentRow < 0 ? nullptr : &lines.line(m_currentRow);
}

void TillList::makeCurrent(int row)
{
    m_currentRow = std::clamp(row, -1, lines.size() - 1);
}

void TillList::setCurrentQuantity(double quantity)
{
    SaleLine line = lines.line(m_currentRow);
    pricing::recompute(line, quantity);
    lines.replace(m_currentRow, std::move(line));
}

bool TillList::recompute()
{
    m_totals = pricing::hesapla(lines.figures());
    if (m_cashGiven)
        m_change = pricing::change(m_cash, m_totals.grand);
    return m_cashGiven;
}

void TillList::setCash(const QString &text)
{
    m_payment = Payment::cash;
    m_cash = text;
    m_cashGiven = true;
    m_change = pricing::change(text, m_totals.grand);
}

void TillList::setPayment(Payment payment)
{
    m_payment = payment;
    m_cash = u"0,00"_s;
    m_change = u"0,00"_s;
    m_cashGiven = false;
}

void TillList::beginSale()
{
    m_cashGiven = false;
    m_customer = {};
}

void TillList::showPosted(const Sale &sale)
{
    m_postedTotal = sale.totals.grand;
    m_change = sale.change;
}

bool TillList::forgetPosted()
{
    if (m_postedTotal.isEmpty())
        return false;
    m_postedTotal.clear();
    m_change = u"0,00"_s;
    return true;
}

Sale TillList::capture() const
{
    const auto money = [](const QString &text) {
        return amount::money(amount::parse(text).value_or(0.0));
    };
    Sale sale;
    sale.lines = lines.lines();
    sale.totals = m_totals;
    sale.cash = money(m_cash);
    sale.change = m_change;
    sale.payment = m_payment;
    sale.customer = m_customer;
    return sale;
}
