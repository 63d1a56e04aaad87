#pragma once

#include "common/turkish.h"
#include "labels/desk/row_order.h"

#include <QAbstractTableModel>

#include <algorithm>
#include <numeric>
#include <vector>

/// A flat list of rows that shows some of their texts; the lists of the label form are of this
/// kind. Numbers stand to the right, under a caption that does too. The list can be sorted by a
/// column and put back into the order in which its rows were added.
template <typename Row>
class RowTable : public QAbstractTableModel
{
public:
    int size() const { return static_cast<int>(m_rows.size()); }
    bool isValidRow(int row) const { return row >= 0 && row < size(); }

    /// `row`: 0 to size() − 1.
    const Row &at(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    const std::vector<Row> &rows() const { return m_rows; }

    /// Of each row its place among all as they were added; empty while they stand that way.
    const std::vector<int> &placesAdded() const { return m_added; }

    virtual void clear() { replaceRows({}, {}); }

    virtual void append(const std::vector<Row> &rows)
    {
        if (rows.empty())
            return;
        beginInsertRows({}, size(), size() + static_cast<int>(rows.size()) - 1);
        m_rows.insert(m_rows.end(), rows.begin(), rows.end());
        noteAdded(rows.size());
        endInsertRows();
        showSort(-1); // rows at the end are in no order
    }

    /// Sorts by a column upwards, a second time downwards, a third time not at all.
    void sortNext(int column)
    {
        if (column != m_sorted)
            sort(column, Qt::AscendingOrder);
        else if (m_order == Qt::AscendingOrder)
            sort(column, Qt::DescendingOrder);
        else
            sort(-1, Qt::AscendingOrder);
    }

    /// `column` −1: the order in which the rows were added.
    void sort(int column, Qt::SortOrder order) override
    {
        if (column >= columnCount() || (column < 0 && m_added.empty()))
            return;
        if (m_added.empty())
            noteAdded(0);
        const std::vector<int> places = column < 0 ? placesAsAdded() : placesBy(column, order);
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        reorder(places);
        if (column < 0)
            m_added.clear();
        Q_EMIT layoutChanged({}, VerticalSortHint);
        m_order = order;
        showSort(column);
    }

    /// The next row, from `from` on in steps of `step` (1 or −1) and round the end, that shows the
    /// text in any column, without regard to case; −1 when there is none.
    int find(const QString &text, int from, int step) const
    {
        const QString wanted = turkish::lower(text);
        for (int tried = 0; tried < size(); ++tried) {
            const int row = ((from + tried * step) % size() + size()) % size();
            for (const Column &column : m_columns)
                if (turkish::lower(column.text(at(row))).contains(wanted))
                    return row;
        }
        return -1;
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : size();
    }

    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
    }

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        if (!index.isValid())
            return {};
        if (role == Qt::DisplayRole)
            return column(index.column()).text(at(index.row()));
        if (role == Qt::TextAlignmentRole)
            return headerData(index.column(), Qt::Horizontal, role);
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override
    {
        if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
            return {};
        if (role == Qt::DisplayRole)
            return column(section).caption + sortMark(section);
        if (role == Qt::TextAlignmentRole)
            return QVariant((column(section).isNumber ? Qt::AlignRight : Qt::AlignLeft) |
                            Qt::AlignVCenter);
        return {};
    }

protected:
    struct Column
    {
        QString caption;
        QString (*text)(const Row &row);
        bool isNumber = false;
    };

    /// The text of a column that shows a member as it is.
    template <auto member>
    static QString shown(const Row &row)
    {
        return row.*member;
    }

    RowTable(std::vector<Column> columns, QObject *parent)
        : QAbstractTableModel(parent), m_columns(std::move(columns))
    {}

    /// To be changed; whoever does tells the views.
    Row &edit(int row) { return m_rows.at(static_cast<std::size_t>(row)); }

