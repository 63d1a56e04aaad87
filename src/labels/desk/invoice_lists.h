#pragma once

#include "labels/desk/cell_table.h"
#include "labels/desk/invoice_line.h"

#include <QList>

/// One invoice as the invoice list shows it.
struct InvoiceRow
{
    QString date;     ///< the first 10 characters of the date, "dd.MM.yyyy"
    QString document; ///< document number
    QString customer;
    QString reference; ///< key of the invoice and its lines; not shown
    bool checked = false;
};

/// The invoice list `l1` of the form `fatura`: rows the user checks.
class InvoiceList final : public CellTable
{
    Q_OBJECT

public:
    enum Cell
    {
        date,
        document,
        customer,
        columns
    };

    explicit InvoiceList(QObject *parent = nullptr);

    int size() const override { return static_cast<int>(m_rows.size()); }
    /// `row`: 0 to size() − 1.
    const InvoiceRow &at(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    void clear();
    void append(const std::vector<InvoiceRow> &rows);
    void checkAll(bool checked);
    /// Rows that are not there are left alone.
    void toggle(int row);
    QStringList checkedReferences() const;

    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    QString cell(int row, int column) const override;

    std::vector<InvoiceRow> m_rows;
};

/// The line list `l2` of the form `fatura`.
class InvoiceLineList final : public CellTable
{
    Q_OBJECT

public:
    enum Cell
    {
        stockCode,
        quantity,
        columns
    };

    explicit InvoiceLineList(QObject *parent = nullptr);

    int size() const override { return static_cast<int>(m_lines.size()); }
    const QList<InvoiceLine> &lines() const { return m_lines; }

    void clear();
    void append(const QList<InvoiceLine> &lines);

private:
    QString cell(int row, int column) const override;

    QList<InvoiceLine> m_lines;
};
