#pragma once

#include "labels/desk/row_table.h"
#include "labels/desk/stock_row.h"
#include "labels/print/label_row.h"

/// How a row came into the queue, or what became of its barcode number.
enum class QueueState
{
    bulk,
    single,
    fresh, ///< has a new number that is not saved
    saved  ///< its new number is in the ledger
};

/// One queued stock unit; its count is a positive whole number.
struct QueueRow : StockRow
{
    QueueState state = QueueState::bulk;
    int number = 0; ///< running number from 1, written by the queue

    /// Unit and state in one text, as the shop's books know them: "1<123>a0".
    QString tag() const;

    friend bool operator==(const QueueRow &, const QueueRow &) = default;
};

/// The print queue `l2`: the rows the print engine prints, in this order.
class PrintQueue final : public RowTable<QueueRow>
{
    Q_OBJECT

public:
    enum Cell
    {
        number,
        barcode,
        code,
        name,
        unit,
        price,
        count,
        columns
    };

    explicit PrintQueue(QObject *parent = nullptr);

    /// The rows at these places as the print engine takes them.
    std::vector<LabelRow> labels(const QList<int> &places) const;

    /// Labels of all rows together.
    qint64 total() const { return m_total; }

    void append(const std::vector<QueueRow> &rows) override;
    void clear() override;

    /// Takes rows out; `places`: ascending, each 0 to size() − 1.
    std::vector<QueueRow> take(const QList<int> &places);
    /// Puts back what take() gave, each row at its place or as near as the rows there now allow.
    void putBack(const QList<int> &places, const std::vector<QueueRow> &rows);

    /// Sets the label count (1 to 999.999) of these rows.
    void setCounts(const QList<int> &places, int labels);

    /// The places of all rows: 0 to size() − 1.
    QList<int> everyPlace() const;

    /// Gives a row (0 to size() − 1) its number and state.
    void setNumber(int row, const QString &barcode, QueueState state);

    /// Rows with a new number are told apart by colour and hint. Qt::UserRole: the row's tag.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void totalChanged(qint64 total);

private:
    /// Closes every change: rows from `firstRow` on show their running numbers, the total is
    /// summed.
    void sirala(int firstRow);
    void replaceRows(std::vector<QueueRow> rows);

    qint64 m_total = 0;
};
