#include "labels/desk/label_desk.h"

#include "common/amount.h"
#include "common/column_widths.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWidthFile = u"Ayar.zev";
constexpr QStringView kStockSection = u"List";
constexpr QStringView kQueueSection = u"List2";

/// Bytes of the largest file of counts that is read.
constexpr qint64 kLargestFile = 10'000'000;

/// How many times rows can be brought back.
constexpr std::size_t kMostRemovals = 20;

} // namespace

LabelDesk::LabelDesk(Program &program, QObject *parent) : QObject(parent), m_program(program)
{
    relay(m_loader, *this);
    relay(m_numbers, *this);
    relay(m_printing, *this);
    // What changes the queue by itself needs the connection, and the numbers need the list.
    const auto lock = [this] { m_loader.setLocked(isQueueBusy()); };
    connect(&m_numbers, &NumberDesk::busyChanged, this, lock);
    connect(&m_printing, &LabelPrinting::busyChanged, this, lock);
    connect(&m_store, &QueueStore::statusChanged, this, &LabelDesk::statusChanged);
    connect(&m_scan, &ShelfScan::removalWanted, this, [this](int row) { removeRows({row}); });
    // After the load: while it runs nothing comes into the queue.
    connect(&m_loader, &StockLoader::counted, this, &LabelDesk::queueCounted, Qt::QueuedConnection);
}

void LabelDesk::keepQueue()
{
    m_store.start();
    m_printing.setLast(m_store.lastPrinted());
    connect(&m_printing, &LabelPrinting::repeatChanged, this,
            [this] { m_store.keepPrinted(m_printing.last()); });
    if (m_numbers.unsaved() > 0)
        m_numbers.resume();
}

void LabelDesk::loadPriceNumbers()
{
    const Settings::Stok stok = settings::read(m_program.files(), {u"stok"}).stok;
    // Where no label price was chosen, the label bears the price the till will ask.
    const QString tillPrice = stok.fiyatip.trimmed();
    const QString first = stok.br1fyt.trimmed();
    const QString second = stok.br2fyt.trimmed();
    m_prices = {first.isEmpty() ? tillPrice : first, second.isEmpty() ? tillPrice : second};
}

bool LabelDesk::mayClose()
{
    if (isQueueBusy()) {
        m_numbers.stop();
        m_printing.stop();
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
    m_printing.stop();
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
        rows.push_back(queued(m_stocks.at(stockRow), QueueState::single));
    }
    m_queue.append(rows);
    Q_EMIT rowsQueued(places);
    Q_EMIT statusChanged(rows.size() == 1
                             ? u"Kuyruğa eklendi: %1"_s.arg(rows.front().name)
                             : u"Kuyruğa %1 satır eklendi."_s.arg(amount::whole(places.size())));
}

QueueRow LabelDesk::queued(const StockRow &stock, QueueState state) const
{
    QueueRow row = {stock, state};
    row.priceRead = m_stocks.pricesRead();
    return row;
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
            rows.push_back(queued(stock, QueueState::bulk));
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
    if (!labels || isQueueBusy() || refuseRows(queueRows))
        return;
    m_queue.setCounts(queueRows, *labels);
    Q_EMIT countSet();
}

void LabelDesk::setAllCounts(const QString &text)
{
    const auto labels = readCount(text);
    if (!labels || isQueueBusy())
        return;
    m_queue.setCounts(m_queue.everyPlace(), *labels);
    Q_EMIT allCountsSet();
}

void LabelDesk::removeRows(const QList<int> &queueRows)
{
    if (isQueueBusy() || refuseRows(queueRows))
        return;
    const auto fresh = std::count_if(queueRows.cbegin(), queueRows.cend(), [this](int row) {
        return m_queue.at(row).state == QueueState::fresh;
    });
    if (m_numbers.mayDrop(static_cast<int>(fresh)))
        takeOut(queueRows);
}

