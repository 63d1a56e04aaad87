#include "labels/desk/cell_table.h"

CellTable::CellTable(std::vector<Column> columns, QObject *parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns))
{}

int CellTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : size();
}

int CellTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CellTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return cell(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return headerData(index.column(), Qt::Horizontal, role);
    return {};
}

QVariant CellTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column &column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return column.caption;
    if (role == Qt::TextAlignmentRole)
        return QVariant((column.isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    return {};
}
