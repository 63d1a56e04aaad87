#include "sales/ledger_writer.h"

void LedgerWriter::send(const ledger::Record &record, const QString &statement,
                        std::optional<double> from)
{
    HostConnection &host = m_company.openCompany();
    m_log.sending(record, statement, from);
    m_sent = true;
    host.execute(statement);
    ++m_written;
    m_log.answered(record, Sent::done, {});
}

void LedgerWriter::write(const ledger::LedgerSale &sale, const ledger::Record &record)
{
    if (record.isRow()) {
        send(record, sale.insertion(record));
        return;
    }
    const RecordSet row = read(sale.reading(record));
    send(record, sale.raising(record, row), ledger::LedgerSale::figureIn(record, row));
}

Sent LedgerWriter::failed(const ledger::Record &record, const HostError &error)
{
    if (!m_sent)
        return Sent::withheld;
    const Sent sent = error.connectionLost() ? Sent::unknown : Sent::refused;
    m_log.answered(record, sent, error.text());
    return sent;
}
