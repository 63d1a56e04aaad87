#include "labels/desk/label_desk.h"

#include "common/amount.h"
#include "common/column_widths.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWidthFile = u"Ayar.zev";
constexpr QStringView kStockSection = u"List";
constexpr QStringView kQueueSection = u"List2";

/// How many times rows can be brought back.
constexpr std::size_t kMostRemovals = 20;

} // namespace

LabelDesk::LabelDesk(Program &program, QObject *parent) : QObject(parent), m_program(program)
{
    relay(m_loader, *this);
    relay(m_numbers, *this);
    // The numbers being saved need the list and the connection.
    connect(&m_numbers, &NumberDesk::busyChanged, &m_loader, &StockLoader::setLocked);
}

void LabelDesk::loadPriceNumbers()
{
    resumeNext([this] {
        OpenDatabase db(m_program.db, m_program.path(settings::kFile));
        const RecordSet row = settings::row(db, u"stok");
        // Where no label price was chosen, the label bears the price the till will ask.
        const QString tillPrice = row.text(u"fiyatip").trimmed();
        const QString first = row.text(u"br1fyt").trimmed();
        const QString second = row.text(u"br2fyt").trimmed();
        m_prices = {first.isEmpty() ? tillPrice : first, second.isEmpty() ? tillPrice : second};
    });
}

bool LabelDesk::mayClose()
{
    if (m_numbers.isBusy()) {
        m_numbers.stop();
        return false;
    }
    return m_numbers.mayClose();
}

QList<int> LabelDesk::stockWidths() const
{
    return widths(kStockSection, StockList::columns);
}

QList<int> LabelDesk::queueWidths() const
{
    return widths(kQueueSection, PrintQueue::columns);
}

QList<int> LabelDesk::widths(QStringView section, int columns) const
{
    const QString file = m_program.path(kWidthFile);
    return column_widths::fromText(m_program.keys.read(section.toString(), u"wdt"_s, file),
                                   columns);
}

void LabelDesk::saveWidths(const QList<int> &stockList, const QList<int> &printQueue)
{
    const auto save = [this](QStringView section, const QList<int> &list) {
        m_program.keys.write(section.toString(), u"wdt"_s, column_widths::toText(list),
                             m_program.path(kWidthFile));
    };
    save(kStockSection, stockList);
    save(kQueueSection, printQueue);
}

void LabelDesk::stop()
{
    m_loader.stop();
    m_numbers.stop();
}

void LabelDesk::addRows(const QList<int> &stockRows)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    if (stockRows.isEmpty()) {
        Q_EMIT statusChanged(u"Önce stok listesinden bir satır seçiniz."_s);
        return;
    }
    std::vector<QueueRow> rows;
    QList<int> places;
    for (const int stockRow : stockRows) {
        places += m_queue.size() + static_cast<int>(places.size());
        rows.push_back({m_stocks.at(stockRow), QueueState::single});
    }
    m_queue.append(rows);
    Q_EMIT rowsQueued(places);
    Q_EMIT statusChanged(rows.size() == 1
                             ? u"Kuyruğa eklendi: %1"_s.arg(rows.front().name)
                             : u"Kuyruğa %1 satır eklendi."_s.arg(amount::whole(places.size())));
}

void LabelDesk::ekbr1()
{
    addBulk(UnitChoice::first);
}

void LabelDesk::ekbr2()
{
    addBulk(UnitChoice::second);
}

void LabelDesk::ektm()
{
    addBulk(UnitChoice::both);
}

void LabelDesk::addBulk(UnitChoice units)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    std::vector<QueueRow> rows;
    for (const StockRow &stock : m_stocks.rows())
        if (stock.isOf(units))
            rows.push_back({stock, QueueState::bulk});
    m_queue.append(rows);
    Q_EMIT statusChanged(
        u"Kuyruğa %1 satır eklendi."_s.arg(amount::whole(static_cast<qint64>(rows.size()))));
}

void LabelDesk::ekbar1()
{
    gather(UnitChoice::first);
}

void LabelDesk::ekbar2()
{
    gather(UnitChoice::second);
}

void LabelDesk::ekbartum()
{
    gather(UnitChoice::both);
}

void LabelDesk::gather(UnitChoice units)
{
    if (refuseWhileBusy())
        return;
    Removal before = {m_queue.everyPlace(), m_queue.rows(), m_numbers.isOn()};
    if (m_numbers.gather(units))
        remember(std::move(before));
}

