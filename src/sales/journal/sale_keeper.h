#pragma once

#include "sales/journal/journal_file.h"
#include "sales/journal/list_journal.h"
#include "sales/journal/sale_log.h"

#include <deque>
#include <functional>

/// Writes down the posting under way. What the journal cannot take is kept until it is open again:
/// a disk that is full for an hour shall not take an hour's sales out of the end of the day.
class SaleKeeper
{
public:
    SaleKeeper(JournalFile &file, SaleJournal &sales, ListJournal &lists)
        : m_file(file), m_sales(sales), m_lists(lists)
    {}

    void begin(int list, const Sale &sale, const ledger::LedgerSale &inLedger);
    void drawn(const ledger::LedgerSale &sale);
    using Step = std::function<void(PostingLog &)>;
    void step(const Step &step);
    /// underWay: nothing was written, it never was a sale.
    void end(JournaledSale::State state);
    void numbered(const QString &receipt); ///< the last sale

    /// The journal took the beginning of the sale under way and failed behind it.
    bool failed() const { return m_log && !m_file.isOpen(); }

    /// Writes down what was kept; the file is open again.
    void bringBack();

private:
    /// What the journal lacks of a sale.
    struct Lacking
    {
        qint64 number = 0; ///< 0: all of it
        int list = 0;
        Sale sale;
        std::optional<ledger::LedgerSale> drawn;
        std::vector<Step> steps;
        std::optional<JournaledSale::State> end;
        QString receipt;
    };
    bool lacks() const { return !m_lacking.empty(); }
    Lacking &lacking();
    bool bringBack(Lacking &one);
    void write(qint64 number, int list, JournaledSale::State end);

    JournalFile &m_file;
    SaleJournal &m_sales;
    ListJournal &m_lists;
    std::optional<SaleLog> m_log; ///< of the posting under way
    qint64 m_number = 0;          ///< of the last sale; 0: the journal lacks it
    int m_list = 0;
    bool m_whole = true; ///< the journal has every step of it until now
    std::deque<Lacking> m_lacking;
};
