#include "labels/desk/stock_list.h"

#include <algorithm>

using namespace Qt::StringLiterals;

StockList::StockList(QObject *parent)
    : RowTable({{u"Barkod"_s, shown<&StockRow::barcode>},
                {u"Stok Kodu"_s, shown<&StockRow::code>},
                {u"Stok Adı"_s, shown<&StockRow::name>},
                {u"Birim"_s, [](const StockRow &row) { return row.unitText(); }},
                {u"Fiyat"_s, shown<&StockRow::price>, true},
                {u"Adet"_s, [](const StockRow &row) { return QString::number(row.count); }, true}},
               parent)
{}

void StockList::clear()
{
    m_barcodesRead = 0;
    m_pricesRead = 0;
    m_firstChange = m_lastChange = {};
    RowTable::clear();
}

void StockList::barcodeRead(int row)
{
    if (row == m_barcodesRead)
        ++m_barcodesRead;
}

void StockList::setBarcode(int row, const QString &text)
{
    setCell(row, barcode, edit(row).barcode, text);
}

void StockList::setPrice(int row, const QString &text)
{
    setCell(row, price, edit(row).price, text);
}

void StockList::setCell(int row, Cell column, QString &cell, const QString &text)
{
    if (cell == text)
        return;
    cell = text;
    if (!m_firstChange.isValid()) {
        m_firstChange = m_lastChange = index(row, column);
        return;
    }
    m_firstChange =
        index(std::min(row, m_firstChange.row()), std::min<int>(column, m_firstChange.column()));
    m_lastChange =
        index(std::max(row, m_lastChange.row()), std::max<int>(column, m_lastChange.column()));
}

void StockList::announceChanges()
{
    if (m_firstChange.isValid())
        Q_EMIT dataChanged(m_firstChange, m_lastChange, {Qt::DisplayRole});
    m_firstChange = m_lastChange = {};
}