    /// Takes rows out, places ascending, and returns them.
    std::vector<Row> takeRows(const QList<int> &places)
    {
        std::vector<Row> taken;
        std::vector<Row> left;
        std::vector<int> added;
        auto wanted = places.cbegin();
        for (int row = 0; row < size(); ++row) {
            const bool isWanted = wanted != places.cend() && *wanted == row;
            (isWanted ? taken : left).push_back(at(row));
            if (isWanted)
                ++wanted;
            else if (!m_added.empty())
                added.push_back(m_added[static_cast<std::size_t>(row)]);
        }
        if (places.size() == 1) // the list stays where it is scrolled to
            beginRemoveRows({}, places.first(), places.first());
        else
            beginResetModel();
        m_rows = std::move(left);
        m_added = std::move(added);
        if (places.size() == 1)
            endRemoveRows();
        else
            endResetModel();
        return taken;
    }

    /// Puts rows in, each at its place or as near as the rows there are allow; places ascending.
    void putRows(const QList<int> &places, const std::vector<Row> &rows)
    {
        sort(-1, Qt::AscendingOrder);
        std::vector<Row> whole;
        auto next = m_rows.cbegin();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto place = static_cast<std::size_t>(places.at(static_cast<qsizetype>(i)));
            while (whole.size() < place && next != m_rows.cend())
                whole.push_back(*next++);
            whole.push_back(rows[i]);
        }
        whole.insert(whole.end(), next, m_rows.cend());
        beginResetModel();
        m_rows = std::move(whole);
        endResetModel();
    }

    /// Replaces all rows; `added`: what placesAdded() gave for them.
    void replaceRows(const std::vector<Row> &rows, const std::vector<int> &added)
    {
        beginResetModel();
        m_rows = rows;
        m_added = added;
        endResetModel();
        showSort(-1);
    }

    std::vector<Row> m_rows;

private:
    const Column &column(int index) const { return m_columns.at(static_cast<std::size_t>(index)); }

    QString sortMark(int section) const
    {
        if (section != m_sorted)
            return {};
        return m_order == Qt::AscendingOrder ? QStringLiteral(" ▲") : QStringLiteral(" ▼");
    }

    void showSort(int column)
    {
        if (column == m_sorted && column < 0)
            return;
        m_sorted = column;
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }

    /// The rows behind those counted in m_added get the next numbers; with none counted yet and
    /// `fresh` 0, all rows do.
    void noteAdded(std::size_t fresh)
    {
        if (m_added.empty() && fresh > 0)
            return; // they stand as they were added
        int next = m_added.empty() ? 0 : *std::max_element(m_added.cbegin(), m_added.cend()) + 1;
        while (m_added.size() < m_rows.size())
            m_added.push_back(next++);
    }

    std::vector<int> placesAsAdded() const
    {
        std::vector<int> places(m_added.size());
        std::iota(places.begin(), places.end(), 0);
        std::sort(places.begin(), places.end(), [this](int a, int b) {
            return m_added[static_cast<std::size_t>(a)] < m_added[static_cast<std::size_t>(b)];
        });
        return places;
    }

    std::vector<int> placesBy(int index, Qt::SortOrder order) const
    {
        QStringList texts;
        texts.reserve(size());
        for (const Row &row : m_rows)
            texts += column(index).text(row);
        return row_order::sorted(texts, column(index).isNumber, order);
    }

    /// `places[i]`: where the row that comes i-th stands now.
    void reorder(const std::vector<int> &places)
    {
        std::vector<Row> rows;
        std::vector<int> added;
        std::vector<int> target(places.size());
        rows.reserve(places.size());
        for (const int place : places) {
            target[static_cast<std::size_t>(place)] = static_cast<int>(rows.size());
            rows.push_back(std::move(edit(place)));
            added.push_back(m_added[static_cast<std::size_t>(place)]);
        }
        m_rows = std::move(rows);
        m_added = std::move(added);
        for (const QModelIndex &old : persistentIndexList())
            changePersistentIndex(old,
                                  index(target[static_cast<std::size_t>(old.row())], old.column()));
    }

    std::vector<Column> m_columns;
    std::vector<int> m_added; ///< see placesAdded()
    int m_sorted = -1;        ///< column the list is sorted by
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
