#include "labels/desk/stock_loader.h"

#include "common/amount.h"
#include "common/host_queries.h"
#include "common/program.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

StockLoader::StockLoader(Program &program, StockList &list, const PriceNumbers &prices,
                         QObject *parent)
    : QObject(parent), m_program(program), m_list(list), m_prices(prices),
      m_task(u"Arama yapılamadı."_s)
{
    // Before the progress is told, so that the rows on screen are no further behind than it says.
    connect(&m_task, &LongTask::progressed, &m_list, &StockList::announceChanges);
    connect(&m_task, &LongTask::ended, &m_list, &StockList::announceChanges);
    relay(m_task, *this);
}

void StockLoader::find(const QString &statement)
{
    run([this, statement] {
        StockSearch steps = search();
        return steps.list(statement, m_units) && readDetails(steps);
    });
}

void StockLoader::findBarcode(const QString &barcode)
{
    run([this, barcode] {
        StockSearch steps = search();
        return steps.byBarcode(barcode) && readDetails(steps);
    });
}

void StockLoader::readPrices()
{
    run([this] { return search().pricePass(m_prices); });
}

void StockLoader::addLine(const InvoiceLine &line)
{
    run([this, line] {
        StockSearch steps = search();
        return append(steps, line);
    });
}

void StockLoader::replaceByLines(const QList<InvoiceLine> &lines)
{
    run([this, lines] {
        m_list.clear();
        int done = 0;
        const auto total = static_cast<int>(lines.size());
        StockSearch steps(m_program, m_list, [this, &done, total](SearchStage, int, int) {
            return m_task.goOn(u"Fatura satırları ekleniyor"_s, done, total);
        });
        for (; done < total; ++done)
            if (!append(steps, lines.at(done)))
                return false;
        return true;
    });
}

StockSearch StockLoader::search()
{
    return {m_program, m_list, [this](SearchStage stage, int done, int total) {
                return m_task.goOn(stageText(stage), done, total);
            }};
}

bool StockLoader::append(StockSearch &search, const InvoiceLine &line)
{
    const int before = m_list.size();
    const QString count = QString::number(labelsFor(line.quantity));
    if (!search.append(host_queries::card(line.stockCode), m_units, count))
        return false;
    if (m_list.size() == before)
        ++m_unknownLines;
    else if (!isLabelCount(line.quantity))
        ++m_roundedLines;
    return readDetails(search);
}

bool StockLoader::readDetails(StockSearch &search)
{
    return search.barcodePass() && search.pricePass(m_prices);
}

void StockLoader::run(const Load &load)
{
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
    LongTask::Run run(m_task, u"Aranıyor…"_s);
    run.outcome = load() ? foundText() : stoppedText();
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

QString StockLoader::stoppedText() const
{
    return u"Durduruldu: listede %1 satır var, bir kısmının barkodu ve fiyatı okunmadı."_s.arg(
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

void StockLoader::stop()
{
    m_next = {};
    m_task.stop();
}
