#include "labels/print/print_queue.h"

#include "common/amount.h"

#include <array>

using namespace Qt::StringLiterals;

PrintQueue::PrintQueue(QObject *parent)
    : CellTable({{u"No"_s},
                 {u"Barkod"_s},
                 {u"Stok Kodu"_s},
                 {u"Stok Adı"_s},
                 {u"Birim"_s},
                 {u"Fiyat"_s, true},
                 {u"Adet"_s, true}},
                parent)
{}

QString PrintQueue::cell(int row, int column) const
{
    static constexpr std::array<QString QueueRow::*, columns> cells = {
        &QueueRow::number, &QueueRow::barcode, &QueueRow::code, &QueueRow::name,
        &QueueRow::unit,   &QueueRow::price,   &QueueRow::count};
    return at(row).*cells.at(static_cast<std::size_t>(column));
}

void PrintQueue::append(const std::vector<QueueRow> &rows)
{
    if (rows.empty())
        return;
    const int first = size();
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    endInsertRows();
    sirala(first);
}

void PrintQueue::remove(int row)
{
    if (!isValidRow(row))
        return;
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
    sirala(row);
}

void PrintQueue::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
    sirala(0);
}

bool PrintQueue::setCount(int row, QStringView text)
{
    return isValidRow(row) && setCounts(row, row, text);
}

bool PrintQueue::setAllCounts(QStringView text)
{
    return setCounts(0, size() - 1, text);
}

bool PrintQueue::setCounts(int first, int last, QStringView text)
{
    const auto labels = amount::labelCount(text);
    if (!labels)
        return false;
    const QString written = QString::number(*labels);
    for (int row = first; row <= last; ++row)
        m_rows.at(static_cast<std::size_t>(row)).count = written;
    if (first <= last)
        Q_EMIT dataChanged(index(first, count), index(last, count), {Qt::DisplayRole});
    sirala(size());
    return true;
}

void PrintQueue::sirala(int firstRow)
{
    for (int row = firstRow; row < size(); ++row)
        m_rows[static_cast<std::size_t>(row)].number = QString::number(row + 1);
    if (isValidRow(firstRow))
        Q_EMIT dataChanged(index(firstRow, number), index(size() - 1, number), {Qt::DisplayRole});
    m_total = 0;
    for (const QueueRow &row : m_rows)
        m_total += amount::labelCount(row.count).value_or(0);
    Q_EMIT totalChanged(m_total);
}
