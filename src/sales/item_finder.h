#pragma once

#include "sales/sale_line.h"

#include <QAbstractTableModel>

#include <vector>

class ItemLookup;
class CompanyDatabase;

/// Stocks found for the till by a part of their name or code, or by a barcode, each with the price
/// it is sold at: columns stock code, name, unit and price after discounts.
class ItemFinder final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// More rows than these nobody reads; a longer text finds fewer.
    static constexpr int kMost = 200;

    /// `lookup` knows what an item is sold at; both must outlive the finder.
    ItemFinder(CompanyDatabase &company, const ItemLookup &lookup, QObject *parent = nullptr);

    /// Fills the list; the remark() says what was found. Throws HostError, the list is then empty.
    void search(const QString &text);

    /// Of the last search, for the cashier, in Turkish.
    const QString &remark() const { return m_remark; }

    /// A line of quantity 1; its price cells are empty where the stock cannot be sold.
    const SaleLine &item(int row) const { return m_items.at(static_cast<std::size_t>(row)); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<SaleLine> found(const QString &text) const;
    void readPrices(std::vector<SaleLine> &items) const;

    CompanyDatabase &m_company;
    const ItemLookup &m_lookup;
    std::vector<SaleLine> m_items;
    QString m_remark;
};
