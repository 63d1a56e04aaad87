#include "sales/journal/sale_journal.h"

#include "common/turkish.h"
#include "sales/journal/header_text.h"
#include "sales/journal/journal_words.h"
#include "sales/journal/kurus.h"

#include <QDeadlineTimer>
#include <QSysInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using State = JournaledSale::State;

/// In the order of State.
constexpr std::array<QStringView, 5> kStates = {journal::kUnderWay, journal::kWhole,
                                                journal::kIncomplete, journal::kUncertain,
                                                journal::kByHand};
/// In the order of Sent.
constexpr std::array<QStringView, 5> kSent = {u"gonderildi", u"yazildi", u"red", u"yanitsiz",
                                              u"gonderilmedi"};

/// Columns of a sale line, in the order of the table.
constexpr std::pair<QStringView, SaleColumn> kCells[] = {
    {u"barkod", SaleColumn::barcode},   {u"stok", SaleColumn::stockCode},
    {u"ad", SaleColumn::name},          {u"kdv", SaleColumn::vatRate},
    {u"birim", SaleColumn::unit},       {u"fiyat", SaleColumn::price},
    {u"miktar", SaleColumn::quantity},  {u"tutar", SaleColumn::amount},
    {u"indirim", SaleColumn::discount}, {u"net", SaleColumn::net}};

template <std::size_t Count>
std::size_t placeOf(const std::array<QStringView, Count> &words, const QString &word)
{
    const auto found = std::find(words.begin(), words.end(), QStringView(word));
    return found == words.end() ? 0 : static_cast<std::size_t>(found - words.begin());
}

QStringView wordOf(State state)
{
    return kStates.at(static_cast<std::size_t>(state));
}

/// Tells one run of the machine from the next: by its number, or by the second it began where the
/// system gives none.
QString boot()
{
    const QByteArray number = QSysInfo::bootUniqueId();
    if (!number.isEmpty())
        return QString::fromLatin1(number);
    const qint64 up = QDeadlineTimer::current().deadline() / 1000;
    return QString::number(QDateTime::currentSecsSinceEpoch() - up);
}

bool sameBoot(const QString &then)
{
    constexpr qlonglong set = 120; // seconds by which a clock may have been set since
    const QString now = boot();
    bool number = false;
    const qlonglong began = then.toLongLong(&number);
    return now == then || (number && qAbs(now.toLongLong() - began) < set);
}

/// Net amount and VAT of each rate. The VAT of a sale is what stood on the screen; the few kuruş
/// that rounding its rates apart leaves go to the greatest.
struct RateSums
{
    double net = 0.0;
    double vat = 0.0;
};

JournalFile::Changes rateRows(qint64 number, const Sale &sale)
{
    std::map<QString, RateSums> rates;
    for (const SaleLine &line : sale.lines) {
        const double net = pricing::valueOf(line, SaleColumn::net);
        RateSums &sums = rates[line[SaleColumn::vatRate]];
        sums.net += net;
        sums.vat += pricing::valueOf(line, SaleColumn::vatRate) / 100.0 * net;
    }
    qint64 left = kurus::of(sale.totals.vat);
    const RateSums *greatest = nullptr;
    for (const auto &[rate, sums] : rates) {
        left -= kurus::of(sums.vat);
        if (!greatest || sums.vat > greatest->vat)
            greatest = &sums;
    }
    JournalFile::Changes rows;
    for (const auto &[rate, sums] : rates) {
        const qint64 vat = kurus::of(sums.vat) + (&sums == greatest ? left : 0);
        rows.push_back(JournalFile::insertion(u"oran", {{u"satis", number},
                                                        {u"oran", rate},
                                                        {u"matrah", kurus::of(sums.net)},
                                                        {u"kdv", vat}}));
    }
    return rows;
}

JournalFile::Change lineRow(qint64 number, int place, const SaleLine &line)
{
    JournalFile::Cells cells = {{u"satis", number},
                                {u"sira", place},
                                {u"iskonto", line.tag},
                                {u"aranan", turkish::lower(line[SaleColumn::name])}};
    for (const auto &[column, cell] : kCells)
        cells.emplace_back(column, line[cell]);
    return JournalFile::insertion(u"kalem", cells);
}

