#pragma once

#include <QAbstractTableModel>

#include <vector>

/// A flat list whose cells are texts; the lists of the label form are of this kind. Numbers stand
/// to the right, under a caption that does too.
class CellTable : public QAbstractTableModel
{
    Q_OBJECT

public:
    virtual int size() const = 0;
    bool isValidRow(int row) const { return row >= 0 && row < size(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

protected:
    struct Column
    {
        QString caption;
        bool isNumber = false;
    };

    CellTable(std::vector<Column> columns, QObject *parent);

    virtual QString cell(int row, int column) const = 0;

private:
    std::vector<Column> m_columns;
};
