#include "labels/desk/stock_row.h"

using namespace Qt::StringLiterals;

namespace {

StockRow unitRow(const RecordSet &card, const QString &unitName, int unit, int count)
{
    return {.barcode = {},
            .code = card.text(u"STKKOD"),
            .name = card.text(u"STKCINSI"),
            .unitName = unitName,
            .price = {},
            .unit = unit,
            .count = count};
}

} // namespace

QString StockRow::unitText() const
{
    return unitName + (unit == 1 ? u" (BIRIM1)"_s : u" (BIRIM2)"_s);
}

bool StockRow::isOf(UnitChoice units) const
{
    return units == UnitChoice::both || (units == UnitChoice::first) == (unit == 1);
}

void appendUnitRows(const RecordSet &card, UnitChoice units, int count, std::vector<StockRow> &rows)
{
    if (units != UnitChoice::second)
        rows.push_back(unitRow(card, card.text(u"STKBIRIM"), 1, count));
    if (units == UnitChoice::first)
        return;
    const QString second = card.text(u"STKBIRIM2");
    if (!second.isEmpty() && second != u" ")
        rows.push_back(unitRow(card, second, 2, count));
}

StockRow scannedRow(const RecordSet &card, int unit, int count)
{
    return unitRow(card, card.text(u"STKBIRIM"), unit, count);
}

QString unitBarcode(RecordSet barcodes, int unit)
{
    QString barcode;
    for (; !barcodes.eof(); barcodes.moveNext()) {
        const QString candidate = barcodes.text(u"STKBARKOD");
        if (!candidate.isEmpty() && barcodes.text(u"STKBARBRMNO").trimmed().toInt() == unit)
            barcode = candidate;
    }
    return barcode;
}
