#include "sales/till_lists.h"

#include "common/amount.h"
#include "sales/quantity.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isList(int number)
{
    return number >= 0 && number < kSaleLists;
}

} // namespace

QString TillLists::caption(int number)
{
    return u"SATIS%1"_s.arg(number + 1);
}

// ---- lists and lines

void TillLists::selectList(int number)
{
    if (!isList(number) || number == m_active)
        return;
    m_active = number;
    Q_EMIT activeListChanged(number);
    Q_EMIT customerChanged();
}

void TillLists::selectRow(int number, int row)
{
    if (isList(number) && row != at(number).currentRow())
        makeCurrent(number, row);
}

void TillLists::moveSelection(int rows)
{
    if (!active().lines.isEmpty())
        makeCurrent(m_active, std::max(active().currentRow() + rows, 0));
}

void TillLists::makeCurrent(int number, int row)
{
    at(number).makeCurrent(row);
    Q_EMIT currentRowChanged(number, at(number).currentRow());
}

void TillLists::removeLine(int number, int row)
{
    at(number).lines.remove(row);
    makeCurrent(number, row);
    hesapla(number);
}

void TillLists::restore(int number, const Sale &left)
{
    TillList &list = at(number);
    for (const SaleLine &line : left.lines)
        list.lines.append(line);
    makeCurrent(number, list.lines.size() - 1);
    hesapla(number);
    list.setCustomer(left.customer);
    if (left.payment == Payment::card)
        list.setPayment(left.payment);
    else if (left.cash != u"0,00")
        list.setCash(left.cash);
    Q_EMIT cashChanged(number);
    Q_EMIT customerChanged();
}

void TillLists::clearSold(int number, const Sale &sale)
{
    clearList(number);
    at(number).showPosted(sale);
    Q_EMIT cashChanged(number);
}

void TillLists::clearList(int number)
{
    at(number).lines.clear();
    makeCurrent(number, -1);
    hesapla(number);
    setCash(number, u"0,00"_s);
    at(number).beginSale();
    Q_EMIT customerChanged();
}

QString TillLists::listsWithGoods() const
{
    QString lists;
    for (int number = 0; number < kSaleLists; ++number)
        if (!at(number).lines.isEmpty())
            lists += u" (%1)"_s.arg(caption(number));
    return lists;
}

// ---- quantities

QString TillLists::refusedQuantity(const QString &typed) const
{
    if (!currentLine())
        return u"Seçili satır yok."_s;
    if (!quantity::parse(typed))
        return quantity::refusal();
    return {};
}

QString TillLists::miktargir(const QString &typed)
{
    QString refusal = refusedQuantity(typed);
    if (refusal.isEmpty())
        changeQuantity(*quantity::parse(typed));
    return refusal;
}

QString TillLists::miktarekle(const QString &typed)
{
    QString refusal = refusedQuantity(typed);
    if (!refusal.isEmpty())
        return refusal;
    const double sum =
        pricing::valueOf(*active().currentLine(), SaleColumn::quantity) + *quantity::parse(typed);
    if (sum > quantity::kMost)
        return quantity::tooMany();
    changeQuantity(sum);
    return {};
}

void TillLists::changeQuantity(double quantity)
{
    active().setCurrentQuantity(quantity);
    hesapla(m_active);
}

// ---- totals and cash

void TillLists::hesapla(int number)
{
    const bool changed = at(number).recompute();
    Q_EMIT totalsChanged(number);
    if (changed)
        Q_EMIT cashChanged(number);
}

void TillLists::setCash(int number, const QString &text)
{
    if (!isList(number))
        return;
    forgetPosted(number);
    at(number).setCash(text);
    Q_EMIT cashChanged(number);
}

void TillLists::payExactly()
{
    setCash(m_active, active().totals().grand);
    Q_EMIT noticed(u"Tam para: %1"_s.arg(active().cash()), Notice::done);
}

void TillLists::addBanknote(int lira)
{
    // Behind the exact amount a note is what was given instead of it.
    const bool anew =
        !active().postedTotal().isEmpty() || active().cash() == active().totals().grand;
    const double given = anew ? 0.0 : quantity::parseCash(active().cash()).value_or(0.0);
    if (given + lira <= quantity::kMostCash)
        setCash(m_active, amount::money(given + lira));
}

void TillLists::togglePayment()
{
    forgetPosted(m_active);
    const bool card = active().payment() == Payment::cash;
    active().setPayment(card ? Payment::card : Payment::cash);
    Q_EMIT cashChanged(m_active);
    Q_EMIT noticed(card ? u"Kartla ödenecek."_s : u"Nakit ödenecek."_s, Notice::done);
}

void TillLists::resetCash(int number)
{
    if (at(number).cash() != u"0,00")
        setCash(number, u"0,00"_s);
}

void TillLists::forgetPosted(int number)
{
    if (at(number).forgetPosted())
        Q_EMIT cashChanged(number);
}
