#include "labels/desk/stock_loader.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/select_many.h"
#include "labels/desk/count_import.h"
#include "labels/desk/stock_queries.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Rows that reach the list together; few enough to draw progress in between.
constexpr std::size_t kSlice = 2000;

const QString kReadingBarcodes = QStringLiteral("Barkodlar okunuyor");
const QString kReadingPrices = QStringLiteral("Fiyatlar okunuyor");

} // namespace

StockLoader::StockLoader(Program &program, StockList &list, const PriceNumbers &prices,
                         QObject *parent)
    : QObject(parent), m_program(program), m_list(list), m_prices(prices),
      m_task(u"Arama yapılamadı."_s)
{
    // Before the progress is told, so that the rows on screen are no further behind than it says.
    connect(&m_task, &LongTask::progressed, &m_list, &StockList::announceChanges);
    connect(&m_task, &LongTask::ended, &m_list, &StockList::announceChanges);
    connect(&m_list, &StockList::rowsInserted, this, [this] { m_listed = true; });
    relay(m_task, *this);
}

void StockLoader::stkcinsibul(const QString &name)
{
    list(host_queries::cardsByName(name));
}

void StockLoader::stkkodbul(const QString &code)
{
    list(host_queries::cardsByCode(code));
}

void StockLoader::listele()
{
    list(stock_queries::all());
}

void StockLoader::fiyatdegisbul(const QString &fromDate, const QString &toDate,
                                const QString &fromTime, const QString &toTime)
{
    list(stock_queries::changed(fromDate, toDate, fromTime, toTime));
}

void StockLoader::brkdbul(const QString &barcode)
{
    run([this, barcode] { return listScanned(barcode) && readDetails(); });
}

void StockLoader::fiyatoku()
{
    run([this] { return readPrices(); });
}

void StockLoader::fatekle(const QString &stockCode, const QString &quantity)
{
    run([this, stockCode, quantity] { return addLines({{stockCode, quantity}}); });
}

void StockLoader::listLines(const QList<InvoiceLine> &lines)
{
    run([this, lines] {
        m_list.clear();
        return addLines(lines);
    });
}

void StockLoader::listCounted(const count_file::Content &content)
{
    run([this, content] {
        m_list.clear();
        return addCounted(content);
    });
}

void StockLoader::stop()
{
    m_next = {};
    m_task.stop();
}

void StockLoader::run(const Load &load)
{
    if (m_locked) {
        Q_EMIT statusChanged(kWorkGoesOn.toString());
        return;
    }
    if (isBusy()) {
        m_next = load;
        m_task.stop();
        return;
    }
    for (Load current = load; current; current = std::exchange(m_next, {}))
        m_program.handle([&] { runOne(current); });
}

void StockLoader::runOne(const Load &load)
{
    m_unknownLines = m_roundedLines = 0;
    m_listed = false;
    LongTask::Run run(m_task, u"Aranıyor…"_s);
    try {
        run.outcome = load() ? foundText() : u"Durduruldu: "_s + partText();
    } catch (const HostError &) {
        if (m_listed)
            run.outcome = u"Yarıda kaldı: "_s + partText();
        throw;
    }
}

void StockLoader::list(const QString &statement)
{
    run([this, statement] {
        return show(m_program.company().execute(statement),
                    [this](const RecordSet &card, std::vector<StockRow> &rows) {
                        appendUnitRows(card, m_units, 1, rows);
                    }) &&
               readDetails();
    });
}

bool StockLoader::listScanned(const QString &barcode)
{
    QString stockCode;
    int unit = 0;
    RecordSet owners = m_program.company().execute(host_queries::barcode(barcode));
    for (; !owners.eof(); owners.moveNext()) {
        stockCode = owners.text(u"STKBARSTKKOD");
        unit = owners.text(u"STKBARBRMNO").trimmed().toInt();
    }
    return show(m_program.company().execute(host_queries::card(stockCode)),
                [unit](const RecordSet &card, std::vector<StockRow> &rows) {
                    rows.push_back(scannedRow(card, unit));
                });
}

bool StockLoader::show(RecordSet cards, const RowMaker &makeRows)
{
    m_list.clear();
    return add(std::move(cards), makeRows);
}

bool StockLoader::add(RecordSet cards, const RowMaker &makeRows)
{
    const qsizetype total = cards.rowCount();
    qsizetype done = 0;
    std::vector<StockRow> slice;
    while (!cards.eof()) {
        slice.clear();
        for (; !cards.eof() && slice.size() < kSlice; cards.moveNext(), ++done)
            makeRows(cards, slice);
        m_list.append(slice);
        if (!m_task.goOn(u"Stoklar listeleniyor"_s, done, total))
            return false;
    }
    return true;
}

