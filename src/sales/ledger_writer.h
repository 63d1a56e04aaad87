#pragma once

#include "common/host_connection.h"
#include "common/host_error.h"
#include "sales/posting_log.h"

/// Writes the records of a sale into the ledger, over a connection that is never opened anew: what
/// belongs together must not go on over another one. A log hears of each write before it leaves and
/// when it has been answered.
class LedgerWriter
{
public:
    /// Both are kept by reference.
    LedgerWriter(CompanyDatabase &company, PostingLog &log) : m_company(company), m_log(log) {}

    RecordSet read(const QString &statement) { return m_company.openCompany().execute(statement); }

    /// `from`: the figure that stood in the ledger, for a record that adds to one. These throw
    /// HostError.
    void send(const ledger::Record &record, const QString &statement,
              std::optional<double> from = {});

    /// Inserts a row; reads a figure and raises it.
    void write(const ledger::LedgerSale &sale, const ledger::Record &record);

    void beginStep() { m_sent = false; }

    /// Logs what became of the write of this step; nothing of one that never left (withheld): an
    /// earlier try may have done more.
    Sent failed(const ledger::Record &record, const HostError &error);

    int written() const { return m_written; } ///< statements

private:
    CompanyDatabase &m_company;
    PostingLog &m_log;
    bool m_sent = false; ///< the write of this step has left for the server
    int m_written = 0;
};
