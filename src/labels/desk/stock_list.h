#pragma once

#include "labels/desk/row_table.h"
#include "labels/desk/stock_row.h"

/// The stock list `l1`.
class StockList final : public RowTable<StockRow>
{
    Q_OBJECT

public:
    enum Cell
    {
        barcode,
        code,
        name,
        unit,
        price,
        count,
        columns
    };

    explicit StockList(QObject *parent = nullptr);

    void clear() override;

    /// These two change a cell without telling the views: a pass over 100.000 rows would drown them
    /// in signals. announceChanges() tells them of everything changed since it was last called.
    void setBarcode(int row, const QString &text);
    void setPrice(int row, const QString &text);
    void announceChanges();

    /// When all its prices were read, or the earliest of them was, in milliseconds since 1970; 0
    /// when some were not.
    qint64 pricesRead() const { return m_pricesRead; }
    void setPricesRead(qint64 moment) { m_pricesRead = moment; }

    /// Notes that the host was asked for this row's barcode; rows are asked for from first to last.
    void barcodeRead(int row);
    /// True when it was asked for every row: only then a row without a barcode has none.
    bool allBarcodesRead() const { return m_barcodesRead == size(); }

private:
    void setCell(int row, Cell column, QString &cell, const QString &text);

    qint64 m_pricesRead = 0;
    int m_barcodesRead = 0;    ///< rows from the first whose barcode was asked for
    QModelIndex m_firstChange; ///< corners of the rectangle not yet announced; invalid: none
    QModelIndex m_lastChange;
};
