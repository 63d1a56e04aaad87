#pragma once

#include <QAbstractTableModel>

#include <vector>

/// A flat list of rows that shows some of their texts; the lists of the label form are of this
/// kind. Numbers stand to the right, under a caption that does too.
template <typename Row>
class RowTable : public QAbstractTableModel
{
public:
    int size() const { return static_cast<int>(m_rows.size()); }
    bool isValidRow(int row) const { return row >= 0 && row < size(); }

    /// `row`: 0 to size() − 1.
    const Row &at(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    const std::vector<Row> &rows() const { return m_rows; }

    virtual void clear()
    {
        beginResetModel();
        m_rows.clear();
        endResetModel();
    }

    virtual void append(const std::vector<Row> &rows)
    {
        if (rows.empty())
            return;
        beginInsertRows({}, size(), size() + static_cast<int>(rows.size()) - 1);
        m_rows.insert(m_rows.end(), rows.begin(), rows.end());
        endInsertRows();
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
            return column(section).caption;
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

    std::vector<Row> m_rows;

private:
    const Column &column(int index) const { return m_columns.at(static_cast<std::size_t>(index)); }

    std::vector<Column> m_columns;
};
