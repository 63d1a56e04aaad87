#include "labels/desk/number_desk.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "labels/desk/number_generation.h"
#include "labels/desk/stock_queries.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kMemoryFile = u"Ayar.zev";
const QString kMemorySection = QStringLiteral("barno");

QString unitKey(const QueueRow &row)
{
    return row.unitNumber() + u' ' + row.code;
}

QString unitKey(const StockRow &row)
{
    return row.tag + u' ' + row.code;
}

} // namespace

NumberDesk::NumberDesk(Program &program, StockList &stocks, PrintQueue &queue,
                       const PriceNumbers &prices, QObject *parent)
    : QObject(parent), m_program(program), m_stocks(stocks), m_queue(queue), m_prices(prices),
      m_task(u"Yarıda kaldı."_s)
{
    connect(&m_task, &LongTask::ended, &m_stocks, &StockList::announceChanges);
    connect(&m_task, &LongTask::ended, this, &NumberDesk::refresh);
    relay(m_task, *this);
    connect(&m_queue, &PrintQueue::rowsRemoved, this, &NumberDesk::refresh);
    connect(&m_queue, &PrintQueue::modelReset, this, &NumberDesk::refresh);
}

int NumberDesk::waiting() const
{
    return static_cast<int>(
        std::count_if(m_queue.rows().cbegin(), m_queue.rows().cend(),
                      [](const QueueRow &row) { return row.barcode.isEmpty(); }));
}

int NumberDesk::unsaved() const
{
    return static_cast<int>(
        std::count_if(m_queue.rows().cbegin(), m_queue.rows().cend(),
                      [](const QueueRow &row) { return row.state() == queue_state::kNew; }));
}

void NumberDesk::gather(QStringView unitEnding)
{
    if (!m_stocks.allBarcodesRead()) {
        m_program.caution(u"Listenin bir kısmının barkodu okunmadı; barkodu olan stoğa yeni "
                          "numara verilebilir.\nAramayı yeniden yapıp bitmesini bekleyiniz."_s);
        return;
    }
    if (!mayDrop(unsaved()))
        return;
    std::vector<QueueRow> rows;
    for (const StockRow &stock : m_stocks.rows())
        if (stock.barcode.isEmpty() && stock.unit.endsWith(unitEnding))
            rows.push_back(queuedRow(stock, queue_state::kBulk));
    m_queue.clear();
    m_queue.append(rows);
    setOn(!rows.empty());
    refresh();
    Q_EMIT statusChanged(rows.empty() ? u"Listede barkodsuz stok yok."_s
                                      : u"Barkodsuz stoklar toplandı: numara üretip kaydediniz."_s);
}

void NumberDesk::brkdurt()
{
    if (m_on && !isBusy())
        Q_EMIT generatorRequested();
}

QString NumberDesk::caption() const
{
    return numbering::caption(m_symbology);
}

QString NumberDesk::rememberedBase() const
{
    return m_program.keys.read(kMemorySection, numbering::memoryKey(m_symbology),
                               m_program.path(kMemoryFile));
}

QString NumberDesk::completeNumber(const QString &base) const
{
    const auto number = numbering::readBase(m_symbology, base);
    return number ? numbering::complete(m_symbology, *number) : QString();
}

bool NumberDesk::takesKey(const QString &box, const QString &key) const
{
    return numbering::takesKey(m_symbology, box, key);
}

void NumberDesk::generate(const QString &base)
{
    if (isBusy())
        return;
    const QString problem = baseProblem(base);
    if (!problem.isEmpty()) {
        m_program.caution(problem);
        return;
    }
    QString exhausted;
    m_program.handle(
        [&] { exhausted = number(numbering::readBase(m_symbology, base).value_or(0)); });
    if (!exhausted.isEmpty())
        m_program.caution(exhausted);
}

/// Why no numbers can be made from this base; "" when they can.
QString NumberDesk::baseProblem(const QString &base) const
{
    const int digits = numbering::baseDigits(m_symbology);
    if (base.trimmed().isEmpty())
        return u"Başlangıç numarasını yazınız: numaralar ondan sonrakiyle başlar."_s;
    const auto number = numbering::readBase(m_symbology, base);
    if (!number)
        return u"Başlangıç numarası en çok %1 rakam olmalıdır.\nYazılan: \"%2\""_s.arg(digits).arg(
            base);
    if (waiting() == 0)
        return u"Kuyrukta numara bekleyen satır yok."_s;
    if (*number + waiting() > numbering::largestBase(m_symbology))
        return u"Bu başlangıçla %1 satıra %2 rakamlı numara yetmez.\nDaha küçük bir numarayla "
               "başlayınız."_s.arg(amount::whole(waiting()))
                   .arg(digits);
    return {};
}

/// Returns what is to be told when the numbers ran out; nothing is given then.
QString NumberDesk::number(qint64 base)
{
    LongTask::Run run(m_task, u"Boş numaralar aranıyor…"_s);
    Numbering numbering{base, {}};
    try {
        const Outcome outcome = findNumbers(numbering);
        if (outcome == Outcome::exhausted) {
            run.outcome = u"Numara verilmedi."_s;
            return u"Boş numara bitti: bu başlangıçtan sonraki numaralar kullanılmış.\nDaha küçük "
                   "bir numarayla başlayınız."_s;
        }
        run.outcome = outcome == Outcome::stopped ? u"Durduruldu: "_s : QString();
    } catch (const HostError &) {
        give(numbering); // they are free, and the next time goes on behind them
        throw;
    }
    give(numbering);
    run.outcome += u"%1 satıra numara verildi; kaydetmeyi unutmayınız (F12)."_s.arg(
        amount::whole(static_cast<qint64>(numbering.given.size())));
    return {};
}

