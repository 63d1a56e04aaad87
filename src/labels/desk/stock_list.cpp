#include "labels/desk/stock_list.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

StockList::StockList(QObject *parent)
    : CellTable({{u"Barkod"_s},
                 {u"Stok Kodu"_s},
                 {u"Stok Adı"_s},
                 {u"Birim"_s},
                 {u"Fiyat"_s, true},
                 {u"Adet"_s, true}},
                parent)
{}

QString StockList::cell(int row, int column) const
{
    static constexpr std::array<QString StockRow::*, columns> cells = {
        &StockRow::barcode, &StockRow::code,  &StockRow::name,
        &StockRow::unit,    &StockRow::price, &StockRow::count};
    return at(row).*cells.at(static_cast<std::size_t>(column));
}

void StockList::clear()
{
    beginResetModel();
    m_rows.clear();
    m_barcodesRead = 0;
    m_firstChange = m_lastChange = {};
    endResetModel();
}

void StockList::append(const std::vector<StockRow> &rows)
{
    if (rows.empty())
        return;
    beginInsertRows({}, size(), size() + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    endInsertRows();
}

void StockList::barcodeRead(int row)
{
    if (row == m_barcodesRead)
        ++m_barcodesRead;
}

void StockList::setBarcode(int row, const QString &text)
{
    setCell(row, barcode, m_rows.at(static_cast<std::size_t>(row)).barcode, text);
}

void StockList::setPrice(int row, const QString &text)
{
    setCell(row, price, m_rows.at(static_cast<std::size_t>(row)).price, text);
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
