#include "sales/journal/sale_keeper.h"

using State = JournaledSale::State;

void SaleKeeper::begin(int list, const Sale &sale, const ledger::LedgerSale &inLedger)
{
    m_log.reset();
    m_list = list;
    m_whole = true;
    m_number = m_sales.begin(list, sale, inLedger);
    if (m_number > 0) {
        m_log.emplace(m_sales, m_number);
    } else {
        lacking().sale = sale;
        lacking().drawn = inLedger;
    }
}

/// What the file lacks of the sale under way, made when it lacks something first.
SaleKeeper::Lacking &SaleKeeper::lacking()
{
    if (std::exchange(m_whole, false))
        m_lacking.push_back({m_number, m_list, {}, {}, {}, {}, {}});
    return m_lacking.back();
}

void SaleKeeper::drawn(const ledger::LedgerSale &sale)
{
    if (m_log)
        m_log->drawn(sale);
    if (!m_whole || !m_file.isOpen())
        lacking().drawn = sale;
}

void SaleKeeper::step(const Step &step)
{
    if (m_log)
        step(*m_log);
    if (!m_whole || !m_file.isOpen())
        lacking().steps.push_back(step);
}

void SaleKeeper::end(State state)
{
    m_log.reset();
    if (m_whole && m_file.isOpen()) {
        write(m_number, m_list, state);
    }
    if (m_whole && m_file.isOpen())
        return;
    lacking().end = state;
    if (state == State::whole)
        lacking().steps.clear(); // its rows stand in the ledger
    if (state == State::underWay && m_number == 0)
        m_lacking.pop_back();
}

/// A list goes together with its sale: neither may stand without the other.
void SaleKeeper::write(qint64 number, int list, State end)
{
    auto along = m_lists.clearing(list);
    if (end == State::uncertain)
        along.clear(); // the list stands
    if (end == State::underWay)
        m_sales.forget(number);
    else
        m_sales.end(number, end, along);
}

void SaleKeeper::numbered(const QString &receipt)
{
    if (m_whole && m_number > 0)
        m_sales.setReceiptNumber(m_number, receipt);
    if (!m_whole || !m_file.isOpen())
        lacking().receipt = receipt;
}

void SaleKeeper::bringBack()
{
    while (lacks() && bringBack(m_lacking.front()))
        m_lacking.pop_front();
    m_whole = !lacks();
}

/// False: the file failed once more, and what it was to take is kept on. Steps that it took already
/// do no harm when they are written again.
bool SaleKeeper::bringBack(Lacking &one)
{
    if (one.number == 0)
        one.number = m_sales.begin(one.list, one.sale, *one.drawn);
    m_number = one.number;
    SaleLog log(m_sales, one.number);
    if (one.drawn)
        log.drawn(*one.drawn);
    for (const Step &step : one.steps)
        step(log);
    if (one.end)
        write(one.number, one.list, *one.end);
    if (!one.receipt.isEmpty())
        m_sales.setReceiptNumber(one.number, one.receipt);
    return m_file.isOpen();
}