void LabelDesk::clearQueue()
{
    if (m_queue.size() == 0 || isQueueBusy() || !m_numbers.mayDrop(m_numbers.unsaved()))
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

void LabelDesk::removePrinted()
{
    const QList<int> printed = m_queue.printedPlaces();
    if (printed.isEmpty()) {
        Q_EMIT statusChanged(u"Kuyrukta basılmış satır yok."_s);
        return;
    }
    if (refuseWhileBusy())
        return;
    takeOut(printed);
    Q_EMIT statusChanged(
        u"Basılmış %1 satır çıkarıldı. Ctrl+Z geri getirir."_s.arg(amount::whole(printed.size())));
}

void LabelDesk::sortStocks(int column)
{
    if (!refuseWhileBusy())
        m_stocks.sortNext(column);
}

void LabelDesk::sortQueue(int column)
{
    if (refuseWhileBusy())
        return;
    if (column == PrintQueue::number) // the numbers follow the order
        m_queue.sort(-1, Qt::AscendingOrder);
    else
        m_queue.sortNext(column);
}

void LabelDesk::openQueue(const QString &name)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    const queue_file::Content kept = m_store.read(name);
    if (kept.rows.empty()) {
        m_program.caution(u"Bu adda okunabilen bir kuyruk yok: %1"_s.arg(name));
        return;
    }
    takeOut(m_queue.everyPlace());
    m_queue.setRows(kept.rows, kept.added);
    if (m_numbers.unsaved() > 0)
        m_numbers.resume();
    Q_EMIT statusChanged(u"%1: %2 satır."_s.arg(name, amount::whole(m_queue.size())));
}

bool LabelDesk::saveQueue(const QString &name)
{
    if (m_store.exists(name) &&
        !m_program.ask(
            u"\"%1\" adında bir kuyruk var.\nYerine bu kuyruk kaydedilsin mi?"_s.arg(name)))
        return false;
    if (!m_store.save(name))
        return false;
    Q_EMIT statusChanged(u"Kuyruk kaydedildi: %1"_s.arg(name));
    return true;
}

void LabelDesk::deleteQueue(const QString &name)
{
    if (m_program.ask(u"\"%1\" adlı kuyruk silinsin mi?"_s.arg(name)))
        m_store.remove(name);
}

void LabelDesk::importCounts(const QString &path)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFile) {
        m_program.caution(u"Dosya okunamadı:\n%1"_s.arg(path));
        return;
    }
    const count_file::Content content = count_file::read(file.readAll());
    if (content.lines.empty())
        m_program.caution(u"Bu dosyada kod ve adet yok.\nHer satırda bir kod ve adedi olmalıdır; "
                          "örneğin: 8690000000012;3"_s);
    else
        m_loader.listCounted(content);
}

void LabelDesk::queueCounted(const QString &problems)
{
    ektm();
    if (!problems.isEmpty())
        Q_EMIT importReported(problems);
}

void LabelDesk::startScan()
{
    if (!refuseWhileBusy() && !refuseWhileNumbering())
        Q_EMIT scanFormWanted();
}

void LabelDesk::yzdtum()
{
    print(PrintMode::all, m_queue.everyPlace());
}

void LabelDesk::chooseLayout()
{
    print(PrintMode::all, m_queue.everyPlace(), true);
}

void LabelDesk::yzdsec(const QList<int> &queueRows)
{
    if (m_queue.size() > 0 && !refuseRows(queueRows))
        print(PrintMode::selected, queueRows);
}

void LabelDesk::repeatPrinting()
{
    if (!refuseWhileBusy() && !refuseWhileNumbering())
        m_printing.repeat();
}

void LabelDesk::print(PrintMode mode, const QList<int> &places, bool chooseLayout)
{
    if (!places.isEmpty() && !refuseWhileBusy() && !refuseWhileNumbering())
        m_printing.print(mode, places, chooseLayout);
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
