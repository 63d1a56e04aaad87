#include "labels/desk/print_queue.h"

#include <QBrush>

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// How a state shows: a pale row, a strong mark beside the number, a hint.
struct StateLook
{
    QueueState state;
    QRgb row;
    QRgb mark;
    QStringView hint;
};

constexpr std::array<StateLook, 2> kLooks = {
    {{QueueState::fresh, 0xFFFFF3C4, 0xFFE0A100, u"Yeni numara: henüz kaydedilmedi"},
     {QueueState::saved, 0xFFE0F3E0, 0xFF2E8B57, u"Yeni numara: kaydedildi"}}};

/// The last part of a tag, in the order of QueueState.
constexpr std::array<QStringView, 4> kStates = {u"0", u"a0", u"a1", u"a2"};

} // namespace

QString QueueRow::tag() const
{
    return u"%1<123>%2"_s.arg(unit).arg(kStates.at(static_cast<std::size_t>(state)));
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
    const QueueRow &row = at(index.row());
    for (const StateLook &look : kLooks) {
        if (row.state != look.state)
            continue;
        if (role == Qt::ToolTipRole)
            return look.hint.toString();
        return mark ? QVariant(QColor(look.mark)) : QVariant(QBrush(QColor(look.row)));
    }
    return {};
}

QList<int> PrintQueue::everyPlace() const
{
    QList<int> places(size());
    std::iota(places.begin(), places.end(), 0);
    return places;
}

std::vector<LabelRow> PrintQueue::labels(const QList<int> &places) const
{
    std::vector<LabelRow> labels;
    labels.reserve(static_cast<std::size_t>(places.size()));
    for (const int place : places) {
        const QueueRow &row = at(place);
        labels.push_back({.barcode = row.barcode,
                          .stockCode = row.code,
                          .stockName = row.name,
                          .price = row.price,
                          .count = row.count,
                          .queueRow = place});
    }
    return labels;
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
    std::vector<QueueRow> taken;
    std::vector<QueueRow> left;
    auto wanted = places.cbegin();
    for (int row = 0; row < size(); ++row) {
        const bool isWanted = wanted != places.cend() && *wanted == row;
        (isWanted ? taken : left).push_back(at(row));
        if (isWanted)
            ++wanted;
    }
    if (places.size() == 1) { // the list stays where it is scrolled to
        beginRemoveRows({}, places.first(), places.first());
        m_rows = std::move(left);
        endRemoveRows();
        sirala(places.first());
    } else {
        replaceRows(std::move(left));
    }
    return taken;
}

void PrintQueue::putBack(const QList<int> &places, const std::vector<QueueRow> &rows)
{
    std::vector<QueueRow> whole;
    auto next = m_rows.cbegin();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto place = static_cast<std::size_t>(places.at(static_cast<qsizetype>(i)));
        while (whole.size() < place && next != m_rows.cend())
            whole.push_back(*next++);
        whole.push_back(rows[i]);
    }
    whole.insert(whole.end(), next, m_rows.cend());
    replaceRows(std::move(whole));
}

void PrintQueue::replaceRows(std::vector<QueueRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
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
    for (const int place : places)
        edit(place).count = labels;
    Q_EMIT dataChanged(index(places.first(), count), index(places.last(), count),
                       {Qt::DisplayRole});
    sirala(size());
}

void PrintQueue::setNumber(int row, const QString &barcodeText, QueueState state)
{
    QueueRow &queued = edit(row);
    queued.barcode = barcodeText;
    queued.state = state;
    Q_EMIT dataChanged(index(row, 0), index(row, columns - 1));
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
}
