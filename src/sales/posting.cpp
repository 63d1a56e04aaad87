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

ledger::Header headerOf(const Settings &settings, const Sale &sale)
{
    const QDate today = sale.moment.date();
    const QTime time = sale.moment.time();
    ledger::Header h;
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
    h.gross = ledger::decimal(sale.totals.gross);
    h.discount = ledger::decimal(sale.totals.discount);
    h.vat = ledger::decimal(sale.totals.vat);
    h.grand = ledger::decimal(sale.totals.grand);
    h.vatRate = commonVatRate(sale.lines);
    return h;
}

/// A document counter as the posting found it.
struct DrawnCounter
{
    ledger::Counter counter;
    QString name;  ///< "Fatura"
    QString bears; ///< the documents that bear its number
    bool readable = false;
    qlonglong value = 0;
    QString documentNumber = {};

    double number() const { return static_cast<double>(value); }
};

/// One posting under way.
class Posting
{
public:
    Posting(Program &program, const Settings &settings, const Sale &sale, PostingProgress &progress)
        : m_program(program), m_progress(progress), m_sale(withoutGrouping(sale)),
          m_header(headerOf(settings, m_sale)),
          m_grand(amount::parse(m_sale.totals.grand).value_or(0.0))
    {
        constexpr int ofEverySale = 20;
        constexpr int ofEveryLine = 7;
        m_progress = {0, ofEverySale + ofEveryLine * static_cast<int>(m_sale.lines.size())};
    }

