#include "labels/print/label_desk.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "labels/print/column_widths.h"
#include "labels/print/stock_queries.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kWidthFile = u"Ayar.zev";
constexpr QStringView kStockSection = u"List";
constexpr QStringView kQueueSection = u"List2";

QueueRow queueRow(const StockRow &stock, QStringView state)
{
    return {.number = {},
            .barcode = stock.barcode,
            .code = stock.code,
            .name = stock.name,
            .unit = stock.unit,
            .price = stock.price,
            .count = stock.count,
            .tag = u"%1%2%3"_s.arg(stock.tag, kTagSeparator, state)};
}

} // namespace

LabelDesk::LabelDesk(Program &program, QObject *parent) : QObject(parent), m_program(program)
{
    connect(&m_loader, &StockLoader::busyChanged, this, &LabelDesk::busyChanged);
    connect(&m_loader, &StockLoader::progressed, this, &LabelDesk::progressed);
    connect(&m_loader, &StockLoader::statusChanged, this, &LabelDesk::statusChanged);
}

void LabelDesk::olcuyukle()
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
    m_loader.find(stock_queries::byName(name));
}

void LabelDesk::stkkodbul(const QString &code)
{
    m_loader.find(stock_queries::byCode(code));
}

void LabelDesk::brkdbul(const QString &barcode)
{
    m_loader.findBarcode(barcode);
}

void LabelDesk::listele()
{
    m_loader.find(stock_queries::all());
}

void LabelDesk::fiyatoku()
{
    m_loader.readPrices();
}

void LabelDesk::fatekle(const QString &stockCode, const QString &quantity)
{
    m_loader.addLine({stockCode, quantity});
}

void LabelDesk::listLines(const QList<InvoiceLine> &lines)
{
    m_loader.replaceByLines(lines);
}

void LabelDesk::fiyatdegisbul(const QString &fromDate, const QString &toDate,
                              const QString &fromTime, const QString &toTime)
{
    m_loader.find(stock_queries::changed(fromDate, toDate, fromTime, toTime));
}

void LabelDesk::stop()
{
    m_loader.stop();
}

void LabelDesk::addOne(int stockRow)
{
    if (refuseWhileBusy())
        return;
    if (!m_stocks.isValidRow(stockRow)) {
        Q_EMIT statusChanged(u"Önce stok listesinden bir satır seçiniz."_s);
        return;
    }
    const StockRow &stock = m_stocks.at(stockRow);
    m_queue.append({queueRow(stock, queue_state::kSingle)});
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
    if (refuseWhileBusy())
        return;
    std::vector<QueueRow> rows;
    for (const StockRow &stock : m_stocks.rows())
        if (stock.unit.endsWith(unitEnding))
            rows.push_back(queueRow(stock, queue_state::kBulk));
    m_queue.append(rows);
    Q_EMIT statusChanged(
        u"Kuyruğa %1 satır eklendi."_s.arg(amount::whole(static_cast<qint64>(rows.size()))));
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
    if (!refuseRow(queueRow))
        m_queue.remove(queueRow);
}

void LabelDesk::clearQueue()
{
    m_queue.clear();
}

void LabelDesk::yzdtum()
{
    if (m_queue.size() > 0 && !refuseWhileBusy())
        Q_EMIT printAllRequested();
}

void LabelDesk::chooseLayout()
{
    if (m_queue.size() > 0 && !refuseWhileBusy())
        Q_EMIT layoutChoiceRequested();
}

void LabelDesk::yzdsec(int queueRow)
{
    if (m_queue.size() > 0 && !refuseWhileBusy() && !refuseRow(queueRow))
        Q_EMIT printSelectedRequested(queueRow);
}

bool LabelDesk::refuseWhileBusy()
{
    if (isBusy())
        Q_EMIT statusChanged(u"Liste yükleniyor: bitmesini bekleyin ya da Esc ile durdurun."_s);
    return isBusy();
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
    m_program.mesajgoster(
        u"Etiket adedi 1 ile 999999 arasında bir tam sayı olmalıdır.\nYazılan: \"%1\""_s.arg(text),
        2, 3, 1);
    return true;
}