JournalFile::Changes saleRows(qint64 number, int list, const Sale &sale,
                              const ledger::LedgerSale &inLedger, const QString &books)
{
    const pricing::Totals &totals = sale.totals;
    JournalFile::Changes rows = {JournalFile::insertion(
        u"satis",
        {{u"no", number},
         {u"an", JournalFile::momentText(sale.moment)},
         {u"acilis", boot()},
         {u"liste", list},
         {u"kasiyerkod", sale.cashierCode},
         {u"kasiyer", sale.cashierName},
         {u"brut", kurus::of(totals.gross)},
         {u"indirim", kurus::of(totals.discount)},
         {u"kdv", kurus::of(totals.vat)},
         {u"genel", kurus::of(totals.grand)},
         {u"toplamlar",
          QStringList{totals.gross, totals.vat, totals.grand, totals.discount}.join(u' ')},
         {u"nakit", sale.cash},
         {u"paraustu", sale.change},
         {u"odeme",
          (sale.payment == Payment::card ? journal::kCard : journal::kCashPaid).toString()},
         {u"musterikod", sale.customer.code},
         {u"musteri", sale.customer.name},
         {u"defter", header_text::of(inLedger)},
         {u"durum", journal::kUnderWay.toString()},
         {u"muhasebe", books}})};
    int place = 0;
    for (const SaleLine &line : sale.lines)
        rows.push_back(lineRow(number, ++place, line));
    for (JournalFile::Change &rate : rateRows(number, sale))
        rows.push_back(std::move(rate));
    return rows;
}

} // namespace

bool JournaledSale::reachedLedger(bool perhaps) const
{
    return std::any_of(marks.begin(), marks.end(), [perhaps](const auto &mark) {
        const Sent sent = mark.second.sent;
        return sent == Sent::done || (perhaps && (sent == Sent::waiting || sent == Sent::unknown));
    });
}

qint64 SaleJournal::begin(int list, const Sale &sale, const ledger::LedgerSale &inLedger)
{
    m_marks = 0;
    const RecordSet last = m_file.read(u"SELECT coalesce(max(no),0) AS son FROM satis"_s);
    if (last.eof())
        return 0;
    const qint64 number = qRound64(last.number(u"son")) + 1;
    m_lasting = false;
    return m_file.write(saleRows(number, list, sale, inLedger, m_file.ledger())) ? number : 0;
}

void SaleJournal::resume(qint64 number)
{
    const RecordSet last =
        m_file.read(u"SELECT coalesce(max(no),0) AS son FROM gonderi WHERE satis=%1"_s.arg(number));
    m_marks = last.eof() ? 0 : qRound(last.number(u"son"));
}

/// The first reference comes right before the first statement that writes: by then the sale must
/// have reached the disk, or a power cut would leave its list to be sold again.
void SaleJournal::drawn(qint64 number, const ledger::LedgerSale &sale)
{
    const bool writesNext = !m_lasting && !sale.header().stockReference.isEmpty();
    m_lasting |= writesNext;
    m_file.write({{u"UPDATE satis SET defter=?,fatura=? WHERE no=?"_s,
                   {header_text::of(sale), sale.header().invoiceNumber, number}}},
                 writesNext ? JournalFile::Lasting::atOnce : JournalFile::Lasting::fromNextSync);
}

/// Some seventy times in a posting: the text stays the same from mark to mark.
void SaleJournal::mark(qint64 number, const ledger::Record &record, Sent sent,
                       const QString &statement, std::optional<double> from, const QString &words)
{
    static const QString insertion =
        u"INSERT INTO gonderi (satis,no,kayit,durum,ifade,eski,soz) VALUES (?,?,?,?,?,?,?)"_s;
    const QVariant figure = from ? QVariant(*from) : QVariant();
    m_file.write(
        {{insertion,
          {number, ++m_marks, record.key(), kSent.at(static_cast<std::size_t>(sent)).toString(),
           statement, figure, words}}});
}

void SaleJournal::sending(qint64 number, const ledger::Record &record, const QString &statement,
                          std::optional<double> from)
{
    mark(number, record, Sent::waiting, statement, from, {});
}

void SaleJournal::answered(qint64 number, const ledger::Record &record, Sent sent,
                           const QString &words)
{
    mark(number, record, sent, {}, {}, words);
}

void SaleJournal::end(qint64 number, State state, const JournalFile::Changes &along)
{
    JournalFile::Changes changes = along;
    changes.push_back(
        {u"UPDATE satis SET durum=? WHERE no=?"_s, {wordOf(state).toString(), number}});
    if (state == State::whole)
        changes.push_back({u"DELETE FROM gonderi WHERE satis=?"_s, {number}});
    m_file.write(changes);
}

void SaleJournal::forget(qint64 number)
{
    JournalFile::Changes changes = {{u"DELETE FROM satis WHERE no=?"_s, {number}}};
    for (const QStringView table : {u"kalem", u"oran", u"gonderi"})
        changes.push_back({u"DELETE FROM %1 WHERE satis=?"_s.arg(table), {number}});
    m_file.write(changes);
}

void SaleJournal::setReceiptNumber(qint64 number, const QString &receipt)
{
    m_file.write({{u"UPDATE satis SET fis=? WHERE no=?"_s, {receipt, number}}});
}

QString SaleJournal::openCondition(Ledgers ledgers) const
{
    QString condition = journal::kOpenCondition.toString();
    if (ledgers == Ledgers::connected)
        condition += u" AND muhasebe="_s + JournalFile::quoted(m_file.ledger());
    return condition;
}

