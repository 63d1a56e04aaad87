#include "labels/print/label_desk.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"
#include "labels/print/column_widths.h"
#include "labels/print/stock_queries.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Events are handled this often while a search runs, in milliseconds: often enough for the eye,
/// seldom enough to cost nothing.
constexpr qint64 kEventInterval = 50;

constexpr QStringView kWidthFile = u"Ayar.zev";
constexpr QStringView kStockSection = u"List";
constexpr QStringView kQueueSection = u"List2";

QString stageText(SearchStage stage)
{
    switch (stage) {
    case SearchStage::rows:
        return u"Stoklar listeleniyor"_s;
    case SearchStage::barcodes:
        return u"Barkodlar okunuyor"_s;
    case SearchStage::prices:
        return u"Fiyatlar okunuyor"_s;
    }
    return {};
}

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

/// Marks the desk as busy for as long as it lives.
class LabelDesk::Busy
{
public:
    explicit Busy(LabelDesk &desk) : m_desk(desk)
    {
        desk.m_busy = true;
        desk.m_stopped = false;
        desk.m_sinceEvents.start();
        Q_EMIT desk.busyChanged(true);
        Q_EMIT desk.statusChanged(u"Aranıyor…"_s);
    }
    ~Busy()
    {
        m_desk.m_busy = false;
        m_desk.m_stocks.announceChanges();
        Q_EMIT m_desk.busyChanged(false);
        Q_EMIT m_desk.statusChanged(outcome);
    }
    Busy(const Busy &) = delete;
    Busy &operator=(const Busy &) = delete;

    QString outcome = u"Arama yapılamadı."_s; ///< told at the end

private:
    LabelDesk &m_desk;
};

LabelDesk::LabelDesk(Program &program, QObject *parent) : QObject(parent), m_program(program)
{}

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
    find(stock_queries::byName(name));
}

void LabelDesk::stkkodbul(const QString &code)
{
    find(stock_queries::byCode(code));
}

void LabelDesk::listele()
{
    find(stock_queries::all());
}

void LabelDesk::find(const QString &statement)
{
    run([this, statement](StockSearch &search) {
        return search.list(statement, m_units) && readDetails(search);
    });
}

void LabelDesk::brkdbul(const QString &barcode)
{
    run([this, barcode](StockSearch &search) {
        return search.byBarcode(barcode) && readDetails(search);
    });
}

void LabelDesk::fiyatoku()
{
    run([this](StockSearch &search) { return search.pricePass(m_prices); });
}

bool LabelDesk::readDetails(StockSearch &search)
{
    return search.barcodePass() && search.pricePass(m_prices);
}

void LabelDesk::run(const Search &search)
{
    if (m_busy) {
        m_next = search;
        m_stopped = true;
        return;
    }
    for (Search current = search; current; current = std::exchange(m_next, {}))
        m_program.handle([&] { runOne(current); });
}

void LabelDesk::runOne(const Search &search)
{
    Busy busy(*this);
    // The window says that it searches before the first statement keeps it waiting.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    StockSearch steps(m_program, m_stocks, [this](SearchStage stage, int done, int total) {
        return keepGoing(stage, done, total);
    });
    busy.outcome = search(steps) ? foundText() : stoppedText();
}

bool LabelDesk::keepGoing(SearchStage stage, int done, int total)
{
    if (m_sinceEvents.elapsed() >= kEventInterval) {
        m_stocks.announceChanges();
        const QString text =
            u"%1: %2 / %3"_s.arg(stageText(stage), amount::whole(done), amount::whole(total));
        Q_EMIT progressed(text, done, total);
        QCoreApplication::processEvents();
        m_sinceEvents.restart();
    }
    return !m_stopped;
}

QString LabelDesk::foundText() const
{
    if (m_stocks.size() == 0)
        return u"Aranan stok bulunamadı."_s;
    QString found = u"%1 satır listelendi."_s.arg(amount::whole(m_stocks.size()));
    if (m_prices.first.isEmpty() || m_prices.second.isEmpty())
        found += u" Fiyat tipi seçilmemiş: Ayarlar'dan seçiniz."_s;
    return found;
}

QString LabelDesk::stoppedText() const
{
    return u"Durduruldu: listede %1 satır var, bir kısmının barkodu ve fiyatı okunmadı."_s.arg(
        amount::whole(m_stocks.size()));
}

void LabelDesk::stop()
{
    m_next = {};
    m_stopped = true;
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
    if (m_busy)
        Q_EMIT statusChanged(u"Liste yükleniyor: bitmesini bekleyin ya da Esc ile durdurun."_s);
    return m_busy;
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
