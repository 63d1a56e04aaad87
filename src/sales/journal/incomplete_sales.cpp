#include "sales/journal/incomplete_sales.h"

#include "common/host_error.h"
#include "common/program.h"
#include "sales/journal/sale_log.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using State = JournaledSale::State;
using End = IncompleteSales::Outcome::End;

constexpr std::chrono::seconds kMostAtOnce{4}; ///< the till stands still meanwhile

QString stateText(const RecordMark *mark)
{
    if (!mark)
        return u"gönderilmedi"_s;
    switch (mark->sent) {
    case Sent::waiting:
    case Sent::unknown:
        return u"yazılmamış olabilir"_s;
    case Sent::withheld:
        return u"gönderilmedi (%1)"_s.arg(mark->words);
    default:
        return u"yazılamadı (%1)"_s.arg(mark->words);
    }
}

} // namespace

IncompleteSales::IncompleteSales(Program &program, SaleJournal &journal, QObject *parent)
    : QObject(parent), m_program(program), m_journal(journal)
{}

QStringList IncompleteSales::missing(const JournaledSale &sale)
{
    const ledger::LedgerSale inLedger = sale.inLedger();
    std::vector<ledger::Record> records = inLedger.records();
    for (const ledger::Record &counter : ledger::LedgerSale::counterRecords())
        records.push_back(counter);
    QStringList missing;
    for (const ledger::Record &record : records) {
        const auto mark = sale.marks.find(record.key());
        const bool marked = mark != sale.marks.end();
        if (!marked || mark->second.sent != Sent::done)
            missing +=
                u"%1: %2"_s.arg(inLedger.name(record), stateText(marked ? &mark->second : nullptr));
    }
    return missing;
}

QStringList IncompleteSales::doubled(const JournaledSale &sale)
{
    const ledger::LedgerSale inLedger = sale.inLedger();
    QStringList doubled;
    for (const ledger::Document document : ledger::kDocuments) {
        const ledger::Record number = ledger::LedgerSale::numberOf(document);
        const auto mark = sale.marks.find(number.key());
        if (mark != sale.marks.end() && mark->second.sent != Sent::done)
            doubled += u"%1: %2"_s.arg(inLedger.name(number), mark->second.words);
    }
    return doubled;
}

PostingReport IncompleteSales::report(const JournaledSale &sale)
{
    PostingReport report;
    report.lines = missing(sale);
    const bool onlyDoubled = report.lines.isEmpty();
    report.headline =
        sale.state == State::uncertain
            ? u"Bu satışın yazılıp yazılmadığı bilinmiyor; listesi duruyor."_s
        : onlyDoubled
            ? u"Bu satış muhasebede tam, ama belge numarası başka bir satışta da var."_s
            : u"Bu satışın %1 kaydı muhasebede yok."_s.arg(QString::number(report.lines.size()));
    report.lines += doubled(sale);
    if (onlyDoubled)
        report.advice = u"Muhasebede belgelerden birine yeni numara verin; sonra \"Eksikleri "
                        "tamamla\" ya da \"Elle tamamlandı\" onu listeden çıkarır."_s;
    else if (sale.elsewhere)
        report.advice = u"Bu satış %1 muhasebesine yazılıyordu; kasa yeniden ona bağlanınca "
                        "tamamlanır."_s.arg(sale.ledger);
    else
        report.advice = sale.state == State::uncertain
                            ? u"Liste F2 ile kaydedilirken önce muhasebeye bakılır."_s
                            : u"\"Eksikleri tamamla\" yazılmamış olanları gönderir. Satışı yeniden "
                              "girmeyin."_s;
    report.text = report.paper(sale.sale);
    return report;
}

bool IncompleteSales::holdsBackNumbers(const JournaledSale &sale)
{
    if (sale.state != State::incomplete)
        return true;
    for (const ledger::Document document : ledger::kDocuments) {
        const auto place = static_cast<std::size_t>(document);
        const auto mark = sale.marks.find(ledger::LedgerSale::counterRecords().at(place).key());
        const bool advanced = mark != sale.marks.end() && mark->second.sent == Sent::done;
        if (sale.counters.at(place).readable && !advanced)
            return true;
    }
    return false;
}

IncompleteSales::Outcome IncompleteSales::complete(const JournaledSale &sale)
{
    if (sale.elsewhere)
        return {Outcome::End::partly, report(sale).advice};
    SaleLog log(m_journal, sale.number);
    Outcome outcome;
    try {
        outcome = outcomeOf(sale, Completion(m_program, m_program.prompt, sale, log).run());
    } catch (const HostError &error) {
        outcome = {End::noHost, error.text()};
    }
    Q_EMIT changed();
    return outcome;
}

IncompleteSales::Outcome IncompleteSales::completeAll()
{
    const std::vector<JournaledSale> sales = m_journal.openSales();
    const QDeadlineTimer enough(kMostAtOnce);
    Outcome last{End::whole, u"Tamamlanacak satış yok."_s};
    std::optional<Outcome> fault;
    int completed = 0;
    for (const JournaledSale &sale : sales) {
        last = complete(sale);
        if (last.end == End::whole || last.end == End::nothing)
            ++completed;
        else
            fault = last;
        if (last.end == End::noHost || last.end == End::postponed || enough.hasExpired())
            break;
    }
    if (sales.size() < 2)
        return last;
    const int left = count();
    QString text = u"%1 satış tamamlandı, %2 satış eksik."_s.arg(QString::number(completed),
                                                                 QString::number(left));
    if (fault)
        text += u' ' + fault->text;
    else if (left > 0)
        text += u" Sürdürmek için yeniden basın."_s;
    return {fault ? fault->end : End::whole, text};
}

IncompleteSales::Outcome IncompleteSales::outcomeOf(const JournaledSale &sale,
                                                    const Completion::Result &result)
{
    const QString total = sale.sale.totals.grand;
    if (result.undecided)
        return {End::postponed, u"Karar verilmedi: %1 tutarındaki satış eksik kaldı."_s.arg(total)};
    if (!result.reached) {
        m_journal.forget(sale.number);
        return {End::nothing,
                u"%1 tutarındaki satıştan muhasebeye hiçbir kayıt yazılmamış; listesi "
                "duruyor."_s.arg(total)};
    }
    const bool whole = result.missing.isEmpty() && result.doubled.isEmpty();
    m_journal.end(sale.number, whole ? State::whole : State::incomplete);
    if (sale.state == State::uncertain)
        Q_EMIT foundPosted(sale);
    if (whole)
        return {End::whole, u"%1 tutarındaki satış tamamlandı (%2 kayıt yazıldı)."_s.arg(
                                total, QString::number(result.written))};
    if (result.missing.isEmpty())
        return {End::partly,
                u"%1 tutarındaki satış tamamlandı. %2"_s.arg(total, result.doubled.join(u"; "_s)),
                result.doubled};
    return {result.connectionLost ? End::noHost : End::partly,
            u"%1 tutarındaki satışın %2 kaydı eksik kaldı: %3"_s.arg(
                total, QString::number(result.missing.size()),
                (result.missing.first(1) + result.doubled).join(u"; "_s)),
            result.doubled};
}

void IncompleteSales::closeByHand(qint64 number)
{
    if (!m_program.ask(u"Bu satışın eksikleri muhasebede elle tamamlandı mı?\n\nEVET derseniz "
                       "listeden çıkar ve bir daha gönderilmez."_s))
        return;
    m_journal.end(number, State::byHand);
    Q_EMIT changed();
}
