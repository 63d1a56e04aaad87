#include "sales/ledger_sale.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/settings.h"

using namespace Qt::StringLiterals;

namespace ledger {

namespace {

/// Monthly stock figures in the order the ledger keeps them: pieces, amount before discounts,
/// discount, net amount.
struct MonthFigure
{
    int kind;
    SaleColumn column;
};
constexpr std::array<MonthFigure, 4> kStockMonth = {{{1, SaleColumn::quantity},
                                                     {6, SaleColumn::amount},
                                                     {8, SaleColumn::discount},
                                                     {7, SaleColumn::net}}};
constexpr std::array<int, 2> kAccountMonth = {1, 3};

/// What differs between the three documents.
struct DocumentTraits
{
    QStringView counterName;
    Counter counter;
    QStringView table;
    QStringView referenceColumn;
    QString Header::*reference;
    QString Header::*number;
};
constexpr std::array<DocumentTraits, 3> kTraits = {
    {{u"Stok fişi", kStockCounter, u"STKFIS", u"STKFISREFNO", &Header::stockReference,
      &Header::stockNumber},
     {u"Cari fişi", kAccountCounter, u"CARFIS", u"CARFISREFNO", &Header::accountReference,
      &Header::accountNumber},
     {u"Fatura", kInvoiceCounter, u"FATFIS", u"FATFISREFNO", &Header::invoiceReference,
      &Header::invoiceNumber}}};

const DocumentTraits &traitsOf(Document document)
{
    return kTraits.at(static_cast<std::size_t>(document));
}

/// Tables in the order of Record::Kind.
constexpr std::array<QStringView, 13> kTables = {
    u"STKFIS", u"STKKART", u"STKMIZDEGER",  u"STKHAR", u"CARFIS",  u"CARMIZDEGER", u"CARKART",
    u"FATFIS", u"FATHAR",  u"FATFISTOPLAM", u"CARHAR", u"EVRAKNO", u"NUMARA"};

Sale withoutGrouping(Sale sale)
{
    for (SaleLine &line : sale.lines)
        for (const SaleColumn column : {SaleColumn::vatRate, SaleColumn::price, SaleColumn::amount,
                                        SaleColumn::discount, SaleColumn::net})
            line[column].remove(u'.');
    for (QString *total :
         {&sale.totals.gross, &sale.totals.vat, &sale.totals.discount, &sale.totals.grand})
        total->remove(u'.');
    return sale;
}

QString commonVatRate(const std::vector<SaleLine> &lines)
{
    const QString rate = lines.empty() ? QString() : lines.front()[SaleColumn::vatRate];
    for (const SaleLine &line : lines)
        if (line[SaleColumn::vatRate] != rate)
            return u"0"_s;
    return rate.isEmpty() ? u"0"_s : rate;
}

Header headerOf(const Settings &settings, const Sale &sale)
{
    const QDate today = sale.moment.date();
    const QTime time = sale.moment.time();
    Header h;
    h.today = RecordSet::toText(today);
    h.year = QString::number(today.year());
    h.month = QString::number(today.month());
    h.time = u"%1:%2"_s.arg(time.hour()).arg(time.minute());
    h.warehouse = settings.stok.depo;
    h.priceNumber = settings.stok.fiyatip;
    const bool usual = sale.customer.code.isEmpty();
    h.customerCode = usual ? settings.stok.carikod : sale.customer.code;
    h.customerName = usual ? settings.stok.cari : sale.customer.name;
    h.stockSlipType = settings.stok.stkfistip;
    h.accountSlipType = settings.stok.crfistip;
    h.cashierCode = sale.cashierCode;
    h.gross = decimal(sale.totals.gross);
    h.discount = decimal(sale.totals.discount);
    h.vat = decimal(sale.totals.vat);
    h.grand = decimal(sale.totals.grand);
    h.vatRate = commonVatRate(sale.lines);
    return h;
}

SaleColumn monthColumn(int kind)
{
    for (const MonthFigure &figure : kStockMonth)
        if (figure.kind == kind)
            return figure.column;
    return SaleColumn::net;
}

QString named(const QString &document, const QString &number)
{
    return number.isEmpty() ? document : document + u' ' + number;
}

} // namespace

bool Record::isRow() const
{
    switch (kind) {
    case Kind::stockBalance:
    case Kind::stockMonth:
    case Kind::accountMonth:
    case Kind::accountBalance:
    case Kind::counter:
    case Kind::number:
        return false;
    default:
        return true;
    }
}

QString Record::key() const
{
    QString text = kTables.at(static_cast<std::size_t>(kind)).toString();
    for (const int place : {line, part})
        text += place > 0 ? u'/' + QString::number(place) : QString();
    return text;
}

LedgerSale::LedgerSale(const Settings &settings, Sale sale)
    : m_sale(withoutGrouping(std::move(sale))), m_header(headerOf(settings, m_sale)),
      m_grand(amount::parse(m_sale.totals.grand).value_or(0.0))
{
    makeSummaries();
}

LedgerSale::LedgerSale(Header header, std::array<Drawn, 3> counters, Sale sale)
    : m_sale(withoutGrouping(std::move(sale))), m_header(std::move(header)),
      m_drawn(std::move(counters)), m_grand(amount::parse(m_sale.totals.grand).value_or(0.0))
{
    makeSummaries();
}

std::vector<Record> LedgerSale::records() const
{
    using Kind = Record::Kind;
    const int lines = static_cast<int>(m_sale.lines.size());
    std::vector<Record> all = {{Kind::stockSlip}};
    for (int line = 1; line <= lines; ++line) {
        all.push_back({Kind::stockBalance, line});
        for (const MonthFigure &figure : kStockMonth)
            all.push_back({Kind::stockMonth, line, figure.kind});
        all.push_back({Kind::stockMovement, line});
    }
    all.push_back({Kind::accountSlip});
    for (const int kind : kAccountMonth)
        all.push_back({Kind::accountMonth, 0, kind});
    all.push_back({Kind::accountBalance});
    all.push_back({Kind::invoice});
    for (int line = 1; line <= lines; ++line)
        all.push_back({Kind::invoiceLine, line});
    for (const Summary &row : m_summaries)
        all.push_back({Kind::invoiceSummary, 0, row.subject.toInt()});
    all.push_back({Kind::accountMovement});
    return all;
}

std::array<Record, 3> LedgerSale::counterRecords()
{
    using Kind = Record::Kind;
    return {{{Kind::counter, 0, 1}, {Kind::counter, 0, 2}, {Kind::counter, 0, 3}}};
}

Record LedgerSale::numberOf(Document document)
{
    return {Record::Kind::number, 0, static_cast<int>(document) + 1};
}

Record LedgerSale::slipOf(Document document)
{
    switch (document) {
    case Document::stock:
        return {Record::Kind::stockSlip};
    case Document::account:
        return {Record::Kind::accountSlip};
    default:
        return {Record::Kind::invoice};
    }
}

const QString &LedgerSale::reference(Document document) const
{
    return m_header.*traitsOf(document).reference;
}

void LedgerSale::setReference(Document document, const QString &reference)
{
    m_header.*traitsOf(document).reference = reference;
}

LedgerSale LedgerSale::quotable() const
{
    LedgerSale copy = *this;
    const auto doubleQuotes = [](QString &text) { text.replace(u'\'', u"''"_s); };
    for (SaleLine &line : copy.m_sale.lines)
        for (QString &cell : line.cells)
            doubleQuotes(cell);
    for (QString Header::*text : {&Header::warehouse, &Header::priceNumber, &Header::customerCode,
                                  &Header::customerName, &Header::cashierCode})
        doubleQuotes(copy.m_header.*text);
    return copy;
}

QString LedgerSale::highestReference(Document document)
{
    const DocumentTraits &traits = traitsOf(document);
    return ledger::highestReference(traits.referenceColumn, traits.table);
}

const Drawn &LedgerSale::drawn(Document document) const
{
    return m_drawn.at(static_cast<std::size_t>(document));
}

void LedgerSale::setDrawn(Document document, const Drawn &drawn)
{
    m_drawn.at(static_cast<std::size_t>(document)) = drawn;
    m_header.*traitsOf(document).number = drawn.number;
    if (document == Document::stock)
        m_header.stockCounter = QString::number(drawn.value);
}

const Counter &LedgerSale::counter(Document document)
{
    return traitsOf(document).counter;
}

Drawn LedgerSale::drawnFrom(const RecordSet &row)
{
    Drawn drawn;
    drawn.readable = true;
    if (row.eof())
        return drawn;
    drawn.value = qRound64(row.number(u"EVRNO"));
    drawn.number = row.text(u"EVRONTAKI") + QString::number(drawn.value).rightJustified(6, u'0');
    return drawn;
}

QString LedgerSale::nextValue(Document document) const
{
    const auto value = static_cast<double>(drawn(document).value);
    // The stock counter has always been advanced as a single.
    const double next = document == Document::stock
                            ? static_cast<double>(amount::narrow(value) + 1.0F)
                            : value + 1.0;
    return QString::number(next, 'f', 0);
}

std::vector<Document> LedgerSale::referencesOf(const Record &record)
{
    using Kind = Record::Kind;
    switch (record.kind) {
    case Kind::stockSlip:
    case Kind::stockMovement:
        return {Document::stock};
    case Kind::accountSlip:
    case Kind::accountMovement:
        return {Document::account};
    case Kind::invoice: // names its stock slip
        return {Document::invoice, Document::stock};
    case Kind::invoiceLine:
    case Kind::invoiceSummary:
        return {Document::invoice};
    default:
        return {};
    }
}

bool LedgerSale::bearsNumber(const Record &record, Document document)
{
    using Kind = Record::Kind;
    switch (document) {
    case Document::stock:
        return record.kind == Kind::stockSlip || record.kind == Kind::invoice;
    case Document::account:
        return record.kind == Kind::accountSlip;
    case Document::invoice:
        return record.kind == Kind::invoice || record.kind == Kind::invoiceSummary ||
               record.kind == Kind::accountMovement;
    }
    return false;
}

QString LedgerSale::counterName(Document document)
{
    return traitsOf(document).counterName.toString();
}

QString LedgerSale::name(const Record &record) const
{
    using Kind = Record::Kind;
    const auto ofLine = [&](const QString &document) {
        return u"%1 %2, %3. satır"_s.arg(document, lineOf(record)[SaleColumn::stockCode],
                                         QString::number(record.line));
    };
    const QString part = QString::number(record.part);
    switch (record.kind) {
    case Kind::stockSlip:
        return named(u"Stok fişi"_s, m_header.stockNumber);
    case Kind::stockBalance:
        return u"Stok bakiyesi %1 (%2 düşülecek)"_s.arg(lineOf(record)[SaleColumn::stockCode],
                                                        lineOf(record)[SaleColumn::quantity]);
    case Kind::stockMonth:
        return u"Aylık stok değeri %1, tür %2 (%3 eklenecek)"_s.arg(
            lineOf(record)[SaleColumn::stockCode], part, lineOf(record)[monthColumn(record.part)]);
    case Kind::stockMovement:
        return ofLine(u"Stok hareketi"_s);
    case Kind::accountSlip:
        return named(u"Cari fişi"_s, m_header.accountNumber);
    case Kind::accountMonth:
        return u"Aylık cari değeri %1, tür %2 (%3 eklenecek)"_s.arg(m_header.customerCode, part,
                                                                    m_sale.totals.grand);
    case Kind::accountBalance:
        return u"Cari bakiyesi %1 (%2 eklenecek)"_s.arg(m_header.customerCode, m_sale.totals.grand);
    case Kind::invoice:
        return named(u"Fatura"_s, m_header.invoiceNumber);
    case Kind::invoiceLine:
        return ofLine(u"Fatura satırı"_s);
    case Kind::invoiceSummary:
        for (const Summary &row : m_summaries)
            if (row.subject == part)
                return named(u"Fatura toplamı"_s, m_header.invoiceNumber) + u", "_s + row.heading;
        return {};
    case Kind::accountMovement:
        return named(u"Cari hareketi"_s, m_header.accountNumber);
    case Kind::counter:
        return counterName(kDocuments.at(static_cast<std::size_t>(record.part) - 1)) + u" sayacı"_s;
    case Kind::number: {
        const Document document = kDocuments.at(static_cast<std::size_t>(record.part) - 1);
        return named(counterName(document), m_header.*traitsOf(document).number);
    }
    }
    return {};
}

QString LedgerSale::insertion(const Record &record) const
{
    using Kind = Record::Kind;
    for (const Document document : referencesOf(record))
        if (reference(document).isEmpty())
            throw HostError(HostError::kNoRow, u"kayıt numarası okunamadı, gönderilmedi"_s);
    switch (record.kind) {
    case Kind::stockSlip:
        return stockSlip(m_header);
    case Kind::stockMovement:
        return stockMovement(m_header, Line(lineOf(record), record.line));
    case Kind::accountSlip:
        return accountSlip(m_header);
    case Kind::invoice:
        return invoice(m_header);
    case Kind::invoiceLine:
        return invoiceLine(m_header, Line(lineOf(record), record.line));
    case Kind::invoiceSummary:
        for (const Summary &row : m_summaries)
            if (row.subject.toInt() == record.part)
                return invoiceSummary(m_header, row);
        return {};
    case Kind::accountMovement:
        return accountMovement(m_header);
    default:
        return {};
    }
}

QString LedgerSale::reading(const Record &record) const
{
    using Kind = Record::Kind;
    const QString kind = QString::number(record.part);
    switch (record.kind) {
    case Kind::stockBalance:
        return host_queries::card(lineOf(record)[SaleColumn::stockCode]);
    case Kind::stockMonth:
        return stockMonth(m_header, lineOf(record)[SaleColumn::stockCode], kind);
    case Kind::accountMonth:
        return accountMonth(m_header, kind);
    case Kind::accountBalance:
        return account(m_header);
    default:
        return {};
    }
}

QString LedgerSale::figureColumn(const Record &record)
{
    using Kind = Record::Kind;
    switch (record.kind) {
    case Kind::stockBalance:
        return u"STKBAKIYE"_s;
    case Kind::stockMonth:
        return u"STKALACAK"_s;
    case Kind::accountMonth:
        return u"carborc"_s;
    default:
        return u"CARBAKIYE"_s;
    }
}

double LedgerSale::addend(const Record &record) const
{
    using Kind = Record::Kind;
    switch (record.kind) {
    case Kind::stockBalance:
        return -pricing::valueOf(lineOf(record), SaleColumn::quantity);
    case Kind::stockMonth:
        return pricing::valueOf(lineOf(record), monthColumn(record.part));
    default:
        return m_grand;
    }
}

std::optional<double> LedgerSale::figureIn(const Record &record, const RecordSet &row)
{
    return row.eof() ? std::nullopt : std::optional(row.number(figureColumn(record)));
}

QString LedgerSale::raising(const Record &record, const RecordSet &row) const
{
    using Kind = Record::Kind;
    const QString kind = QString::number(record.part);
    const double more = addend(record);
    switch (record.kind) {
    case Kind::stockBalance:
        return stockBalance(lineOf(record)[SaleColumn::stockCode], row.number(u"STKBAKIYE") + more);
    case Kind::stockMonth: {
        const QString &code = lineOf(record)[SaleColumn::stockCode];
        return row.eof() ? insertStockMonth(m_header, code, kind, more)
                         : updateStockMonth(m_header, code, kind, row.number(u"STKALACAK") + more);
    }
    case Kind::accountMonth:
        return row.eof() ? insertAccountMonth(m_header, kind, more)
                         : updateAccountMonth(m_header, kind, row.number(u"carborc") + more);
    default:
        return accountBalance(m_header, row.number(u"CARBORCTOP") + more,
                              row.number(u"CARBAKIYE") + more);
    }
}

const SaleLine &LedgerSale::lineOf(const Record &record) const
{
    return m_sale.lines.at(static_cast<std::size_t>(record.line) - 1);
}

void LedgerSale::makeSummaries()
{
    std::array<float, 3> discount{};
    std::array<float, 3> base{};
    for (const SaleLine &line : m_sale.lines) {
        const pricing::Discounts parts = pricing::discountsOf(line.tag);
        double left = pricing::valueOf(line, SaleColumn::amount);
        for (std::size_t i = 0; i < discount.size(); ++i) {
            const auto part = static_cast<double>(parts.amount[i]);
            base[i] = amount::narrow(static_cast<double>(base[i]) + left);
            discount[i] = amount::narrow(static_cast<double>(discount[i]) + part);
            left -= part;
        }
    }
    for (std::size_t i = 0; i < discount.size(); ++i)
        m_summaries.push_back({QString::number(i + 1), u"Kal.İnd.%1 (%)"_s.arg(i + 1),
                               static_cast<double>(discount[i]), static_cast<double>(base[i]),
                               u"0"_s});
    // The ledger's reports expect 18 in the rate column of this row, whatever the rates are.
    m_summaries.push_back({u"101"_s, u"KDV(%"_s + m_header.vatRate + u")"_s,
                           amount::parse(m_sale.totals.vat).value_or(0.0), m_grand, u"18"_s});
}

} // namespace ledger
