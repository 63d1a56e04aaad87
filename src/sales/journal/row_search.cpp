#include "sales/journal/row_search.h"

#include "common/amount.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace row_search {

namespace {

using ledger::LedgerSale;
using ledger::Record;
using Kind = Record::Kind;

/// How the rows of one table are found and known again.
struct Table
{
    Kind kind;
    QStringView name;
    QStringView prefix; ///< of its columns
    QString ledger::Header::*reference;
    QString ledger::Header::*number; ///< its document number, in column `numberColumn`
    QStringView numberColumn;        ///< empty: it bears none
    QStringView amountColumn;        ///< what tells two sales apart
};
constexpr std::array<Table, 7> kTables = {{
    {Kind::stockSlip, u"STKFIS", u"STKFIS", &ledger::Header::stockReference,
     &ledger::Header::stockNumber, u"EVRAKNO1", u"TOPNTUT"},
    {Kind::stockMovement,
     u"STKHAR",
     u"STKHAR",
     &ledger::Header::stockReference,
     &ledger::Header::stockNumber,
     {},
     u"TUTAR"},
    {Kind::accountSlip, u"CARFIS", u"CARFIS", &ledger::Header::accountReference,
     &ledger::Header::accountNumber, u"EVRAKNO1", u"BORCTOP"},
    {Kind::invoice, u"FATFIS", u"FATFIS", &ledger::Header::invoiceReference,
     &ledger::Header::invoiceNumber, u"EVRAKNO1", u"GENTOPLAM"},
    {Kind::invoiceLine,
     u"FATHAR",
     u"FATHAR",
     &ledger::Header::invoiceReference,
     &ledger::Header::invoiceNumber,
     {},
     u"TUTAR"},
    {Kind::invoiceSummary, u"FATFISTOPLAM", u"FFT", &ledger::Header::invoiceReference,
     &ledger::Header::invoiceNumber, u"EVRAKNO1", u"TUTAR"},
    {Kind::accountMovement, u"CARHAR", u"CARHAR", &ledger::Header::accountReference,
     &ledger::Header::invoiceNumber, u"EVRAKNO", u"TUTAR"},
}};

const Table &tableOf(const Record &record)
{
    for (const Table &table : kTables)
        if (table.kind == record.kind)
            return table;
    return kTables.front();
}

QString column(const Table &table, QStringView ending)
{
    return table.prefix.toString() + ending.toString();
}

const SaleLine &lineOf(const LedgerSale &sale, const Record &record)
{
    return sale.sale().lines.at(static_cast<std::size_t>(record.line) - 1);
}

QString condition(const QString &columnName, const QString &value)
{
    return columnName + u"='"_s + value + u'\'';
}

/// The ledger keeps four decimals of money.
bool same(double left, double right)
{
    return std::abs(left - right) < 0.00005;
}

double amountOf(const LedgerSale &sale, const Record &record)
{
    if (record.line > 0)
        return pricing::valueOf(lineOf(sale, record), SaleColumn::amount);
    return amount::parse(sale.sale().totals.grand).value_or(0.0);
}

bool movesStock(const Record &figure)
{
    return figure.kind == Kind::stockBalance || figure.kind == Kind::stockMonth;
}

} // namespace

QString statement(const LedgerSale &sale, const Record &record)
{
    const Table &table = tableOf(record);
    QStringList conditions = {condition(column(table, u"REFNO"), sale.header().*table.reference)};
    if (record.line > 0) {
        conditions += condition(column(table, u"SIRANO"), QString::number(record.line));
        conditions +=
            condition(column(table, u"STKKOD"), lineOf(sale, record)[SaleColumn::stockCode]);
    }
    if (record.kind == Kind::invoiceSummary)
        conditions += condition(column(table, u"KONU"), QString::number(record.part));
    return u"select * from %1 where "_s.arg(table.name) + conditions.join(u" AND "_s);
}

QString byNumber(const LedgerSale &sale, const Record &slip)
{
    const Table &table = tableOf(slip);
    return u"select * from %1 where "_s.arg(table.name) +
           condition(column(table, table.numberColumn), sale.header().*table.number);
}

QString referenceIn(const Record &slip, const RecordSet &row)
{
    return row.text(column(tableOf(slip), u"REFNO"));
}

bool isOurs(const LedgerSale &sale, const Record &record, const RecordSet &row)
{
    const Table &table = tableOf(record);
    if (!table.numberColumn.isEmpty() &&
        row.text(column(table, table.numberColumn)) != sale.header().*table.number)
        return false;
    if (record.kind == Kind::invoiceSummary) // its amounts follow from the invoice
        return true;
    if (record.line > 0 && !same(row.number(column(table, u"MIKTAR")),
                                 pricing::valueOf(lineOf(sale, record), SaleColumn::quantity)))
        return false;
    return same(row.number(column(table, table.amountColumn)), amountOf(sale, record));
}

QString lastMovement(const LedgerSale &sale, const Record &figure)
{
    if (movesStock(figure))
        return u"select max(STKHARREFNO) AS TOTAL from  STKHAR where "_s +
               condition(u"STKHARSTKKOD"_s, lineOf(sale, figure)[SaleColumn::stockCode]);
    return u"select max(CARHARREFNO) AS TOTAL from  CARHAR where "_s +
           condition(u"CARHARCARKOD"_s, sale.header().customerCode);
}

const QString &ownMovement(const LedgerSale &sale, const Record &figure)
{
    return movesStock(figure) ? sale.header().stockReference : sale.header().accountReference;
}

} // namespace row_search