std::vector<JournaledSale> SaleJournal::openSales(Ledgers ledgers) const
{
    return salesWhere(openCondition(ledgers));
}

/// Asked before every posting: incomplete sales may be many, and few of them matter to it.
std::vector<JournaledSale> SaleJournal::unnumbered() const
{
    QStringList counters;
    for (const ledger::Record &counter : ledger::LedgerSale::counterRecords())
        counters += JournalFile::quoted(counter.key());
    return salesWhere(
        openCondition(Ledgers::connected) +
        u" AND (durum<>'%1' OR (SELECT count(DISTINCT kayit) FROM gonderi WHERE satis=satis.no AND "
        "kayit IN (%2) AND gonderi.durum='%3')<%4)"_s.arg(
            journal::kIncomplete, counters.join(u','), kSent[static_cast<std::size_t>(Sent::done)],
            QString::number(counters.size())));
}

std::vector<JournaledSale> SaleJournal::salesWhere(const QString &condition) const
{
    std::vector<JournaledSale> sales;
    RecordSet rows = m_file.read(u"SELECT * FROM satis WHERE %1 ORDER BY no"_s.arg(condition));
    for (; !rows.eof(); rows.moveNext()) {
        JournaledSale &sale = sales.emplace_back(saleIn(rows));
        readLines(sale);
        readMarks(sale);
    }
    return sales;
}

int SaleJournal::openCount() const
{
    return static_cast<int>(
        m_file.read(u"SELECT no FROM satis WHERE "_s + openCondition(Ledgers::connected))
            .rowCount());
}

std::optional<JournaledSale> SaleJournal::sale(qint64 number) const
{
    const RecordSet row = m_file.read(u"SELECT * FROM satis WHERE no=%1"_s.arg(number));
    if (row.eof())
        return {};
    JournaledSale sale = saleIn(row);
    readLines(sale);
    readMarks(sale);
    return sale;
}

bool SaleJournal::knows(const QString &invoice) const
{
    return !m_file
                .read(u"SELECT no FROM satis WHERE fatura=%1 AND muhasebe=%2"_s.arg(
                    JournalFile::quoted(invoice), JournalFile::quoted(m_file.ledger())))
                .eof();
}

JournaledSale SaleJournal::saleIn(const RecordSet &row) const
{
    JournaledSale found;
    found.number = qRound64(row.number(u"no"));
    found.list = qRound(row.number(u"liste"));
    found.state = static_cast<State>(placeOf(kStates, row.text(u"durum")));
    found.powerCut = !sameBoot(row.text(u"acilis"));
    found.ledger = row.text(u"muhasebe");
    found.elsewhere = found.ledger != m_file.ledger();
    found.receiptNumber = row.text(u"fis");
    header_text::read(row.text(u"defter"), found.header, found.counters);
    Sale &sale = found.sale;
    sale.moment = QDateTime::fromString(row.text(u"an"), Qt::ISODateWithMs);
    sale.cashierCode = row.text(u"kasiyerkod");
    sale.cashierName = row.text(u"kasiyer");
    sale.cash = row.text(u"nakit");
    sale.change = row.text(u"paraustu");
    if (row.text(u"odeme") == journal::kCard)
        sale.payment = Payment::card;
    sale.customer = {row.text(u"musterikod"), row.text(u"musteri")};
    const QStringList totals = row.text(u"toplamlar").split(u' ');
    sale.totals = {totals.value(0), totals.value(1), totals.value(2), totals.value(3)};
    return found;
}

void SaleJournal::readLines(JournaledSale &sale) const
{
    RecordSet rows =
        m_file.read(u"SELECT * FROM kalem WHERE satis=%1 ORDER BY sira"_s.arg(sale.number));
    for (; !rows.eof(); rows.moveNext()) {
        SaleLine &line = sale.sale.lines.emplace_back();
        for (const auto &[column, cell] : kCells)
            line[cell] = rows.text(column);
        line.tag = rows.text(u"iskonto");
    }
}

void SaleJournal::readMarks(JournaledSale &sale) const
{
    RecordSet rows =
        m_file.read(u"SELECT * FROM gonderi WHERE satis=%1 ORDER BY no"_s.arg(sale.number));
    for (; !rows.eof(); rows.moveNext()) {
        RecordMark &mark = sale.marks[rows.text(u"kayit")];
        mark.sent = static_cast<Sent>(placeOf(kSent, rows.text(u"durum")));
        mark.words = rows.text(u"soz");
        if (mark.sent != Sent::waiting)
            continue;
        mark.statement = rows.text(u"ifade");
        mark.from.reset();
        if (!rows.value(u"eski").isNull())
            mark.from = rows.number(u"eski");
    }
}