    PostingResult run()
    {
        DrawnCounter stock{ledger::kStockCounter, u"Stok fişi"_s,
                           u"stok fişi ve faturadaki fiş bağı"_s};
        DrawnCounter account{ledger::kAccountCounter, u"Cari fişi"_s, u"cari fişi"_s};
        DrawnCounter invoice{ledger::kInvoiceCounter, u"Fatura"_s,
                             u"fatura, fatura toplamları ve cari hareketi"_s};
        for (DrawnCounter *counter : {&stock, &account, &invoice})
            draw(*counter);
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
    RecordSet read(const QString &statement) { return m_program.openCompany().execute(statement); }

    /// Numbers of documents hang on these: a read that failed is tried once more.
    RecordSet readStubbornly(const QString &statement)
    {
        RecordSet rows;
        if (!resumeNext([&] { rows = read(statement); }))
            rows = read(statement);
        return rows;
    }

    void write(const QString &statement)
    {
        HostConnection &host = m_program.openCompany();
        m_sent = true;
        host.execute(statement);
        ++m_result.written;
    }

    /// One step of the posting; the next goes on when it fails, and `missing` notes what the ledger
    /// lacks then. A value that could not be read is never written back as if it were 0.
    template <typename Step, typename Missing>
    void step(Step &&body, Missing &&missing)
    {
        ++m_progress.step;
        m_sent = false;
        resumeNext([&] {
            try {
                body();
            } catch (const HostError &error) {
                m_result.connectionLost |= error.connectionLost();
                missing(error);
                throw;
            }
        });
    }

    /// A write whose answer was lost may have been done.
    bool uncertain(const HostError &error)
    {
        const bool lost = m_sent && error.connectionLost();
        m_result.uncertain += lost ? 1 : 0;
        return lost;
    }

    /// A step that writes one record.
    template <typename Step>
    void record(const QString &name, Step &&body)
    {
        step(body, [&](const HostError &error) {
            m_result.records += uncertain(error) ? u"%1: yazılmamış olabilir"_s.arg(name)
                                                 : u"%1: yazılamadı (%2)"_s.arg(name, error.text());
        });
    }

    void draw(DrawnCounter &drawn)
    {
        const auto readRow = [&] {
            const RecordSet row = readStubbornly(ledger::counterRow(drawn.counter));
            if (row.eof()) {
                m_program.warn(u"Evrakno Hatası..."_s);
            } else {
                drawn.value = qRound64(row.number(u"EVRNO"));
                drawn.documentNumber =
                    row.text(u"EVRONTAKI") + QString::number(drawn.value).rightJustified(6, u'0');
            }
            drawn.readable = true;
        };
        step(readRow, [&](const HostError &error) {
            m_result.counters += u"%1 sayacı okunamadı ve ilerletilmedi: %2 numarasız (%3)"_s.arg(
                drawn.name, drawn.bears, error.text());
        });
    }

    /// A counter that could not be read is left alone: advancing it from nothing would hand out
    /// old numbers again.
    void advance(const DrawnCounter &drawn, double next)
    {
        const auto writeNext = [&] {
            if (drawn.readable)
                write(ledger::advanceCounter(drawn.counter, QString::number(next, 'f', 0)));
        };
        step(writeNext, [&](const HostError &error) {
            const QString text =
                uncertain(error)
                    ? u"%1 sayacı ilerletilmemiş olabilir: %2 numarası yeniden verilebilir"_s
                    : u"%1 sayacı ilerletilemedi: %2 numarası sonraki satışa yeniden verilir"_s;
            m_result.counters += text.arg(drawn.name, drawn.documentNumber);
        });
    }

    /// The next reference number of a table. When it cannot be read the number stays empty, and
    /// what needs it is not sent.
    void drawReference(QStringView column, QStringView table, QString &reference)
    {
        const auto readHighest = [&] {
            const RecordSet highest = readStubbornly(ledger::highestReference(column, table));
            const double last = highest.eof() ? 0.0 : highest.number(u"TOTAL");
            reference = QString::number(last + 1.0, 'f', 0);
        };
        step(readHighest, [](const HostError &) {});
    }

    /// Throws when a reference number is missing: with 0 in its place the rows of a document would
    /// belong to any other that lost its number.
    static void need(const QString &reference)
    {
        if (reference.isEmpty())
            throw HostError(HostError::kNoRow, u"kayıt numarası okunamadı, gönderilmedi"_s);
    }

    void postStock()
    {
        drawReference(u"STKFISREFNO", u"STKFIS", m_header.stockReference);
        record(named(u"Stok fişi"_s, m_header.stockNumber), [&] {
            need(m_header.stockReference);
            write(ledger::stockSlip(m_header));
        });
        int number = 0;
        for (const SaleLine &line : m_sale.lines) {
            lowerBalance(line);
            for (const MonthFigure &figure : kStockMonth)
                addToStockMonth(line, figure);
            const ledger::Line figures(line, ++number);
            record(lineName(u"Stok hareketi"_s, figures), [&] {
                need(m_header.stockReference);
                write(ledger::stockMovement(m_header, figures));
            });
        }
    }

    void lowerBalance(const SaleLine &line)
    {
        const QString &code = line[SaleColumn::stockCode];
        record(u"Stok bakiyesi %1 (%2 düşülecek)"_s.arg(code, line[SaleColumn::quantity]), [&] {
            const double balance = read(host_queries::card(code)).number(u"STKBAKIYE");
            const double pieces = pricing::valueOf(line, SaleColumn::quantity);
            write(ledger::stockBalance(code, balance - pieces));
        });
    }

    void addToStockMonth(const SaleLine &line, const MonthFigure &figure)
    {
        const QString &code = line[SaleColumn::stockCode];
        const double value = pricing::valueOf(line, figure.column);
        record(u"Aylık stok değeri %1, tür %2 (%3 eklenecek)"_s.arg(code, figure.kind,
                                                                    line[figure.column]),
               [&] {
                   const RecordSet month = read(ledger::stockMonth(m_header, code, figure.kind));
                   write(month.eof()
                             ? ledger::insertStockMonth(m_header, code, figure.kind, value)
                             : ledger::updateStockMonth(m_header, code, figure.kind,
                                                        month.number(u"STKALACAK") + value));
               });
    }

    void postAccount()
    {
        drawReference(u"CARFISREFNO", u"CARFIS", m_header.accountReference);
        record(named(u"Cari fişi"_s, m_header.accountNumber), [&] {
            need(m_header.accountReference);
            write(ledger::accountSlip(m_header));
        });
        for (const QStringView kind : kAccountMonth)
            addToAccountMonth(kind);
        record(u"Cari bakiyesi %1 (%2 eklenecek)"_s.arg(m_header.customerCode, m_sale.totals.grand),
               [&] {
                   const RecordSet row = read(ledger::account(m_header));
                   write(ledger::accountBalance(m_header, row.number(u"CARBORCTOP") + m_grand,
                                                row.number(u"CARBAKIYE") + m_grand));
               });
    }

    void addToAccountMonth(QStringView kind)
    {
        record(u"Aylık cari değeri %1, tür %2 (%3 eklenecek)"_s.arg(m_header.customerCode, kind,
                                                                    m_sale.totals.grand),
               [&] {
                   const RecordSet month = read(ledger::accountMonth(m_header, kind));
                   write(month.eof() ? ledger::insertAccountMonth(m_header, kind, m_grand)
                                     : ledger::updateAccountMonth(
                                           m_header, kind, month.number(u"carborc") + m_grand));
               });
    }

    void postInvoice()
    {
        drawReference(u"FATFISREFNO", u"FATFIS", m_header.invoiceReference);
        record(named(u"Fatura"_s, m_header.invoiceNumber), [&] {
            need(m_header.invoiceReference);
            need(m_header.stockReference); // the invoice names its stock slip
            write(ledger::invoice(m_header));
        });
        int number = 0;
        for (const SaleLine &line : m_sale.lines) {
            const ledger::Line figures(line, ++number);
            record(lineName(u"Fatura satırı"_s, figures), [&] {
                need(m_header.invoiceReference);
                write(ledger::invoiceLine(m_header, figures));
            });
        }
        for (const ledger::Summary &row : summaries())
            record(named(u"Fatura toplamı"_s, m_header.invoiceNumber) + u", "_s + row.heading, [&] {
                need(m_header.invoiceReference);
                write(ledger::invoiceSummary(m_header, row));
            });
        record(named(u"Cari hareketi"_s, m_header.accountNumber), [&] {
            need(m_header.accountReference);
            write(ledger::accountMovement(m_header));
        });
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

    static QString lineName(const QString &document, const ledger::Line &line)
    {
        return u"%1 %2, %3. satır"_s.arg(document, line.stockCode, line.number);
    }

    Program &m_program;
    PostingProgress &m_progress;
    Sale m_sale;
    ledger::Header m_header;
    double m_grand;
    PostingResult m_result;
    bool m_sent = false; ///< the write of this step has left for the server
};

} // namespace

PostingResult faturakaydet(Program &program, const Settings &settings, const Sale &sale,
                           PostingProgress &progress)
{
    resumeNext(
        [&] { program.company(); }); // brings a lost connection back before the first statement
    return Posting(program, settings, sale, progress).run();
}
