#include "labels/desk/invoice_lists.h"

using namespace Qt::StringLiterals;

InvoiceList::InvoiceList(QObject *parent)
    : CellTable({{u"Tarih"_s}, {u"Evrak No"_s}, {u"Cari Ünvanı"_s}}, parent)
{}

QString InvoiceList::cell(int row, int column) const
{
    const InvoiceRow &invoice = at(row);
    switch (column) {
    case date:
        return invoice.date;
    case document:
        return invoice.document;
    default:
        return invoice.customer;
    }
}

void InvoiceList::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void InvoiceList::append(const std::vector<InvoiceRow> &rows)
{
    if (rows.empty())
        return;
    beginInsertRows({}, size(), size() + static_cast<int>(rows.size()) - 1);
    m_rows.insert(m_rows.end(), rows.begin(), rows.end());
    endInsertRows();
}

void InvoiceList::checkAll(bool checked)
{
    if (m_rows.empty())
        return;
    for (InvoiceRow &row : m_rows)
        row.checked = checked;
    Q_EMIT dataChanged(index(0, 0), index(size() - 1, 0), {Qt::CheckStateRole});
}

void InvoiceList::toggle(int row)
{
    if (isValidRow(row))
        setData(index(row, date), at(row).checked ? Qt::Unchecked : Qt::Checked,
                Qt::CheckStateRole);
}

QStringList InvoiceList::checkedReferences() const
{
    QStringList references;
    for (const InvoiceRow &row : m_rows)
        if (row.checked)
            references += row.reference;
    return references;
}

Qt::ItemFlags InvoiceList::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = CellTable::flags(index);
    return index.column() == date ? usual | Qt::ItemIsUserCheckable : usual;
}

QVariant InvoiceList::data(const QModelIndex &index, int role) const
{
    if (role == Qt::CheckStateRole && index.isValid() && index.column() == date)
        return at(index.row()).checked ? Qt::Checked : Qt::Unchecked;
    return CellTable::data(index, role);
}

bool InvoiceList::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid())
        return false;
    m_rows.at(static_cast<std::size_t>(index.row())).checked = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

InvoiceLineList::InvoiceLineList(QObject *parent)
    : CellTable({{u"Stok Kodu"_s}, {u"Miktar"_s, true}}, parent)
{}

QString InvoiceLineList::cell(int row, int column) const
{
    const InvoiceLine &line = m_lines.at(row);
    return column == stockCode ? line.stockCode : line.quantity;
}

void InvoiceLineList::clear()
{
    beginResetModel();
    m_lines.clear();
    endResetModel();
}

void InvoiceLineList::append(const QList<InvoiceLine> &lines)
{
    if (lines.isEmpty())
        return;
    beginInsertRows({}, size(), size() + static_cast<int>(lines.size()) - 1);
    m_lines += lines;
    endInsertRows();
}
