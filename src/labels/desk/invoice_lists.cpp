#include "labels/desk/invoice_lists.h"

using namespace Qt::StringLiterals;

InvoiceList::InvoiceList(QObject *parent)
    : RowTable({{u"Tarih"_s, shown<&InvoiceRow::date>},
                {u"Evrak No"_s, shown<&InvoiceRow::document>},
                {u"Cari Ünvanı"_s, shown<&InvoiceRow::customer>}},
               parent)
{}

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
    const Qt::ItemFlags usual = RowTable::flags(index);
    return index.column() == date ? usual | Qt::ItemIsUserCheckable : usual;
}

QVariant InvoiceList::data(const QModelIndex &index, int role) const
{
    if (role == Qt::CheckStateRole && index.isValid() && index.column() == date)
        return at(index.row()).checked ? Qt::Checked : Qt::Unchecked;
    return RowTable::data(index, role);
}

bool InvoiceList::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid())
        return false;
    edit(index.row()).checked = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

InvoiceLineList::InvoiceLineList(QObject *parent)
    : RowTable({{u"Stok Kodu"_s, shown<&InvoiceLine::stockCode>},
                {u"Miktar"_s, shown<&InvoiceLine::quantity>, true}},
               parent)
{}
