#include "sales/journal/sold_search.h"

#include "common/host_connection.h"
#include "sales/journal/kurus.h"
#include "sales/journal/row_search.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace sold_search {

namespace {

using ledger::Document;
using ledger::LedgerSale;
using ledger::Record;

QDateTime momentOf(const RecordSet &invoice)
{
    return {invoice.value(u"FATFISTAR").toDate(),
            QTime::fromString(invoice.text(u"FATFISSAAT"), u"h:m"_s)};
}

/// A counter as it was drawn for a number: its digits at the end.
ledger::Drawn drawnFor(const QString &number)
{
    const auto lastOther = std::find_if(number.rbegin(), number.rend(),
                                        [](QChar letter) { return !letter.isDigit(); });
    const qsizetype digits = lastOther - number.rbegin();
    return {!number.isEmpty(), number.last(digits).toLongLong(), number};
}

/// A sale as the ledger has it, around its invoice.
class Reader
{
public:
    Reader(HostConnection &host, LedgerSale &sale) : m_host(host), m_sale(sale) {}

    bool holdsEveryLine()
    {
        const std::vector<Record> records = m_sale.records();
        return std::all_of(records.begin(), records.end(), [this](const Record &record) {
            return record.kind != Record::Kind::invoiceLine || !rowOf(record).eof();
        });
    }

    /// Takes the numbers of the slips that stand beside the invoice.
    void readSlips()
    {
        setNumber(Document::stock, u"STKFISEVRAKNO1");
        const RecordSet movement =
            m_host.execute(u"select * from CARHAR where CARHAREVRAKNO='%1'"_s.arg(
                m_sale.quotable().header().invoiceNumber));
        if (movement.eof())
            return;
        m_sale.setReference(Document::account, movement.text(u"CARHARREFNO"));
        setNumber(Document::account, u"CARFISEVRAKNO1");
    }

private:
    RecordSet rowOf(const Record &record)
    {
        RecordSet rows = m_host.execute(row_search::statement(m_sale.quotable(), record));
        while (!rows.eof() && record.line > 0 && !row_search::isOurs(m_sale, record, rows))
            rows.moveNext();
        return rows;
    }

    void setNumber(Document document, QStringView column)
    {
        if (const RecordSet slip = rowOf(LedgerSale::slipOf(document)); !slip.eof())
            m_sale.setDrawn(document, drawnFor(slip.text(column)));
    }

    HostConnection &m_host;
    LedgerSale &m_sale;
};

} // namespace

std::optional<Found> find(CompanyDatabase &company, const Settings &settings, const Sale &sale,
                          const std::function<bool(const QString &invoice)> &known)
{
    HostConnection &host = company.company();
    const QDateTime since = sale.moment.addSecs(-60); // the ledger drops seconds
    const LedgerSale wanted(settings, sale);
    RecordSet rows = host.execute(
        u"select * from FATFIS where %1 AND FATFISCARKOD='%2' AND FATFISTAR>='%3'"_s.arg(
            row_search::kTillInvoices, wanted.quotable().header().customerCode,
            RecordSet::toText(since.date())));
    for (; !rows.eof(); rows.moveNext()) {
        const QString number = rows.text(u"FATFISEVRAKNO1");
        const qint64 total = kurus::of(rows.number(u"FATFISGENTOPLAM"));
        if (total != kurus::of(sale.totals.grand) || momentOf(rows) < since || known(number))
            continue;
        Found found{sale, wanted};
        found.sale.moment = momentOf(rows);
        found.inLedger = LedgerSale(settings, found.sale);
        found.inLedger.setDrawn(Document::invoice, drawnFor(number));
        found.inLedger.setReference(Document::invoice, rows.text(u"FATFISREFNO"));
        found.inLedger.setReference(Document::stock, rows.text(u"FATFISSTKREFNO"));
        Reader reader(host, found.inLedger);
        if (!reader.holdsEveryLine())
            continue;
        reader.readSlips();
        return found;
    }
    return {};
}

} // namespace sold_search
