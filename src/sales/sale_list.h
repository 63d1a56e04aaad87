#pragma once

#include "sales/pricing.h"

#include <QAbstractTableModel>

#include <vector>

/// One of the till's three sale lists. Model column i shows sub-column i + 1.
class SaleList final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    bool isEmpty() const { return m_lines.empty(); }
    int size() const { return static_cast<int>(m_lines.size()); }
    const std::vector<SaleLine> &lines() const { return m_lines; }
    const SaleLine &line(int row) const { return m_lines.at(static_cast<std::size_t>(row)); }

    /// The lines' figures, read once when a line changes: totals of a long list must not reread it.
    const std::vector<pricing::Figures> &figures() const { return m_figures; }

    /// Returns the row of the new line.
    int append(SaleLine line);
    void replace(int row, SaleLine line);
    void remove(int row);
    void clear();

    /// First row whose cell holds that code, as turkish::sameCode() compares, or −1.
    int find(SaleColumn column, QStringView code) const;

private:
    std::vector<SaleLine> m_lines;
    std::vector<pricing::Figures> m_figures;
};
