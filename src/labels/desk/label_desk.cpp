#include "labels/desk/label_desk.h"

#include "common/amount.h"
#include "common/column_widths.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "labels/desk/stock_queries.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWidthFile = u"Ayar.zev";
constexpr QStringView kStockSection = u"List";
constexpr QStringView kQueueSection = u"List2";

} // namespace

LabelDesk::LabelDesk(Program &program, QObject *parent) : QObject(parent), m_program(program)
{
    relay(m_loader, *this);
    relay(m_numbers, *this);
}

void LabelDesk::loadPriceNumbers()
{
    const Settings::Stok stok = settings::read(m_program, {u"stok"}).stok;
    // Where no label price was chosen, the label bears the price the till will ask.
    const QString tillPrice = stok.fiyatip.trimmed();
    const QString first = stok.br1fyt.trimmed();
    const QString second = stok.br2fyt.trimmed();
    m_prices = {first.isEmpty() ? tillPrice : first, second.isEmpty() ? tillPrice : second};
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

void LabelDesk::stkcinsibul(const QString &name)
{
    load([&] { m_loader.find(stock_queries::byName(name)); });
}

void LabelDesk::stkkodbul(const QString &code)
{
    load([&] { m_loader.find(stock_queries::byCode(code)); });
}

void LabelDesk::brkdbul(const QString &barcode)
{
    load([&] { m_loader.findBarcode(barcode); });
}

void LabelDesk::listele()
{
    load([&] { m_loader.find(stock_queries::all()); });
}

void LabelDesk::fiyatoku()
{
    load([&] { m_loader.readPrices(); });
}

void LabelDesk::fatekle(const QString &stockCode, const QString &quantity)
{
    load([&] { m_loader.addLine({stockCode, quantity}); });
}

void LabelDesk::listLines(const QList<InvoiceLine> &lines)
{
    load([&] { m_loader.replaceByLines(lines); });
}

void LabelDesk::fiyatdegisbul(const QString &fromDate, const QString &toDate,
                              const QString &fromTime, const QString &toTime)
{
    load([&] { m_loader.find(stock_queries::changed(fromDate, toDate, fromTime, toTime)); });
}

/// A load needs the connection, and the numbers being saved need the list.
void LabelDesk::load(const std::function<void()> &start)
{
    if (m_numbers.isBusy())
        refuseWhileBusy();
    else
        start();
}

void LabelDesk::stop()
{
    m_loader.stop();
    m_numbers.stop();
}

void LabelDesk::addOne(int stockRow)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    if (!m_stocks.isValidRow(stockRow)) {
        Q_EMIT statusChanged(u"Önce stok listesinden bir satır seçiniz."_s);
        return;
    }
    const StockRow &stock = m_stocks.at(stockRow);
    m_queue.append({queuedRow(stock, queue_state::kSingle)});
    Q_EMIT rowQueued(m_queue.size() - 1);
    Q_EMIT statusChanged(u"Kuyruğa eklendi: %1"_s.arg(stock.name));
}

void LabelDesk::ekbr1()
{
    addBulk(kFirstUnit);
}

void LabelDesk::ekbr2()
{
    addBulk(kSecondUnit);
}

void LabelDesk::ektm()
{
    addBulk({});
}

void LabelDesk::addBulk(QStringView unitEnding)
{
    if (refuseWhileBusy() || refuseWhileNumbering())
        return;
    std::vector<QueueRow> rows;
    for (const StockRow &stock : m_stocks.rows())
        if (stock.unit.endsWith(unitEnding))
            rows.push_back(queuedRow(stock, queue_state::kBulk));
    m_queue.append(rows);
    Q_EMIT statusChanged(
        u"Kuyruğa %1 satır eklendi."_s.arg(amount::whole(static_cast<qint64>(rows.size()))));
}

void LabelDesk::ekbar1()
{
    gather(kFirstUnit);
}

void LabelDesk::ekbar2()
{
    gather(kSecondUnit);
}

void LabelDesk::ekbartum()
{
    gather({});
}

void LabelDesk::gather(QStringView unitEnding)
{
    if (!refuseWhileBusy())
        m_numbers.gather(unitEnding);
}

void LabelDesk::setCount(int queueRow, const QString &text)
{
    if (refuseCount(text) || refuseRow(queueRow))
        return;
    m_queue.setCount(queueRow, text);
    Q_EMIT countSet();
}

void LabelDesk::setAllCounts(const QString &text)
{
    if (refuseCount(text))
        return;
    m_queue.setAllCounts(text);
    Q_EMIT allCountsSet();
}

void LabelDesk::removeOne(int queueRow)
{
    if (m_numbers.isBusy() || refuseRow(queueRow))
        return;
    if (m_queue.at(queueRow).state() != queue_state::kNew || m_numbers.mayDrop(1))
        m_queue.remove(queueRow);
}

void LabelDesk::clearQueue()
{
    if (!m_numbers.isBusy() && m_numbers.mayDrop(m_numbers.unsaved()))
        m_queue.clear();
}

void LabelDesk::yzdtum()
{
    if (m_queue.size() > 0 && !refuseWhileBusy() && !refuseWhileNumbering())
        Q_EMIT printWanted({PrintMode::all, m_queue.labels()});
}

void LabelDesk::chooseLayout()
{
    if (m_queue.size() > 0 && !refuseWhileBusy() && !refuseWhileNumbering())
        Q_EMIT printWanted({PrintMode::all, m_queue.labels(), true});
}

void LabelDesk::yzdsec(int queueRow)
{
    if (m_queue.size() > 0 && !refuseWhileBusy() && !refuseWhileNumbering() && !refuseRow(queueRow))
        Q_EMIT printWanted({PrintMode::selected, {m_queue.label(queueRow)}});
}

bool LabelDesk::refuseWhileBusy()
{
    if (isBusy())
        Q_EMIT statusChanged(u"İşlem sürüyor: bitmesini bekleyin ya da Esc ile durdurun."_s);
    return isBusy();
}

bool LabelDesk::refuseWhileNumbering()
{
    if (m_numbers.isOn())
        Q_EMIT statusChanged(
            u"Barkodsuz stoklar numaralanıyor: önce kaydediniz ya da kuyruğu boşaltınız."_s);
    return m_numbers.isOn();
}

bool LabelDesk::refuseRow(int queueRow)
{
    if (m_queue.isValidRow(queueRow))
        return false;
    Q_EMIT statusChanged(u"Önce kuyruktan bir satır seçiniz."_s);
    return true;
}

bool LabelDesk::refuseCount(const QString &text)
{
    if (amount::labelCount(text))
        return false;
    m_program.caution(
        u"Etiket adedi 1 ile 999999 arasında bir tam sayı olmalıdır.\nYazılan: \"%1\""_s.arg(text));
    return true;
}
