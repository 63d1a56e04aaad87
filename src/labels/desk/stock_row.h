#pragma once

#include "common/record_set.h"

#include <QString>

#include <vector>

/// Which units of a stock are meant: those a search lists, those a command takes.
enum class UnitChoice
{
    first,
    second,
    both
};

/// One unit of a stock, as the stock list shows it.
struct StockRow
{
    QString barcode; ///< "" when the unit has none
    QString code;
    QString name;
    QString unitName;
    QString price; ///< label price "###,###0.00", "" when the unit has none
    int unit = 1;  ///< number of the unit in the ledger
    int count = 1; ///< labels to print

    /// The unit as it is shown: its name, then " (BIRIM1)", or " (BIRIM2)" for all but the first.
    QString unitText() const;
    /// Whether a command for these units takes the row.
    bool isOf(UnitChoice units) const;

    friend bool operator==(const StockRow &, const StockRow &) = default;
};

/// Adds the rows of one `STKKART` record, each with this label count. A second unit that is empty
/// or a single blank is none. Throws HostError.
void appendUnitRows(const RecordSet &card, UnitChoice units, int count,
                    std::vector<StockRow> &rows);

/// The row of a scanned unit. That of a second unit bears the first unit's name: whoever scans a
/// barcode knows the stock by its ordinary unit. Throws HostError.
StockRow scannedRow(const RecordSet &card, int unit, int count = 1);

/// The barcode of a unit among those of its stock; when several match, the one read last. "" when
/// there is none. Throws HostError.
QString unitBarcode(RecordSet barcodes, int unit);
