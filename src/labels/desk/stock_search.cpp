#include "labels/desk/stock_search.h"

#include "common/host_queries.h"
#include "common/program.h"

using namespace Qt::StringLiterals;

namespace {

/// Rows that reach the list together; few enough to draw progress in between.
constexpr std::size_t kBatch = 2000;

/// Labels of a row that nobody has counted yet.
const QString kOneLabel = QStringLiteral("1");

StockRow unitRow(const RecordSet &card, const QString &unit, QStringView ending, const QString &tag,
                 const QString &count)
{
    return {.barcode = {},
            .code = card.text(u"STKKOD"),
            .name = card.text(u"STKCINSI"),
            .unit = u"%1 %2"_s.arg(unit, ending),
            .price = {},
            .count = count,
            .tag = tag};
}

/// The barcode of a unit; when several records match, the one read last.
QString unitBarcode(RecordSet records, const QString &unitNumber)
{
    QString barcode;
    for (; !records.eof(); records.moveNext()) {
        const QString candidate = records.text(u"STKBARKOD");
        if (!candidate.isEmpty() && records.text(u"STKBARBRMNO").trimmed() == unitNumber)
            barcode = candidate;
    }
    return barcode;
}

} // namespace

void appendUnitRows(const RecordSet &card, UnitChoice units, const QString &count,
                    std::vector<StockRow> &rows)
{
    if (units != UnitChoice::second)
        rows.push_back(unitRow(card, card.text(u"STKBIRIM"), kFirstUnit, u"1"_s, count));
    if (units == UnitChoice::first)
        return;
    const QString second = card.text(u"STKBIRIM2");
    if (!second.isEmpty() && second != u" ")
        rows.push_back(unitRow(card, second, kSecondUnit, u"2"_s, count));
}

StockSearch::StockSearch(Program &program, StockList &list, Progress progress)
    : m_program(program), m_list(list), m_progress(std::move(progress))
{}

bool StockSearch::list(const QString &statement, UnitChoice units)
{
    return show(m_program.company().execute(statement),
                [units](const RecordSet &card, std::vector<StockRow> &rows) {
                    appendUnitRows(card, units, kOneLabel, rows);
                });
}

bool StockSearch::append(const QString &statement, UnitChoice units, const QString &count)
{
    RecordSet cards = m_program.company().execute(statement);
    m_firstRow = m_list.size();
    return add(std::move(cards), [&](const RecordSet &card, std::vector<StockRow> &rows) {
        appendUnitRows(card, units, count, rows);
    });
}

bool StockSearch::byBarcode(const QString &barcode)
{
    QString stockCode;
    QString unitNumber;
    RecordSet owners = m_program.company().execute(host_queries::barcode(barcode));
    for (; !owners.eof(); owners.moveNext()) {
        stockCode = owners.text(u"STKBARSTKKOD");
        unitNumber = owners.text(u"STKBARBRMNO").trimmed();
    }
    // The row of a second unit bears the first unit's name here: whoever scans a barcode knows the
    // stock by its ordinary unit.
    const QStringView ending = unitNumber == u"1" ? kFirstUnit : kSecondUnit;
    return show(m_program.company().execute(host_queries::card(stockCode)),
                [&](const RecordSet &card, std::vector<StockRow> &rows) {
                    rows.push_back(
                        unitRow(card, card.text(u"STKBIRIM"), ending, unitNumber, kOneLabel));
                });
}

bool StockSearch::show(RecordSet cards, const RowMaker &makeRows)
{
    m_list.clear();
    m_firstRow = 0;
    return add(std::move(cards), makeRows);
}

bool StockSearch::add(RecordSet cards, const RowMaker &makeRows)
{
    const auto total = static_cast<int>(cards.rowCount());
    int done = 0;
    std::vector<StockRow> batch;
    while (!cards.eof()) {
        batch.clear();
        for (; !cards.eof() && batch.size() < kBatch; cards.moveNext(), ++done)
            makeRows(cards, batch);
        m_list.append(batch);
        if (!m_progress(SearchStage::rows, done, total))
            return false;
    }
    return true;
}

bool StockSearch::pass(SearchStage stage, const std::function<void(int row)> &step)
{
    const int total = m_list.size() - m_firstRow;
    for (int done = 0; done < total; ++done) {
        step(m_firstRow + done);
        if (!m_progress(stage, done + 1, total))
            return false;
    }
    return true;
}

bool StockSearch::barcodePass()
{
    return pass(SearchStage::barcodes, [this](int row) {
        const StockRow &stock = m_list.at(row);
        const QString barcode = unitBarcode(
            m_program.company().execute(host_queries::barcodesOf(stock.code)), stock.tag);
        if (!barcode.isEmpty())
            m_list.setBarcode(row, barcode);
        m_list.barcodeRead(row);
    });
}

bool StockSearch::pricePass(const PriceNumbers &numbers)
{
    return pass(SearchStage::prices, [this, &numbers](int row) {
        const StockRow &stock = m_list.at(row);
        m_list.setPrice(row,
                        labelPrice(m_program.company().execute(host_queries::pricesOf(stock.code)),
                                   numbers.wanted(stock.tag)));
    });
}
