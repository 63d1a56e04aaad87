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
    QStringView referenceColumn;
    QString ledger::Header::*reference;
    QStringView numberColumn; ///< empty: it bears no document number
    QString ledger::Header::*number;
    QStringView amountColumn; ///< what tells two sales apart
};
constexpr std::array<Table, 7> kTables = {{
    {Kind::stockSlip, u"STKFIS", u"STKFISREFNO", &ledger::Header::stockReference, u"STKFISEVRAKNO1",
     &ledger::Header::stockNumber, u"STKFISTOPNTUT"},
    {Kind::stockMovement,
     u"STKHAR",
     u"STKHARREFNO",
     &ledger::Header::stockReference,
     {},
     &ledger::Header::stockNumber,
     u"STKHARTUTAR"},
    {Kind::accountSlip, u"CARFIS", u"CARFISREFNO", &ledger::Header::accountReference,
     u"CARFISEVRAKNO1", &ledger::Header::accountNumber, u"CARFISBORCTOP"},
    {Kind::invoice, u"FATFIS", u"FATFISREFNO", &ledger::Header::invoiceReference, u"FATFISEVRAKNO1",
     &ledger::Header::invoiceNumber, u"FATFISGENTOPLAM"},
    {Kind::invoiceLine,
     u"FATHAR",
     u"FATHARREFNO",
     &ledger::Header::invoiceReference,
     {},
     &ledger::Header::invoiceNumber,
     u"FATHARTUTAR"},
    {Kind::invoiceSummary, u"FATFISTOPLAM", u"FFTREFNO", &ledger::Header::invoiceReference,
     u"FFTEVRAKNO1", &ledger::Header::invoiceNumber, u"FFTTUTAR"},
    {Kind::accountMovement, u"CARHAR", u"CARHARREFNO", &ledger::Header::accountReference,
     u"CARHAREVRAKNO", &ledger::Header::invoiceNumber, u"CARHARTUTAR"},
}};

/// Columns of the lines of stock slip and invoice.
struct LineColumns
{
    QStringView place;
    QStringView stock;
    QStringView quantity;
};
const LineColumns &lineColumns(const Record &record)
{
    static constexpr LineColumns stock = {u"STKHARSIRANO", u"STKHARSTKKOD", u"STKHARMIKTAR"};
    static constexpr LineColumns invoice = {u"FATHARSIRANO", u"FATHARSTKKOD", u"FATHARMIKTAR"};
    return record.kind == Kind::stockMovement ? stock : invoice;
}

const Table &tableOf(const Record &record)
{
    for (const Table &table : kTables)
        if (table.kind == record.kind)
            return table;
    return kTables.front();
}

const SaleLine &lineOf(const LedgerSale &sale, const Record &record)
{
    return sale.sale().lines.at(static_cast<std::size_t>(record.line) - 1);
}

QString condition(QStringView columnName, const QString &value)
{
    return columnName.toString() + u"='"_s + value + u'\'';
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
    QStringList conditions = {condition(table.referenceColumn, sale.header().*table.reference)};
    if (record.line > 0) {
        conditions += condition(lineColumns(record).place, QString::number(record.line));
        conditions +=
            condition(lineColumns(record).stock, lineOf(sale, record)[SaleColumn::stockCode]);
    }
    if (record.kind == Kind::invoiceSummary)
        conditions += condition(u"FFTKONU", QString::number(record.part));
    return u"select * from %1 where "_s.arg(table.name) + conditions.join(u" AND "_s);
}

QString byNumber(const LedgerSale &sale, const Record &slip)
{
    const Table &table = tableOf(slip);
    return u"select * from %1 where "_s.arg(table.name) +
           condition(table.numberColumn, sale.header().*table.number);
}

QString referenceIn(const Record &slip, const RecordSet &row)
{
    return row.text(tableOf(slip).referenceColumn);
}

bool isOurs(const LedgerSale &sale, const Record &record, const RecordSet &row)
{
    const Table &table = tableOf(record);
    if (!table.numberColumn.isEmpty() &&
        row.text(table.numberColumn) != sale.header().*table.number)
        return false;
    if (record.kind == Kind::invoiceSummary) // its amounts follow from the invoice
        return true;
    if (record.line > 0 && !same(row.number(lineColumns(record).quantity),
                                 pricing::valueOf(lineOf(sale, record), SaleColumn::quantity)))
        return false;
    return same(row.number(table.amountColumn), amountOf(sale, record));
}

bool tellsSale(const LedgerSale &sale, const Record &slip, const RecordSet &row)
{
    if (slip.kind != Kind::invoice)
        return true;
    const QString &stock = sale.header().stockReference;
    return row.text(u"FATFISSAAT") == sale.header().time &&
           (stock.isEmpty() || row.number(u"FATFISSTKREFNO") == stock.toDouble());
}

bool isTills(const LedgerSale &sale, const Record &slip, const RecordSet &row)
{
    const QString table = tableOf(slip).name.toString();
    return row.text(table + u"SEVNO"_s) == u"999" &&
           row.value(table + u"TAR"_s).toDate() >=
               QDate::fromString(sale.header().today, u"dd.MM.yyyy"_s);
}

QString told(const Record &slip, const RecordSet &row)
{
    const Table &table = tableOf(slip);
    QString day = RecordSet::toText(row.value(table.name.toString() + u"TAR"_s).toDate());
    if (slip.kind == Kind::invoice)
        day += u' ' + row.text(u"FATFISSAAT");
    return u"kayıt %1, %2, %3"_s.arg(row.text(table.referenceColumn), day,
                                     amount::money(row.number(table.amountColumn)));
}

QString lastMovement(const LedgerSale &sale, const Record &figure)
{
    if (movesStock(figure))
        return u"select max(STKHARREFNO) AS TOTAL from  STKHAR where "_s +
               condition(u"STKHARSTKKOD", lineOf(sale, figure)[SaleColumn::stockCode]);
    return u"select max(CARHARREFNO) AS TOTAL from  CARHAR where "_s +
           condition(u"CARHARCARKOD", sale.header().customerCode);
}

const QString &ownMovement(const LedgerSale &sale, const Record &figure)
{
    return movesStock(figure) ? sale.header().stockReference : sale.header().accountReference;
}

} // namespace row_search