/// A line's barcodes and prices and the next line's card are asked for together: they are what
/// comes next, whatever the answers are.
bool StockLoader::addLines(const QList<InvoiceLine> &lines)
{
    if (lines.isEmpty())
        return true;
    // Rows that are there already were read before, or nobody knows when.
    const qint64 read = m_list.size() == 0 ? now() : m_list.pricesRead();
    m_list.setPricesRead(0);
    RecordSet cards = m_program.company().execute(host_queries::card(lines.first().stockCode));
    for (qsizetype line = 0; line < lines.size(); ++line) {
        const int first = m_list.size();
        addLine(std::exchange(cards, {}), lines.at(line));
        const int rows = m_list.size() - first;
        const int more = line + 1 < lines.size() ? 1 : 0;
        const auto statement = [&](int i) {
            if (i == 2 * rows)
                return host_queries::card(lines.at(line + 1).stockCode);
            const QString &code = m_list.at(first + i % rows).code;
            return i < rows ? host_queries::barcodesOf(code) : host_queries::pricesOf(code);
        };
        const auto take = [&](int i, RecordSet answer) {
            if (i == 2 * rows)
                cards = std::move(answer);
            else if (i < rows)
                takeBarcode(first + i, std::move(answer));
            else
                takePrice(first + i - rows, std::move(answer));
            return m_task.goOn(u"Fatura satırları ekleniyor"_s, line, lines.size());
        };
        if (!selectMany(m_program, 2 * rows + more, statement, take))
            return false;
    }
    m_list.setPricesRead(read);
    return true;
}

void StockLoader::addLine(RecordSet cards, const InvoiceLine &line)
{
    std::vector<StockRow> rows;
    for (; !cards.eof(); cards.moveNext())
        appendUnitRows(cards, m_units, labelsFor(line.quantity), rows);
    m_list.append(rows);
    if (rows.empty())
        ++m_unknownLines;
    else if (!isLabelCount(line.quantity))
        ++m_roundedLines;
}

bool StockLoader::addCounted(count_file::Content content)
{
    const auto rows = findCounted(
        m_program, content.lines, m_units, content.problems,
        [this](int done, int total) { return m_task.goOn(u"Kodlar aranıyor"_s, done, total); });
    if (!rows)
        return false;
    m_list.append(*rows);
    if (!readDetails())
        return false;
    Q_EMIT counted(count_file::report(std::move(content.problems)));
    return true;
}

bool StockLoader::readDetails()
{
    const int rows = m_list.size();
    // What was found is seen before the rest is asked for: the server may take its time over that.
    if (rows > 0 && !m_task.show(kReadingBarcodes, 0, rows))
        return false;
    const bool read = selectMany(
        m_program, rows, [this](int row) { return host_queries::barcodesOf(m_list.at(row).code); },
        [&](int row, RecordSet answer) {
            takeBarcode(row, std::move(answer));
            return m_task.goOn(kReadingBarcodes, row + 1, rows);
        });
    return read && readPrices();
}

bool StockLoader::readPrices()
{
    const int rows = m_list.size();
    const qint64 begun = now();
    const bool read = selectMany(
        m_program, rows, [this](int row) { return host_queries::pricesOf(m_list.at(row).code); },
        [&](int row, RecordSet answer) {
            takePrice(row, std::move(answer));
            return m_task.goOn(kReadingPrices, row + 1, rows);
        });
    m_list.setPricesRead(read ? begun : 0);
    return read;
}

qint64 StockLoader::now() const
{
    return m_program.clock.now().toMSecsSinceEpoch();
}

void StockLoader::takeBarcode(int row, RecordSet barcodes)
{
    const QString barcode = unitBarcode(std::move(barcodes), m_list.at(row).unit);
    if (!barcode.isEmpty())
        m_list.setBarcode(row, barcode);
    m_list.barcodeRead(row);
}

/// A row without a price under the wanted number ends with an empty one.
void StockLoader::takePrice(int row, RecordSet prices)
{
    m_list.setPrice(row, labelPrice(std::move(prices), m_prices.wanted(m_list.at(row).unit)));
}

QString StockLoader::foundText() const
{
    if (m_list.size() == 0)
        return u"Aranan stok bulunamadı."_s + lineNotes();
    QString found = u"%1 satır listelendi."_s.arg(amount::whole(m_list.size())) + lineNotes();
    if (m_prices.first.isEmpty() || m_prices.second.isEmpty())
        found += u" Fiyat tipi seçilmemiş: Ayarlar'dan seçiniz."_s;
    return found;
}

QString StockLoader::partText() const
{
    return u"listede %1 satır var, bir kısmının barkodu ve fiyatı okunmadı."_s.arg(
        amount::whole(m_list.size()));
}

QString StockLoader::lineNotes() const
{
    QString notes;
    if (m_unknownLines > 0)
        notes +=
            u" %1 fatura satırının seçili birimde stoğu yok."_s.arg(amount::whole(m_unknownLines));
    if (m_roundedLines > 0)
        notes += u" %1 satırın miktarı tam sayı değil: etiket adedi yukarı yuvarlandı."_s.arg(
            amount::whole(m_roundedLines));
    return notes;
}
