#include "sales/posting.h"

#include "common/amount.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "sales/posting_statements.h"

using namespace Qt::StringLiterals;

namespace {

/// Monthly stock figures in the order the ledger keeps them: pieces, amount before discounts,
/// discount, net amount.
struct MonthFigure
{
    QStringView kind;
    SaleColumn column;
};
constexpr std::array<MonthFigure, 4> kStockMonth = {{{u"1", SaleColumn::quantity},
                                                     {u"6", SaleColumn::amount},
                                                     {u"8", SaleColumn::discount},
                                                     {u"7", SaleColumn::net}}};
constexpr std::array<QStringView, 2> kAccountMonth = {u"1", u"3"};

/// Grouping points are taken off, so that turning the comma into a point gives plain decimals.
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

ledger::Header headerOf(const SaleSettings &settings, const Sale &sale)
{
    const QDate today = sale.moment.date();
    const QTime time = sale.moment.time();
    ledger::Header h;
    h.today = RecordSet::toText(today);
    h.year = QString::number(today.year());
    h.month = QString::number(today.month());
    h.time = u"%1:%2"_s.arg(time.hour()).arg(time.minute());
    h.warehouse = settings.depo;
    h.priceNumber = settings.fiyatip;
    h.customerCode = settings.carikod;
    h.customerName = settings.cari;
    h.stockSlipType = settings.stkfistip;
    h.accountSlipType = settings.crfistip;
    h.cashierCode = sale.cashierCode;
    h.gross = ledger::decimal(sale.totals.gross);
    h.discount = ledger::decimal(sale.totals.discount);
    h.vat = ledger::decimal(sale.totals.vat);
    h.grand = ledger::decimal(sale.totals.grand);
    h.vatRate = commonVatRate(sale.lines);
    return h;
}

/// One posting under way.
class Posting
{
public:
    Posting(Program &program, const SaleSettings &settings, const Sale &sale)
        : m_program(program), m_sale(withoutGrouping(sale)), m_header(headerOf(settings, m_sale)),
          m_grand(amount::parse(m_sale.totals.grand).value_or(0.0))
    {}

    PostingResult run()
    {
        const DrawnCounter stock = drawCounter(ledger::kStockCounter);
        const DrawnCounter account = drawCounter(ledger::kAccountCounter);
        const DrawnCounter invoice = drawCounter(ledger::kInvoiceCounter);
        m_header.accountNumber = account.documentNumber;
        m_header.stockCounter = QString::number(stock.value);
        m_header.invoiceNumber = invoice.documentNumber;
        m_header.stockNumber = stock.documentNumber;

        postStock();
        postAccount();
        postInvoice();
        advance(stock, static_cast<double>(amount::narrow(stock.number()) + 1.0F));
        advance(account, account.number() + 1.0);
        advance(invoice, invoice.number() + 1.0);
        return m_result;
    }

private:
    struct DrawnCounter
    {
        ledger::Counter counter;
        bool readable = false;
        qlonglong value = 0;
        QString documentNumber;

        double number() const { return static_cast<double>(value); }
    };

    RecordSet read(const QString &statement) { return m_program.openCompany().execute(statement); }

    void write(const QString &statement)
    {
        m_program.openCompany().execute(statement);
        ++m_result.written;
    }

    /// One step of the posting: when it fails, the cashier is told which document lacks it and the
    /// next step goes on. A value that could not be read is never written back as if it were 0.
    template <typename Step>
    bool step(const QString &document, Step &&body)
    {
        return resumeNext([&] {
            try {
                body();
            } catch (const HostError &error) {
                ++m_result.failed;
                m_result.connectionLost |= error.connectionLost();
                if (!m_result.documents.contains(document))
                    m_result.documents += document;
                throw;
            }
        });
    }

    DrawnCounter drawCounter(const ledger::Counter &counter)
    {
        DrawnCounter drawn{counter, false, 0, {}};
        step(u"Evrak numaraları"_s, [&] {
            const RecordSet row = read(ledger::counterRow(counter));
            if (row.eof()) {
                m_program.warn(u"Evrakno Hatası..."_s);
            } else {
                drawn.value = qRound64(row.number(u"EVRNO"));
                drawn.documentNumber =
                    row.text(u"EVRONTAKI") + QString::number(drawn.value).rightJustified(6, u'0');
            }
            drawn.readable = true;
        });
        return drawn;
    }

    /// A counter that could not be read is left alone: advancing it from nothing would hand out
    /// old numbers again.
    void advance(const DrawnCounter &drawn, double next)
    {
        if (!drawn.readable)
            return;
        step(u"Evrak numaraları"_s,
             [&] { write(ledger::advanceCounter(drawn.counter, QString::number(next, 'f', 0))); });
    }

    void drawReference(const QString &document, QStringView column, QStringView table,
                       QString &reference)
    {
        step(document, [&] {
            const RecordSet highest = read(ledger::highestReference(column, table));
            const double last = highest.eof() ? 0.0 : highest.number(u"TOTAL");
            reference = QString::number(last + 1.0, 'f', 0);
        });
    }

