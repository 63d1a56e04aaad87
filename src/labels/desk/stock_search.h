#pragma once

#include "labels/desk/label_prices.h"
#include "labels/desk/stock_list.h"

#include <functional>

class Program;

/// Which units of a stock a search lists.
enum class UnitChoice
{
    first,
    second,
    both
};

/// What a search is busy with.
enum class SearchStage
{
    rows,
    barcodes,
    prices
};

/// Adds the rows of one `STKKART` record, each with this label count. A second unit that is empty
/// or a single blank is none. Throws HostError.
void appendUnitRows(const RecordSet &card, UnitChoice units, const QString &count,
                    std::vector<StockRow> &rows);

/// Fills the stock list from the company database: first the stocks, then the barcode of every row,
/// then its price, one statement each. Everything throws HostError; the list then keeps what it
/// has, and a first statement that fails leaves it as it was.
///
/// The steps return false when the search was stopped.
class StockSearch
{
public:
    /// Called after every batch of rows and after every row of a pass; false stops the search.
    using Progress = std::function<bool(SearchStage stage, int done, int total)>;

    StockSearch(Program &program, StockList &list, Progress progress);

    /// Replaces the list by the units of the stocks that a statement over `STKKART` finds.
    bool list(const QString &statement, UnitChoice units);

    /// Replaces the list by the one unit that owns a barcode.
    bool byBarcode(const QString &barcode);

    /// Appends the units of the stocks that a statement over `STKKART` finds.
    bool append(const QString &statement, UnitChoice units, const QString &count);

    /// The passes read for the rows listed since the list was last replaced or appended to.
    bool barcodePass();

    /// `fiyatoku`. Rows without a price under the wanted number end with an empty one.
    bool pricePass(const PriceNumbers &numbers);

private:
    using RowMaker = std::function<void(const RecordSet &card, std::vector<StockRow> &rows)>;

    bool show(RecordSet cards, const RowMaker &makeRows);
    bool add(RecordSet cards, const RowMaker &makeRows);
    bool pass(SearchStage stage, const std::function<void(int row)> &step);

    Program &m_program;
    StockList &m_list;
    Progress m_progress;
    int m_firstRow = 0; ///< where the passes start
};
