#pragma once

#include "sales/journal/sale_journal.h"

/// Writes down how the posting of one journaled sale goes.
class SaleLog : public PostingLog
{
public:
    SaleLog(SaleJournal &journal, qint64 number) : m_journal(journal), m_number(number)
    {
        m_journal.resume(number);
    }

    void drawn(const ledger::LedgerSale &sale) override { m_journal.drawn(m_number, sale); }
    void sending(const ledger::Record &record, const QString &statement,
                 std::optional<double> from) override
    {
        m_journal.sending(m_number, record, statement, from);
    }
    void answered(const ledger::Record &record, Sent sent, const QString &words) override
    {
        m_journal.answered(m_number, record, sent, words);
    }

private:
    SaleJournal &m_journal;
    qint64 m_number;
};