    void postStock()
    {
        const QString document = named(u"Stok fişi"_s, m_header.stockNumber);
        drawReference(document, u"STKFISREFNO", u"STKFIS", m_header.stockReference);
        step(document, [&] { write(ledger::stockSlip(m_header)); });
        int number = 0;
        for (const SaleLine &line : m_sale.lines) {
            lowerBalance(line);
            for (const MonthFigure &figure : kStockMonth)
                addToStockMonth(line, figure);
            const ledger::Line figures(line, ++number);
            step(named(u"Stok hareketi"_s, figures.stockCode),
                 [&] { write(ledger::stockMovement(m_header, figures)); });
        }
    }

    void lowerBalance(const SaleLine &line)
    {
        const QString &code = line[SaleColumn::stockCode];
        step(named(u"Stok bakiyesi"_s, code), [&] {
            const double balance = read(host_queries::card(code)).number(u"STKBAKIYE");
            const double pieces = pricing::valueOf(line, SaleColumn::quantity);
            write(ledger::stockBalance(code, balance - pieces));
        });
    }

    void addToStockMonth(const SaleLine &line, const MonthFigure &figure)
    {
        const QString &code = line[SaleColumn::stockCode];
        const double value = pricing::valueOf(line, figure.column);
        step(named(u"Aylık stok değerleri"_s, code), [&] {
            const RecordSet month = read(ledger::stockMonth(m_header, code, figure.kind));
            write(month.eof() ? ledger::insertStockMonth(m_header, code, figure.kind, value)
                              : ledger::updateStockMonth(m_header, code, figure.kind,
                                                         month.number(u"STKALACAK") + value));
        });
    }

    void postAccount()
    {
        const QString document = named(u"Cari fişi"_s, m_header.accountNumber);
        drawReference(document, u"CARFISREFNO", u"CARFIS", m_header.accountReference);
        step(document, [&] { write(ledger::accountSlip(m_header)); });
        for (const QStringView kind : kAccountMonth)
            addToAccountMonth(kind);
        step(named(u"Cari bakiyesi"_s, m_header.customerCode), [&] {
            const RecordSet row = read(ledger::account(m_header));
            write(ledger::accountBalance(m_header, row.number(u"CARBORCTOP") + m_grand,
                                         row.number(u"CARBAKIYE") + m_grand));
        });
    }

    void addToAccountMonth(QStringView kind)
    {
        step(named(u"Aylık cari değerleri"_s, m_header.customerCode), [&] {
            const RecordSet month = read(ledger::accountMonth(m_header, kind));
            write(month.eof() ? ledger::insertAccountMonth(m_header, kind, m_grand)
                              : ledger::updateAccountMonth(m_header, kind,
                                                           month.number(u"carborc") + m_grand));
        });
    }

    void postInvoice()
    {
        const QString document = named(u"Fatura"_s, m_header.invoiceNumber);
        drawReference(document, u"FATFISREFNO", u"FATFIS", m_header.invoiceReference);
        step(document, [&] { write(ledger::invoice(m_header)); });
        int number = 0;
        for (const SaleLine &line : m_sale.lines) {
            const ledger::Line figures(line, ++number);
            step(named(u"Fatura satırı"_s, figures.stockCode),
                 [&] { write(ledger::invoiceLine(m_header, figures)); });
        }
        for (const ledger::Summary &row : summaries())
            step(named(u"Fatura toplamları"_s, m_header.invoiceNumber),
                 [&] { write(ledger::invoiceSummary(m_header, row)); });
        step(named(u"Cari hareketi"_s, m_header.accountNumber),
             [&] { write(ledger::accountMovement(m_header)); });
    }

    std::vector<ledger::Summary> summaries() const
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
        std::vector<ledger::Summary> rows;
        for (std::size_t i = 0; i < discount.size(); ++i)
            rows.push_back({QString::number(i + 1), u"Kal.İnd.%1 (%)"_s.arg(i + 1),
                            static_cast<double>(discount[i]), static_cast<double>(base[i]),
                            u"0"_s});
        // The ledger's reports expect 18 in the rate column of this row, whatever the rates are.
        rows.push_back({u"101"_s, u"KDV(%"_s + m_header.vatRate + u")"_s,
                        amount::parse(m_sale.totals.vat).value_or(0.0), m_grand, u"18"_s});
        return rows;
    }

    static QString named(const QString &document, const QString &number)
    {
        return number.isEmpty() ? document : document + u' ' + number;
    }

    Program &m_program;
    Sale m_sale;
    ledger::Header m_header;
    double m_grand;
    PostingResult m_result;
};

} // namespace

PostingResult faturakaydet(Program &program, const SaleSettings &settings, const Sale &sale)
{
    resumeNext(
        [&] { program.company(); }); // brings a lost connection back before the first statement
    return Posting(program, settings, sale).run();
}
