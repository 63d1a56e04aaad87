#include "labels/desk/print_queue.h"

#include <QBrush>

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// How a row shows that is not like the others: pale, a strong mark, a hint.
struct Look
{
    QRgb row;
    QRgb mark;
    QStringView hint;
};

constexpr Look kFresh = {0xFFFFF3C4, 0xFFE0A100, u"Yeni numara: henüz kaydedilmedi"};
constexpr Look kSaved = {0xFFE0F3E0, 0xFF2E8B57, u"Yeni numara: kaydedildi"};
constexpr Look kPrinted = {0xFFE9EDF2, 0xFF7A8899, u"Basıldı"};

const Look *lookOf(const QueueRow &row)
{
    if (row.state == QueueState::fresh)
        return &kFresh;
    if (row.printed)
        return &kPrinted;
    return row.state == QueueState::saved ? &kSaved : nullptr;
}

/// The last part of a tag, in the order of QueueState.
constexpr std::array<QStringView, 4> kStates = {u"0", u"a0", u"a1", u"a2"};
constexpr QStringView kSeparator = u"<123>";

} // namespace

QString QueueRow::tag() const
{
    return u"%1%2%3"_s.arg(unit).arg(kSeparator, kStates.at(static_cast<std::size_t>(state)));
}

bool QueueRow::setTag(const QString &text)
{
    const QString separator = kSeparator.toString();
    bool isUnit = false;
    const int unitNumber = text.section(separator, 0, 0).toInt(&isUnit);
    const auto found = std::find(kStates.begin(), kStates.end(), text.section(separator, 1));
    if (!isUnit || found == kStates.end())
        return false;
    unit = unitNumber;
    state = static_cast<QueueState>(found - kStates.begin());
    return true;
}

std::vector<LabelRow> labelsOf(const std::vector<PlacedRow> &rows)
{
    std::vector<LabelRow> labels;
    for (const auto &[row, place] : rows)
        labels.push_back({.barcode = row.barcode,
                          .stockCode = row.code,
                          .stockName = row.name,
                          .price = row.price,
                          .count = row.count,
                          .queueRow = place,
                          .unit = row.unitName});
    return labels;
}

PrintQueue::PrintQueue(QObject *parent)
    : RowTable({{u"No"_s, [](const QueueRow &row) { return QString::number(row.number); }},
                {u"Barkod"_s, shown<&QueueRow::barcode>},
                {u"Stok Kodu"_s, shown<&QueueRow::code>},
                {u"Stok Adı"_s, shown<&QueueRow::name>},
                {u"Birim"_s, [](const QueueRow &row) { return row.unitText(); }},
                {u"Fiyat"_s, shown<&QueueRow::price>, true},
                {u"Adet"_s, [](const QueueRow &row) { return QString::number(row.count); }, true}},
               parent)
{}

QVariant PrintQueue::data(const QModelIndex &index, int role) const
{
    if (index.isValid() && role == Qt::UserRole)
        return at(index.row()).tag();
    const bool mark = role == Qt::DecorationRole && index.column() == barcode;
    if (!index.isValid() || (role != Qt::BackgroundRole && role != Qt::ToolTipRole && !mark))
        return RowTable::data(index, role);
    const Look *look = lookOf(at(index.row()));
    if (!look)
        return {};
    if (role == Qt::ToolTipRole)
        return look->hint.toString();
    return mark ? QVariant(QColor(look->mark)) : QVariant(QBrush(QColor(look->row)));
}

QList<int> PrintQueue::everyPlace() const
{
    QList<int> places(size());
    std::iota(places.begin(), places.end(), 0);
    return places;
}

std::vector<PlacedRow> PrintQueue::placed(const QList<int> &places) const
{
    std::vector<PlacedRow> rows;
    for (const int place : places)
        rows.push_back({at(place), place});
    return rows;
}

void PrintQueue::append(const std::vector<QueueRow> &rows)
{
    if (rows.empty())
        return;
    const int first = size();
    RowTable::append(rows);
    sirala(first);
}

std::vector<QueueRow> PrintQueue::take(const QList<int> &places)
{
    std::vector<QueueRow> taken = takeRows(places);
    sirala(0);
    return taken;
}

void PrintQueue::putBack(const QList<int> &places, const std::vector<QueueRow> &rows)
{
    putRows(places, rows);
    sirala(0);
}

void PrintQueue::sort(int column, Qt::SortOrder order)
{
    RowTable::sort(column, order);
    sirala(0);
}

void PrintQueue::clear()
{
    RowTable::clear();
    sirala(0);
}

void PrintQueue::setCounts(const QList<int> &places, int labels)
{
    if (places.isEmpty())
        return;
    for (const int place : places) {
        edit(place).count = labels;
        edit(place).printed = false;
    }
    tellRows(places);
    sirala(size());
}

void PrintQueue::setNumber(int row, const QString &barcodeText, QueueState state)
{
    QueueRow &queued = edit(row);
    queued.barcode = barcodeText;
    queued.state = state;
    tellRows({row});
    Q_EMIT changed();
}

void PrintQueue::markPrinted(const QList<int> &places)
{
    for (const int place : places)
        edit(place).printed = true;
    tellRows(places);
    Q_EMIT changed();
}

QList<int> PrintQueue::printedPlaces() const
{
    QList<int> places;
    for (int row = 0; row < size(); ++row)
        if (at(row).printed)
            places += row;
    return places;
}

void PrintQueue::setPrice(int row, const QString &text, qint64 moment)
{
    QueueRow &queued = edit(row);
    queued.printed = queued.printed && queued.price == text;
    queued.price = text;
    queued.priceRead = moment;
    tellRows({row});
    Q_EMIT changed();
}

void PrintQueue::setRows(const std::vector<QueueRow> &rows, const std::vector<int> &added)
{
    replaceRows(rows, added);
    sirala(0);
}

void PrintQueue::tellRows(const QList<int> &places)
{
    if (!places.isEmpty())
        Q_EMIT dataChanged(index(places.first(), 0), index(places.last(), columns - 1));
}

void PrintQueue::sirala(int firstRow)
{
    for (int row = firstRow; row < size(); ++row)
        edit(row).number = row + 1;
    if (isValidRow(firstRow))
        Q_EMIT dataChanged(index(firstRow, number), index(size() - 1, number), {Qt::DisplayRole});
    m_total = 0;
    for (const QueueRow &row : m_rows)
        m_total += row.count;
    Q_EMIT totalChanged(m_total);
    Q_EMIT changed();
}
