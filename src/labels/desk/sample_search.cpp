#include "labels/desk/sample_search.h"

#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "labels/desk/stock_loader.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr qsizetype kShortestBarcode = 8;

bool looksLikeBarcode(const QString &text)
{
    return text.size() >= kShortestBarcode &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

} // namespace

std::vector<LabelRow> SampleSearch::find(const QString &text, const PriceNumbers &prices)
{
    const QString wanted = text.trimmed();
    if (m_busy || wanted.isEmpty())
        return {};
    const QScopedValueRollback busy(m_busy, true);
    StockList stocks;
    StockLoader loader(m_program, stocks, prices);
    if (looksLikeBarcode(wanted))
        loader.brkdbul(wanted);
    if (stocks.size() == 0)
        loader.stkcinsibul(wanted);
    if (stocks.size() == 0)
        loader.stkkodbul(wanted);

    std::vector<PlacedRow> found;
    for (const StockRow &stock : stocks.rows())
        found.push_back({{stock}});
    return labelsOf(found);
}