NumberDesk::Outcome NumberDesk::findNumbers(Numbering &numbering)
{
    const int total = waiting();
    QSet<QString> unsavedNumbers; // the ledger does not know them yet
    for (const QueueRow &row : m_queue.rows())
        if (row.state() == queue_state::kNew)
            unsavedNumbers.insert(row.barcode);
    for (int row = 0; row < m_queue.size(); ++row) {
        if (!m_queue.at(row).barcode.isEmpty())
            continue;
        for (bool free = false; !free;) {
            if (numbering.last == numbering::largestBase(m_symbology))
                return Outcome::exhausted;
            const auto done = static_cast<int>(numbering.given.size());
            if (!m_task.goOn(u"Numaralar veriliyor"_s, done, total))
                return Outcome::stopped;
            const QString barcode = numbering::complete(m_symbology, numbering.last + 1);
            free = isFree(barcode) && !unsavedNumbers.contains(barcode);
            ++numbering.last;
            if (free)
                numbering.given.push_back({row, barcode});
        }
    }
    return Outcome::complete;
}

bool NumberDesk::isFree(const QString &barcode)
{
    return m_program.company().execute(host_queries::barcode(barcode)).eof();
}

void NumberDesk::give(const Numbering &numbering)
{
    for (const NewNumber &number : numbering.given)
        m_queue.setNumber(number.row, number.barcode, queue_state::kNew);
    const QString last = QString::number(numbering.last);
    const QString file = m_program.path(kMemoryFile);
    if (!m_program.keys.write(kMemorySection, numbering::memoryKey(m_symbology), last, file))
        m_program.warn(u"Son numara yazılamadı:\n%1"_s.arg(file));
    Q_EMIT baseChanged(last);
}

void NumberDesk::brgnc()
{
    if (!m_on || isBusy())
        return;
    if (unsaved() == 0) {
        Q_EMIT statusChanged(u"Kaydedilecek yeni numara yok."_s);
        return;
    }
    bool saved = false;
    m_program.handle([&] { saved = save(); });
    if (saved)
        m_program.tell(u"Yeni Barkod Numaraları Eklendi..."_s);
}

/// False when it was stopped.
bool NumberDesk::save()
{
    const int total = unsaved();
    LongTask::Run run(m_task, u"Yeni numaralar kaydediliyor…"_s);
    const bool all = saveRows(total);
    const int left = unsaved();
    run.outcome = u"%1 numara kaydedildi."_s.arg(amount::whole(total - left));
    if (!all)
        run.outcome += u" Durduruldu: %1 numara kaydedilmedi."_s.arg(amount::whole(left));
    return all;
}

bool NumberDesk::saveRows(int total)
{
    const StockRows stocks = unnumberedStocks();
    QString type;
    int done = 0;
    for (int row = 0; row < m_queue.size(); ++row) {
        if (m_queue.at(row).state() != queue_state::kNew)
            continue;
        if (!m_task.goOn(u"Numaralar kaydediliyor"_s, done++, total))
            return false;
        type = numbering::barcodeType(m_queue.at(row).barcode, type);
        saveRow(row, type);
        // Else the next gathering would give the same stocks a second number.
        for (const int stock : stocks.values(unitKey(m_queue.at(row))))
            m_stocks.setBarcode(stock, m_queue.at(row).barcode);
    }
    return true;
}

NumberDesk::StockRows NumberDesk::unnumberedStocks() const
{
    StockRows stocks;
    for (int row = 0; row < m_stocks.size(); ++row)
        if (m_stocks.at(row).barcode.isEmpty())
            stocks.insert(unitKey(m_stocks.at(row)), row);
    return stocks;
}

void NumberDesk::saveRow(int row, const QString &type)
{
    const QueueRow &queued = m_queue.at(row);
    const QString unit = queued.unitNumber();
    m_program.company().execute(stock_queries::insertBarcode(queued.barcode, queued.code, unit,
                                                             type, m_prices.wanted(unit)));
    m_queue.setNumber(row, queued.barcode, queue_state::kSaved);
}

bool NumberDesk::mayDrop(int numbers)
{
    return confirmLoss(numbers, u"silinsin mi");
}

bool NumberDesk::mayClose()
{
    return confirmLoss(unsaved(), u"kapatılsın mı");
}

bool NumberDesk::confirmLoss(int numbers, QStringView verb)
{
    return numbers == 0 ||
           m_program.ask(u"%1 yeni barkod numarası kaydedilmedi.\nKaydedilmeden %2?"_s.arg(
               amount::whole(numbers), verb));
}

void NumberDesk::setOn(bool on)
{
    if (on == m_on)
        return;
    m_on = on;
    Q_EMIT modeChanged(on);
}

QString NumberDesk::summary() const
{
    const int rows = waiting();
    const int numbers = unsaved();
    QStringList parts;
    if (m_on && rows > 0)
        parts += u"%1 satır numara bekliyor"_s.arg(amount::whole(rows));
    if (numbers > 0)
        parts += u"%1 yeni numara kaydedilmedi"_s.arg(amount::whole(numbers));
    return parts.join(u" · "_s);
}

/// Looks whether anything is left to do, and says what.
void NumberDesk::refresh()
{
    if (waiting() + unsaved() == 0)
        setOn(false);
    Q_EMIT summaryChanged(summary());
}
