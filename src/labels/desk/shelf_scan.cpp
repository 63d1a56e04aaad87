#include "labels/desk/shelf_scan.h"

#include "common/amount.h"
#include "common/digits.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/select_many.h"
#include "common/settings_database.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kCountDigits = 3;
constexpr int kMostLabels = 999'999;

bool isCount(const QString &text)
{
    return text.size() <= kCountDigits && areDigits(text);
}

} // namespace

ShelfScan::ShelfScan(Program &program, PrintQueue &queue, const PriceNumbers &prices,
                     QObject *parent)
    : QObject(parent), m_program(program), m_queue(queue), m_prices(prices),
      m_sounds(program.sounds, program.directory(), m_settings)
{}

const QueueRow *ShelfScan::last() const
{
    return m_queue.isValidRow(m_last) ? &m_queue.at(m_last) : nullptr;
}

void ShelfScan::begin()
{
    m_last = -1;
    m_missed.clear();
    m_settings = settings::read(m_program.files(), {u"ses"});
}

void ShelfScan::enter(const QString &text)
{
    const QString entered = text.trimmed();
    if (entered.isEmpty())
        return;
    if (isCount(entered))
        setCount(entered.toInt());
    else
        scan(entered);
}

void ShelfScan::setCount(int labels)
{
    if (!last()) {
        refuse(u"Önce bir barkod okutunuz: sayı, son okutulanın adedidir."_s);
        return;
    }
    if (labels == 0) {
        m_sounds.calseson();
        Q_EMIT removalWanted(std::exchange(m_last, -1));
        return;
    }
    m_queue.setCounts({m_last}, labels);
    m_sounds.calseson();
    Q_EMIT taken(m_last);
}

/// A code that is refused leaves no last row: the number typed behind it is not meant for the one
/// before.
void ShelfScan::scan(const QString &barcode)
{
    m_last = -1;
    try {
        const auto row = find(barcode);
        if (!row) {
            refuse(u"Bulunamadı: %1"_s.arg(barcode), barcode);
            return;
        }
        m_last = placeOf(*row);
        if (m_last < 0) {
            m_queue.append({*row});
            m_last = m_queue.size() - 1;
        } else {
            m_queue.setCounts({m_last}, std::min(m_queue.at(m_last).count + 1, kMostLabels));
        }
    } catch (const HostError &error) {
        refuse(u"%1 okunamadı, yeniden okutunuz.\n%2"_s.arg(barcode, error.text()), barcode);
        return;
    }
    m_missed.removeAll(barcode); // the server was away the first time
    m_sounds.calseson();
    Q_EMIT taken(m_last);
}

/// The unit that owns a barcode, as a search by barcode lists it.
std::optional<QueueRow> ShelfScan::find(const QString &barcode)
{
    QString stockCode;
    int unit = 0;
    RecordSet owners = m_program.company().execute(host_queries::barcode(barcode));
    if (owners.eof())
        return std::nullopt;
    for (; !owners.eof(); owners.moveNext()) {
        stockCode = owners.text(u"STKBARSTKKOD");
        unit = owners.text(u"STKBARBRMNO").trimmed().toInt();
    }
    const RecordSet card = m_program.company().execute(host_queries::card(stockCode));
    if (card.eof())
        return std::nullopt;
    QueueRow row = {scannedRow(card, unit), QueueState::single};
    row.priceRead = m_program.clock.now().toMSecsSinceEpoch();
    selectMany(
        m_program, 2,
        [&](int i) {
            return i == 0 ? host_queries::barcodesOf(row.code) : host_queries::pricesOf(row.code);
        },
        [&](int i, RecordSet answer) {
            if (i == 0)
                row.barcode = unitBarcode(std::move(answer), unit);
            else
                row.price = labelPrice(std::move(answer), m_prices.wanted(unit));
            return true;
        });
    return row;
}

/// The row of the queue that the unit counts up; −1: none. A row that was printed is done with.
int ShelfScan::placeOf(const QueueRow &row) const
{
    for (int place = m_queue.size() - 1; place >= 0; --place) {
        const QueueRow &queued = m_queue.at(place);
        if (queued.code == row.code && queued.unit == row.unit && !queued.printed)
            return place;
    }
    return -1;
}

void ShelfScan::refuse(const QString &reason, const QString &barcode)
{
    m_sounds.calsesoff();
    if (!barcode.isEmpty() && !m_missed.contains(barcode))
        m_missed += barcode;
    Q_EMIT refused(reason, barcode);
}
