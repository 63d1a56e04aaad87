#include "labels/desk/print_queue.h"

#include "common/amount.h"
#include "labels/desk/stock_list.h"

#include <QBrush>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString makeTag(QStringView unitNumber, QStringView state)
{
    return u"%1%2%3"_s.arg(unitNumber, kTagSeparator, state);
}

/// How a state shows: a pale row, a strong mark beside the number, a hint.
struct StateLook
{
    QStringView state;
    QRgb row;
    QRgb mark;
    QStringView hint;
};

constexpr std::array<StateLook, 2> kLooks = {
    {{queue_state::kNew, 0xFFFFF3C4, 0xFFE0A100, u"Yeni numara: henüz kaydedilmedi"},
     {queue_state::kSaved, 0xFFE0F3E0, 0xFF2E8B57, u"Yeni numara: kaydedildi"}}};

} // namespace

QString QueueRow::unitNumber() const
{
    return tag.section(kTagSeparator.toString(), 0, 0);
}

QString QueueRow::state() const
{
    return tag.section(kTagSeparator.toString(), 1);
}

QueueRow queuedRow(const StockRow &stock, QStringView state)
{
    return {.number = {},
            .barcode = stock.barcode,
            .code = stock.code,
            .name = stock.name,
            .unit = stock.unit,
            .price = stock.price,
            .count = stock.count,
            .tag = makeTag(stock.tag, state)};
}

PrintQueue::PrintQueue(QObject *parent)
    : RowTable({{u"No"_s, &QueueRow::number},
                {u"Barkod"_s, &QueueRow::barcode},
                {u"Stok Kodu"_s, &QueueRow::code},
                {u"Stok Adı"_s, &QueueRow::name},
                {u"Birim"_s, &QueueRow::unit},
                {u"Fiyat"_s, &QueueRow::price, true},
                {u"Adet"_s, &QueueRow::count, true}},
               parent)
{}

QVariant PrintQueue::data(const QModelIndex &index, int role) const
{
    const bool mark = role == Qt::DecorationRole && index.column() == barcode;
    if (!index.isValid() || (role != Qt::BackgroundRole && role != Qt::ToolTipRole && !mark))
        return RowTable::data(index, role);
    const QueueRow &row = at(index.row());
    for (const StateLook &look : kLooks) {
        if (row.state() != look.state)
            continue;
        if (role == Qt::ToolTipRole)
            return look.hint.toString();
        return mark ? QVariant(QColor(look.mark)) : QVariant(QBrush(QColor(look.row)));
    }
    return {};
}

LabelRow PrintQueue::label(int row) const
{
    const QueueRow &queued = at(row);
    return {.barcode = queued.barcode,
            .stockCode = queued.code,
            .stockName = queued.name,
            .price = queued.price,
            .count = amount::labelCount(queued.count).value_or(0),
            .queueRow = row};
}

std::vector<LabelRow> PrintQueue::labels() const
{
    std::vector<LabelRow> labels;
    labels.reserve(m_rows.size());
    for (int row = 0; row < size(); ++row)
        labels.push_back(label(row));
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
    RowTable::clear();
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

void PrintQueue::setNumber(int row, const QString &barcodeText, QStringView state)
{
    QueueRow &queued = edit(row);
    queued.barcode = barcodeText;
    queued.tag = makeTag(queued.unitNumber(), state);
    Q_EMIT dataChanged(index(row, 0), index(row, columns - 1));
}

bool PrintQueue::setCounts(int first, int last, QStringView text)
{
    const auto labels = amount::labelCount(text);
    if (!labels)
        return false;
    const QString written = QString::number(*labels);
    for (int row = first; row <= last; ++row)
        edit(row).count = written;
    if (first <= last)
        Q_EMIT dataChanged(index(first, count), index(last, count), {Qt::DisplayRole});
    sirala(size());
    return true;
}

void PrintQueue::sirala(int firstRow)
{
    for (int row = firstRow; row < size(); ++row)
        edit(row).number = QString::number(row + 1);
    if (isValidRow(firstRow))
        Q_EMIT dataChanged(index(firstRow, number), index(size() - 1, number), {Qt::DisplayRole});
    m_total = 0;
    for (const QueueRow &row : m_rows)
        m_total += amount::labelCount(row.count).value_or(0);
    Q_EMIT totalChanged(m_total);
}
