#include "sales/finder.h"

#include "common/digits.h"
#include "common/host_connection.h"
#include "common/host_queries.h"
#include "common/select_many.h"
#include "sales/item_lookup.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kShortestBarcode = 7;
constexpr int kPriceColumn = 3;

bool isBarcode(const QString &text)
{
    return text.size() >= kShortestBarcode && areDigits(text);
}

/// The records of the first statement that finds any.
RecordSet firstFound(HostConnection &host, const QString &text,
                     std::initializer_list<QString (*)(const QString &)> statements)
{
    RecordSet records;
    for (const auto statement : statements)
        if (records.eof())
            records = host.execute(statement(text));
    return records;
}

} // namespace

Finder::Finder(CompanyDatabase &company, QStringList headers, QObject *parent)
    : QAbstractTableModel(parent), m_company(company), m_headers(std::move(headers))
{}

void Finder::search(const QString &text)
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
    m_remark.clear();
    if (text.isEmpty())
        return;
    std::vector<QStringList> rows = find(text);
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
    if (m_rows.empty())
        m_remark = u"Bulunamadı: %1"_s.arg(text);
    else if (rowCount() == kMost)
        m_remark = u"İlk %1 satır; adından daha çok harf yazın."_s.arg(kMost);
}

int Finder::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int Finder::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant Finder::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) // Ctrl+C in an empty list asks for one
        return {};
    if (role == Qt::TextAlignmentRole && index.column() == kPriceColumn)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? cells(index.row()).at(index.column()) : QVariant();
}

QVariant Finder::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_headers.at(section);
}

// ---- items

ItemFinder::ItemFinder(CompanyDatabase &company, const ItemLookup &lookup, QObject *parent)
    : Finder(company, {u"Stok Kodu"_s, u"Stok Adı"_s, u"Birim"_s, u"Fiyat"_s}, parent),
      m_lookup(lookup)
{}

QString ItemFinder::large(int row) const
{
    const QString &price = cells(row).at(kPriceColumn);
    return price.isEmpty() ? u"fiyatı yok"_s : price + u" ₺"_s;
}

std::vector<QStringList> ItemFinder::find(const QString &text) const
{
    const std::vector<SaleLine> found = items(text);
    std::vector<QStringList> rows;
    selectMany(
        company(), static_cast<int>(found.size()),
        [&](int i) {
            return host_queries::pricesOf(
                found.at(static_cast<std::size_t>(i))[SaleColumn::stockCode]);
        },
        [&](int i, RecordSet prices) {
            SaleLine line = found.at(static_cast<std::size_t>(i));
            const bool sold = m_lookup.priceLine(line, std::move(prices)).isEmpty();
            rows.push_back({line[SaleColumn::stockCode], line[SaleColumn::name],
                            line[SaleColumn::unit], sold ? line[SaleColumn::net] : QString()});
            return true;
        });
    return rows;
}

std::vector<SaleLine> ItemFinder::items(const QString &text) const
{
    HostConnection &host = company().company();
    RecordSet cards;
    if (isBarcode(text)) {
        const RecordSet owner = host.execute(host_queries::barcode(text));
        if (!owner.eof())
            cards = host.execute(host_queries::card(owner.text(u"STKBARSTKKOD")));
    }
    if (cards.eof())
        cards = firstFound(host, text, {host_queries::cardsByName, host_queries::cardsByCode});
    std::vector<SaleLine> found;
    for (; !cards.eof() && found.size() < kMost; cards.moveNext())
        found.push_back(lineOf(cards, cards.text(u"STKKOD")));
    return found;
}

// ---- customers

CustomerFinder::CustomerFinder(CompanyDatabase &company, QObject *parent)
    : Finder(company, {u"Cari Kodu"_s, u"Unvan"_s}, parent)
{}

QString CustomerFinder::large(int row) const
{
    return name(row);
}

std::vector<QStringList> CustomerFinder::find(const QString &text) const
{
    RecordSet accounts = firstFound(company().company(), text,
                                    {host_queries::accountsByName, host_queries::accountsByCode});
    std::vector<QStringList> rows;
    for (; !accounts.eof() && rows.size() < kMost; accounts.moveNext())
        rows.push_back({accounts.text(u"CARKOD"), accounts.text(u"CARUNVAN")});
    return rows;
}
