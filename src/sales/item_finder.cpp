#include "sales/item_finder.h"

#include "common/host_connection.h"
#include "common/host_queries.h"
#include "common/select_many.h"
#include "sales/item_lookup.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kShortestBarcode = 7;
constexpr std::array<SaleColumn, 4> kColumns = {SaleColumn::stockCode, SaleColumn::name,
                                                SaleColumn::unit, SaleColumn::net};
constexpr std::array<QStringView, 4> kHeaders = {u"Stok Kodu", u"Stok Adı", u"Birim", u"Fiyat"};

bool isBarcode(const QString &text)
{
    return text.size() >= kShortestBarcode &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

ItemFinder::ItemFinder(CompanyDatabase &company, const ItemLookup &lookup, QObject *parent)
    : QAbstractTableModel(parent), m_company(company), m_lookup(lookup)
{}

void ItemFinder::search(const QString &text)
{
    beginResetModel();
    m_items.clear();
    endResetModel();
    m_remark.clear();
    if (text.isEmpty())
        return;
    std::vector<SaleLine> items = found(text);
    readPrices(items);
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
    if (m_items.empty())
        m_remark = u"Bulunamadı: %1"_s.arg(text);
    else if (rowCount() == kMost)
        m_remark = u"İlk %1 stok; adından daha çok harf yazın."_s.arg(kMost);
}

std::vector<SaleLine> ItemFinder::found(const QString &text) const
{
    HostConnection &host = m_company.company();
    RecordSet cards;
    if (isBarcode(text)) {
        const RecordSet owner = host.execute(host_queries::barcode(text));
        if (!owner.eof())
            cards = host.execute(host_queries::card(owner.text(u"STKBARSTKKOD")));
    }
    for (const auto statement : {host_queries::cardsByName, host_queries::cardsByCode})
        if (cards.eof())
            cards = host.execute(statement(text));
    std::vector<SaleLine> items;
    for (; !cards.eof() && items.size() < kMost; cards.moveNext())
        items.push_back(lineOf(cards, cards.text(u"STKKOD")));
    return items;
}

void ItemFinder::readPrices(std::vector<SaleLine> &items) const
{
    selectMany(
        m_company, static_cast<int>(items.size()),
        [&](int i) {
            return host_queries::pricesOf(
                items.at(static_cast<std::size_t>(i))[SaleColumn::stockCode]);
        },
        [&](int i, RecordSet prices) {
            SaleLine &line = items.at(static_cast<std::size_t>(i));
            if (!m_lookup.priceLine(line, std::move(prices)).isEmpty())
                line[SaleColumn::net].clear();
            return true;
        });
}

int ItemFinder::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

int ItemFinder::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
}

QVariant ItemFinder::data(const QModelIndex &index, int role) const
{
    const SaleColumn column = kColumns.at(static_cast<std::size_t>(index.column()));
    if (role == Qt::TextAlignmentRole && column == SaleColumn::net)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? item(index.row())[column] : QVariant();
}

QVariant ItemFinder::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return kHeaders.at(static_cast<std::size_t>(section)).toString();
}
