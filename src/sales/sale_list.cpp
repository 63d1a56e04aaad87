#include "sales/sale_list.h"

#include "common/turkish.h"

using namespace Qt::StringLiterals;

namespace {

const std::array<QString, kSaleColumns> &captions()
{
    static const std::array<QString, kSaleColumns> texts = {
        u"Barkod"_s,      u"Stok Kodu"_s, u"Stok Adı"_s, u"KDV %"_s,   u"Birim"_s,
        u"Birim Fiyat"_s, u"Miktar"_s,    u"Tutar"_s,    u"İndirim"_s, u"Net Tutar"_s};
    return texts;
}

QVariant alignment(int column)
{
    const auto which = static_cast<SaleColumn>(column + 1);
    Qt::Alignment across = which >= SaleColumn::price ? Qt::AlignRight : Qt::AlignLeft;
    if (which == SaleColumn::vatRate || which == SaleColumn::unit)
        across = Qt::AlignHCenter;
    return QVariant::fromValue(across | Qt::AlignVCenter);
}

} // namespace

int SaleList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : size();
}

int SaleList::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : kSaleColumns;
}

QVariant SaleList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= size())
        return {};
    const QString &text = line(index.row()).cells[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text;
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    default:
        return {};
    }
}

QVariant SaleList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kSaleColumns)
        return {};
    if (role == Qt::DisplayRole)
        return captions()[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return alignment(section);
    return {};
}

int SaleList::append(SaleLine line)
{
    const int row = size();
    beginInsertRows({}, row, row);
    m_figures.push_back(pricing::figuresOf(line));
    m_lines.push_back(std::move(line));
    endInsertRows();
    return row;
}

void SaleList::replace(int row, SaleLine line)
{
    m_figures.at(static_cast<std::size_t>(row)) = pricing::figuresOf(line);
    m_lines.at(static_cast<std::size_t>(row)) = std::move(line);
    Q_EMIT dataChanged(index(row, 0), index(row, kSaleColumns - 1));
}

void SaleList::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_lines.erase(m_lines.begin() + row);
    m_figures.erase(m_figures.begin() + row);
    endRemoveRows();
}

void SaleList::clear()
{
    beginResetModel();
    m_lines.clear();
    m_figures.clear();
    endResetModel();
}

int SaleList::find(SaleColumn column, QStringView code) const
{
    for (int row = 0; row < size(); ++row)
        if (turkish::sameCode(line(row)[column], code))
            return row;
    return -1;
}