void LabelDesk::setCounts(const QList<int> &queueRows, const QString &text)
{
    const auto labels = readCount(text);
    if (!labels || refuseRows(queueRows))
        return;
    m_queue.setCounts(queueRows, *labels);
    Q_EMIT countSet();
}

void LabelDesk::setAllCounts(const QString &text)
{
    const auto labels = readCount(text);
    if (!labels)
        return;
    m_queue.setCounts(m_queue.everyPlace(), *labels);
    Q_EMIT allCountsSet();
}

void LabelDesk::removeRows(const QList<int> &queueRows)
{
    if (m_numbers.isBusy() || refuseRows(queueRows))
        return;
    const auto fresh = std::count_if(queueRows.cbegin(), queueRows.cend(), [this](int row) {
        return m_queue.at(row).state == QueueState::fresh;
    });
    if (m_numbers.mayDrop(static_cast<int>(fresh)))
        takeOut(queueRows);
}

void LabelDesk::clearQueue()
{
    if (m_queue.size() == 0 || m_numbers.isBusy() || !m_numbers.mayDrop(m_numbers.unsaved()))
        return;
    takeOut(m_queue.everyPlace());
    Q_EMIT statusChanged(u"Kuyruk boşaltıldı. Ctrl+Z geri getirir."_s);
}

void LabelDesk::takeOut(const QList<int> &queueRows)
{
    const bool numbering = m_numbers.isOn();
    remember({queueRows, m_queue.take(queueRows), numbering});
}

void LabelDesk::remember(Removal removal)
{
    if (removal.rows.empty())
        return;
    if (m_removals.size() == kMostRemovals)
        m_removals.erase(m_removals.begin());
    m_removals.push_back(std::move(removal));
    Q_EMIT undoChanged(true);
}

void LabelDesk::undoRemoval()
{
    if (m_removals.empty() || refuseWhileBusy())
        return;
    // Rows that are to be printed do not go among those that wait for a number.
    if (!m_removals.back().numbering && refuseWhileNumbering())
        return;
    const Removal removal = std::move(m_removals.back());
    m_removals.pop_back();
    m_queue.putBack(removal.places, removal.rows);
    if (removal.numbering)
        m_numbers.resume();
    Q_EMIT undoChanged(!m_removals.empty());
    Q_EMIT rowsQueued(removal.places);
    Q_EMIT statusChanged(u"%1 satır geri geldi."_s.arg(amount::whole(removal.places.size())));
}

void LabelDesk::yzdtum()
{
    request({PrintMode::all, m_queue.labels(m_queue.everyPlace())});
}

void LabelDesk::chooseLayout()
{
    request({PrintMode::all, m_queue.labels(m_queue.everyPlace()), true});
}

void LabelDesk::yzdsec(const QList<int> &queueRows)
{
    if (m_queue.size() > 0 && !refuseRows(queueRows))
        request({PrintMode::selected, m_queue.labels(queueRows)});
}

void LabelDesk::request(const PrintRequest &request)
{
    if (!request.rows.empty() && !refuseWhileBusy() && !refuseWhileNumbering())
        Q_EMIT printWanted(request);
}

bool LabelDesk::refuseWhileBusy()
{
    if (isBusy())
        Q_EMIT statusChanged(kWorkGoesOn.toString());
    return isBusy();
}

bool LabelDesk::refuseWhileNumbering()
{
    if (m_numbers.isOn())
        Q_EMIT statusChanged(
            u"Barkodsuz stoklar numaralanıyor: önce kaydediniz ya da kuyruğu boşaltınız."_s);
    return m_numbers.isOn();
}

bool LabelDesk::refuseRows(const QList<int> &queueRows)
{
    if (!queueRows.isEmpty())
        return false;
    Q_EMIT statusChanged(u"Önce kuyruktan bir satır seçiniz."_s);
    return true;
}

/// Tells the user when the text is no count of labels.
std::optional<int> LabelDesk::readCount(const QString &text)
{
    const auto labels = amount::labelCount(text);
    if (!labels)
        m_program.caution(
            u"Etiket adedi 1 ile 999999 arasında bir tam sayı olmalıdır.\nYazılan: \"%1\""_s.arg(
                text));
    return labels;
}
