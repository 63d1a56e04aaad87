#pragma once

#include "sales/journal/completion.h"
#include "sales/posting_report.h"

#include <QObject>

class Program;

/// The sales that the ledger does not hold whole: what is missing, and completing it.
class IncompleteSales final : public QObject
{
    Q_OBJECT

public:
    IncompleteSales(Program &program, SaleJournal &journal, QObject *parent = nullptr);

    int count() const { return m_journal.openCount(); }
    std::vector<JournaledSale> all() const
    {
        return m_journal.openSales(SaleJournal::Ledgers::all);
    }

    /// What is missing of a sale, in the order it is written: "Stok hareketi S1, 2. satır:
    /// gönderilmedi".
    static QStringList missing(const JournaledSale &sale);
    /// Its documents whose number another sale bears too: somebody has to mend that in the ledger.
    static QStringList doubled(const JournaledSale &sale);
    static PostingReport report(const JournaledSale &sale);

    /// Why the next sale would take numbers that this one used already, or may have: a counter that
    /// is not known to be advanced.
    static bool holdsBackNumbers(const JournaledSale &sale);

    /// How completing a sale ended, for the cashier.
    struct Outcome
    {
        enum class End
        {
            whole,
            partly,    ///< something cannot be written or has to be mended; `text` names it
            nothing,   ///< nothing of it stood in the ledger: it is no sale, its list stands
            postponed, ///< the user put off an answer
            noHost
        };
        End end = End::noHost;
        QString text;
        QStringList doubled =
            {}; ///< documents whose number another sale bears: a matter of the ledger
    };
    Outcome complete(const JournaledSale &sale);

    /// Completes them one after the other, the oldest first; after a few seconds the rest waits
    /// until it is asked for again.
    Outcome completeAll();

    /// Somebody completed the sale in the ledger; asks whether it is so.
    void closeByHand(qint64 number);

Q_SIGNALS:
    /// A sale stands in the ledger of which nobody knew: its list is sold.
    void foundPosted(const JournaledSale &sale);
    void changed();

private:
    Outcome outcomeOf(const JournaledSale &sale, const Completion::Result &result);

    Program &m_program;
    SaleJournal &m_journal;
};
