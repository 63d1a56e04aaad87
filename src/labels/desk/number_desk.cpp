#include "labels/desk/number_desk.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/scale_prefixes.h"
#include "common/select_many.h"
#include "labels/desk/number_generation.h"
#include "labels/desk/stock_queries.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kMemoryFile = u"Ayar.zev";
const QString kMemorySection = QStringLiteral("barno");

QString unitKey(const StockRow &row)
{
    return QString::number(row.unit) + u' ' + row.code;
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
    return static_cast<int>(rowsWaiting().size());
}

int NumberDesk::unsaved() const
{
    return static_cast<int>(
        std::count_if(m_queue.rows().cbegin(), m_queue.rows().cend(),
                      [](const QueueRow &row) { return row.state == QueueState::fresh; }));
}

bool NumberDesk::gather(UnitChoice units)
{
    if (!m_stocks.allBarcodesRead()) {
        m_program.caution(u"Listenin bir kısmının barkodu okunmadı; barkodu olan stoğa yeni "
                          "numara verilebilir.\nAramayı yeniden yapıp bitmesini bekleyiniz."_s);
        return false;
    }
    if (!mayDrop(unsaved()))
        return false;
    std::vector<QueueRow> rows;
    for (const StockRow &stock : m_stocks.rows())
        if (stock.barcode.isEmpty() && stock.isOf(units))
            rows.push_back({stock, QueueState::bulk});
    m_queue.clear();
    m_queue.append(rows);
    setOn(!rows.empty());
    refresh();
    Q_EMIT statusChanged(rows.empty() ? u"Listede barkodsuz stok yok."_s
                                      : u"Barkodsuz stoklar toplandı: numara üretip kaydediniz."_s);
    return true;
}

void NumberDesk::resume()
{
    setOn(true);
    refresh();
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

QString NumberDesk::nextBase() const
{
    const QString used = m_program.keys.read(kMemorySection, numbering::memoryKey(m_symbology),
                                             m_program.path(kMemoryFile));
    return used.trimmed().isEmpty() ? numbering::suggestedBase(m_symbology, scales()) : used;
}

QString NumberDesk::rangeHint(const QString &base) const
{
    return numbering::rangeHint(m_symbology, base, scales());
}

QStringList NumberDesk::scales() const
{
    return scalePrefixes(m_program.keys, m_program.path(kScaleFile));
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

/// Every row needs one number at least, so as many as there are rows left can be asked for at once.
NumberDesk::Outcome NumberDesk::findNumbers(Numbering &numbering)
{
    const std::vector<int> rows = rowsWaiting();
    const QSet<QString> unsavedNumbers = freshNumbers(); // the ledger does not know them yet
    while (numbering.given.size() < rows.size()) {
        const qint64 base = numbering.last + 1;
        const qint64 left = numbering::largestBase(m_symbology) - numbering.last;
        if (left == 0)
            return Outcome::exhausted;
        const auto wanted = static_cast<qint64>(rows.size() - numbering.given.size());
        const auto number = [&](int i) { return numbering::complete(m_symbology, base + i); };
        const bool went = selectMany(
            m_program, static_cast<int>(std::min(wanted, left)),
            [&](int i) { return host_queries::barcode(number(i)); },
            [&](int i, const RecordSet &owners) {
                numbering.last = base + i;
                if (owners.eof() && !unsavedNumbers.contains(number(i)))
                    numbering.given.push_back({rows[numbering.given.size()], number(i)});
                return m_task.goOn(u"Numaralar veriliyor"_s,
                                   static_cast<qsizetype>(numbering.given.size()),
                                   static_cast<qsizetype>(rows.size()));
            });
        if (!went && numbering.given.size() < rows.size())
            return Outcome::stopped;
    }
    return Outcome::complete;
}

std::vector<int> NumberDesk::rowsWaiting() const
{
    std::vector<int> rows;
    for (int row = 0; row < m_queue.size(); ++row)
        if (m_queue.at(row).barcode.isEmpty())
            rows.push_back(row);
    return rows;
}

QSet<QString> NumberDesk::freshNumbers() const
{
    QSet<QString> numbers;
    for (const QueueRow &row : m_queue.rows())
        if (row.state == QueueState::fresh)
            numbers.insert(row.barcode);
    return numbers;
}

void NumberDesk::give(const Numbering &numbering)
{
    for (const NewNumber &number : numbering.given)
        m_queue.setNumber(number.row, number.barcode, QueueState::fresh);
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
    m_program.handle([&] {
        try {
            saved = save();
        } catch (const HostError &error) {
            if (error.number() != HostError::kDuplicate)
                throw;
            tellRefused(error);
        }
    });
    if (saved)
        m_program.tell(u"Yeni Barkod Numaraları Eklendi..."_s);
}

/// The first row that is not saved yet is the one the ledger refused.
void NumberDesk::tellRefused(const HostError &error)
{
    int row = 0;
    while (m_queue.at(row).state != QueueState::fresh)
        ++row;
    const QueueRow &refused = m_queue.at(row);
    Q_EMIT rowRefused(row);
    m_program.warn(
        u"Muhasebe %1 numarasını kabul etmedi: bu numara artık başka bir stokta var.\n\n"
        "Stok: %2 %3\nKuyruktaki sırası: %4 (seçildi)\n\nSatırı silip kalanları kaydediniz; sonra "
        "stoğu yeniden toplayıp başka bir numara veriniz.\n\n%5"_s
            .arg(refused.barcode, refused.code, refused.name)
            .arg(row + 1)
            .arg(error.text()));
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
        if (m_queue.at(row).state != QueueState::fresh)
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
    m_program.company().execute(stock_queries::insertBarcode(queued.barcode, queued.code,
                                                             QString::number(queued.unit), type,
                                                             m_prices.wanted(queued.unit)));
    m_queue.setNumber(row, queued.barcode, QueueState::saved);
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
