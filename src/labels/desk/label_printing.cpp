#include "labels/desk/label_printing.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/select_many.h"

using namespace Qt::StringLiterals;

namespace {

/// A price that was read longer ago is asked for again: prices change while a queue waits.
constexpr qint64 kFreshFor = 10LL * 60 * 1000; // milliseconds

/// Changed prices named in the question; the others are counted.
constexpr qsizetype kNamed = 12;

/// A price that was read in the future is one of before the clock was put right.
bool hasAged(qint64 read, qint64 now)
{
    return read > now || now - read > kFreshFor;
}

QString shownPrice(const QString &price)
{
    return price.isEmpty() ? u"fiyatı yok"_s : price;
}

QString changeQuestion(const QStringList &changes)
{
    QStringList lines = changes.mid(0, kNamed);
    if (changes.size() > kNamed)
        lines += u"… ve %1 satır daha"_s.arg(amount::whole(changes.size() - kNamed));
    return u"%1 satırın fiyatı kuyrukta beklerken değişti:\n\n%2\n\nYeni fiyatlarla yazdırılsın mı?"_s
        .arg(amount::whole(changes.size()), lines.join(u'\n'));
}

} // namespace

LabelPrinting::LabelPrinting(Program &program, PrintQueue &queue, const PriceNumbers &prices,
                             QObject *parent)
    : QObject(parent), m_program(program), m_queue(queue), m_prices(prices),
      m_task(u"Fiyatlar okunamadı."_s)
{
    relay(m_task, *this);
}

void LabelPrinting::print(PrintMode mode, const QList<int> &places, bool chooseLayout)
{
    send(mode, m_queue.placed(places), chooseLayout);
}

void LabelPrinting::repeat()
{
    std::vector<PlacedRow> rows;
    for (const QueueRow &row : m_last)
        rows.push_back({row, -1});
    send(PrintMode::all, std::move(rows), false);
}

void LabelPrinting::send(PrintMode mode, std::vector<PlacedRow> rows, bool chooseLayout)
{
    if (rows.empty() || !freshen(rows))
        return;
    const PrintRequest request{.mode = mode, .rows = labelsOf(rows), .chooseLayout = chooseLayout};
    m_sent = std::move(rows);
    Q_EMIT printWanted(request);
}

void LabelPrinting::runEnded(bool printed)
{
    const std::vector<PlacedRow> sent = std::exchange(m_sent, {});
    if (!printed || sent.empty())
        return;
    QList<int> places;
    std::vector<QueueRow> last;
    for (const PlacedRow &one : sent) {
        last.push_back(one.row);
        // The user may have changed the queue meanwhile.
        if (m_queue.isValidRow(one.place) && m_queue.at(one.place) == one.row)
            places += one.place;
    }
    m_queue.markPrinted(places);
    setLast(std::move(last));
}

void LabelPrinting::setLast(std::vector<QueueRow> rows)
{
    m_last = std::move(rows);
    Q_EMIT repeatChanged(canRepeat());
}

/// Reads anew the prices that have grown old. False when nothing shall be printed.
bool LabelPrinting::freshen(std::vector<PlacedRow> &rows)
{
    const qint64 now = m_program.clock.now().toMSecsSinceEpoch();
    std::vector<std::size_t> old;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (hasAged(rows[i].row.priceRead, now) && !m_prices.wanted(rows[i].row.unit).isEmpty())
            old.push_back(i);
    if (old.empty())
        return true;
    QStringList changes;
    try {
        if (!readPrices(rows, old, changes))
            return false;
    } catch (const HostError &error) {
        return m_program.ask(
            u"Fiyatlar yeniden okunamadı; kuyruktaki fiyatlar eski olabilir.\n\n%1\n\n"
            "Yine de bu fiyatlarla yazdırılsın mı?"_s.arg(error.text()));
    }
    return changes.isEmpty() || m_program.ask(changeQuestion(changes));
}

/// False when it was stopped.
bool LabelPrinting::readPrices(std::vector<PlacedRow> &rows, const std::vector<std::size_t> &old,
                               QStringList &changes)
{
    const qint64 now = m_program.clock.now().toMSecsSinceEpoch();
    LongTask::Run run(m_task, u"Fiyatlar yeniden okunuyor…"_s);
    const bool read = selectMany(
        m_program, static_cast<int>(old.size()),
        [&](int i) {
            return host_queries::pricesOf(rows[old[static_cast<std::size_t>(i)]].row.code);
        },
        [&](int i, RecordSet prices) {
            PlacedRow &sent = rows[old[static_cast<std::size_t>(i)]];
            const QString price = labelPrice(std::move(prices), m_prices.wanted(sent.row.unit));
            if (price != sent.row.price)
                changes += u"%1: %2 → %3"_s.arg(sent.row.name, shownPrice(sent.row.price),
                                                shownPrice(price));
            sent.row.price = price;
            sent.row.priceRead = now;
            if (m_queue.isValidRow(sent.place)) {
                m_queue.setPrice(sent.place, price, now);
                sent.row = m_queue.at(sent.place);
            }
            return m_task.goOn(u"Fiyatlar yeniden okunuyor"_s, i + 1,
                               static_cast<qsizetype>(old.size()));
        });
    run.outcome =
        read ? u"Fiyatlar yeniden okundu."_s : u"Durduruldu: hiçbir etiket yazdırılmadı."_s;
    return read;
}
