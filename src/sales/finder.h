#pragma once

#include "sales/sale_line.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

class CompanyDatabase;
class ItemLookup;

/// A list of the host that the till searches by a part of a name or code. The first column is the
/// code, the second the name.
class Finder : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// More rows than these nobody reads; a longer text finds fewer.
    static constexpr int kMost = 200;

    /// Fills the list; the remark() says what was found. Throws HostError, the list is then empty.
    void search(const QString &text);

    /// Of the last search, for the cashier, in Turkish.
    const QString &remark() const { return m_remark; }

    const QString &code(int row) const { return cells(row).at(0); }
    const QString &name(int row) const { return cells(row).at(1); }

    /// What is to be read from afar of a row.
    virtual QString large(int row) const = 0;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    Finder(CompanyDatabase &company, QStringList headers, QObject *parent);

    /// The rows of a text that is not empty, each with a cell for every header.
    virtual std::vector<QStringList> find(const QString &text) const = 0;

    CompanyDatabase &company() const { return m_company; }
    const QStringList &cells(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

private:
    CompanyDatabase &m_company;
    QStringList m_headers;
    std::vector<QStringList> m_rows;
    QString m_remark;
};

/// Stocks, by name, code or barcode: code, name, unit and price after discounts.
class ItemFinder final : public Finder
{
    Q_OBJECT

public:
    /// `lookup` knows what an item is sold at; both must outlive the finder.
    ItemFinder(CompanyDatabase &company, const ItemLookup &lookup, QObject *parent = nullptr);

    QString large(int row) const override; ///< the price

protected:
    std::vector<QStringList> find(const QString &text) const override;

private:
    std::vector<SaleLine> items(const QString &text) const;

    const ItemLookup &m_lookup;
};

/// Accounts, by name or code: code and name.
class CustomerFinder final : public Finder
{
    Q_OBJECT

public:
    explicit CustomerFinder(CompanyDatabase &company, QObject *parent = nullptr);

    QString large(int row) const override; ///< the name

protected:
    std::vector<QStringList> find(const QString &text) const override;
};
