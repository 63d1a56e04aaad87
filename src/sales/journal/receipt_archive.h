#pragma once

#include "sales/journal/sale_journal.h"
#include "sales/receipt_commands.h"

class JournalFile;
class Program;
class TillSession;

/// The receipts of the last 90 days: found, looked at, and printed again as copies.
class ReceiptArchive
{
public:
    ReceiptArchive(Program &program, JournalFile &file, SaleJournal &sales, TillSession &till);

    struct Entry
    {
        qint64 sale = 0; ///< number in the journal
        QDateTime moment;
        QString receipt; ///< number; empty: none was printed
        QString invoice;
        QString total;
        QString cashier;
        bool incomplete = false;
    };
    static constexpr int kMost = 500;
    static constexpr int kDays = 90;

    /// The newest first, at most kMost. `text` may be the number of a receipt or invoice, a time
    /// (14:05), a day (7.3 or 07.03.2026), an amount, the code or barcode of a stock or a part of
    /// its name; empty: all.
    std::vector<Entry> find(const QString &text);
    /// Why the last search has no answer; empty: it has.
    const QString &fault() const { return m_fault; }

    /// How the copy will look.
    ReceiptPage page(qint64 sale) const;

    /// Prints a copy; one that never had a number gets one. A fault is told.
    void print(qint64 sale);

private:
    Receipt receipt(qint64 sale) const;

    Program &m_program;
    JournalFile &m_file;
    SaleJournal &m_sales;
    TillSession &m_till;
    QString m_fault;
};
