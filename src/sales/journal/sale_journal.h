#pragma once

#include "sales/journal/journal_file.h"
#include "sales/posting_log.h"

#include <map>

/// What became of one record of a sale, as far as it is known.
struct RecordMark
{
    Sent sent = Sent::waiting;
    QString statement;          ///< that was sent last
    std::optional<double> from; ///< the figure it was reckoned from
    QString words;              ///< why not, as the server put it
};

/// A sale as the journal has it.
struct JournaledSale
{
    enum class State
    {
        underWay, ///< being posted; at the start of the program: cut off
        whole,
        incomplete,
        uncertain, ///< nothing is known to have been written, an answer was lost: its list stands
        byHand     ///< somebody says that it was completed in the ledger
    };

    qint64 number = 0; ///< in the journal, from 1
    int list = 0;
    State state = State::underWay;
    bool powerCut =
        false;      ///< the machine has been started anew since: what is marked last may lack
    QString ledger; ///< the books it is written to
    bool elsewhere = false; ///< which are not the connected ones
    Sale sale;
    QString receiptNumber;
    ledger::Header header;
    std::array<ledger::Drawn, 3> counters;
    std::map<QString, RecordMark> marks; ///< by the keys of the records

    ledger::LedgerSale inLedger() const { return {header, counters, sale}; }

    /// True when a statement was done; `perhaps`: or may have been.
    bool reachedLedger(bool perhaps) const;
};

/// The sales of the journal and, while a sale is not whole, what became of each of its statements.
class SaleJournal
{
public:
    explicit SaleJournal(JournalFile &file) : m_file(file) {}

    /// Writes a sale down before its first statement and returns its number, 0 when it could not be
    /// written.
    qint64 begin(int list, const Sale &sale, const ledger::LedgerSale &inLedger);
    /// Goes on with a sale that was written down before.
    void resume(qint64 number);
    void drawn(qint64 number, const ledger::LedgerSale &sale);
    void sending(qint64 number, const ledger::Record &record, const QString &statement,
                 std::optional<double> from);
    void answered(qint64 number, const ledger::Record &record, Sent sent, const QString &words);

    /// Statements of a whole sale go: its rows stand in the ledger. `along`: changes for the same
    /// transaction.
    void end(qint64 number, JournaledSale::State state, const JournalFile::Changes &along = {});
    /// Nothing of it was written: it never was a sale.
    void forget(qint64 number);
    void setReceiptNumber(qint64 number, const QString &receipt);

    enum class Ledgers
    {
        connected,
        all
    };
    std::vector<JournaledSale> openSales(Ledgers ledgers = Ledgers::connected) const;
    int openCount() const; ///< of the connected ledger

    /// Those of the connected ledger whose counters are not all known to be advanced.
    std::vector<JournaledSale> unnumbered() const;
    std::optional<JournaledSale> sale(qint64 number) const;

    /// Whether a sale of the connected ledger has that invoice number.
    bool knows(const QString &invoice) const;

private:
    void mark(qint64 number, const ledger::Record &record, Sent sent, const QString &statement,
              std::optional<double> from, const QString &words);
    QString openCondition(Ledgers ledgers) const;
    std::vector<JournaledSale> salesWhere(const QString &condition) const;
    JournaledSale saleIn(const RecordSet &row) const;
    void readLines(JournaledSale &sale) const;
    void readMarks(JournaledSale &sale) const;

    JournalFile &m_file;
    int m_marks = 0;       ///< of the sale under way
    bool m_lasting = true; ///< it stands on the disk
};
