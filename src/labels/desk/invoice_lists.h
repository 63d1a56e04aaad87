#pragma once

#include "labels/desk/invoice_line.h"
#include "labels/desk/row_table.h"

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
class InvoiceList final : public RowTable<InvoiceRow>
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

    void checkAll(bool checked);
    /// Rows that are not there are left alone.
    void toggle(int row);
    QStringList checkedReferences() const;

    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
};

/// The line list `l2` of the form `fatura`.
class InvoiceLineList final : public RowTable<InvoiceLine>
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

    QList<InvoiceLine> lines() const { return {rows().begin(), rows().end()}; }
};
