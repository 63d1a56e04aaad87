#pragma once

#include "sales/cashier.h"
#include "sales/journal/journal_file.h"
#include "sales/sale.h"

/// What happened to the sale lists, change after change; the lists as they stood follow from it.
class ListJournal
{
public:
    explicit ListJournal(JournalFile &file) : m_file(file) {}

    /// Who is at the till, for what is deleted from now on.
    void setCashier(const Cashier &cashier);
    const Cashier &cashier() const { return m_cashier; }

    void lineSet(int list, int row, const SaleLine &line); ///< a new row, or the row anew
    void lineRemoved(int list, int row, const SaleLine &line);
    void cashSet(int list, const QString &cash, Payment payment);
    void customerSet(int list, const Customer &customer);

    /// `dropped`: lines that go without having been sold.
    void cleared(int list, const std::vector<SaleLine> &dropped);

    /// The changes of a list that goes with a sale, for the transaction that ends it.
    JournalFile::Changes clearing(int list) const;

    /// A list as it stood when the program ended: lines, cash, payment, customer, and the moment of
    /// its last change.
    Sale left(int list) const;
    Cashier lastCashier() const;

private:
    JournalFile::Change event(QStringView kind, int list, int row, const QString &content) const;
    JournalFile::Change removal(int list, int row, const SaleLine &line) const;

    JournalFile &m_file;
    Cashier m_cashier;
};
