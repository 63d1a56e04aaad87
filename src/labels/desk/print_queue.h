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
    bool printed = false; ///< its labels have come out as the row stands
    int number = 0;       ///< running number from 1, written by the queue
    qint64 priceRead = 0; ///< when its price was read, milliseconds since 1970; 0: nobody knows

    /// Unit and state in one text, as the shop's books know them: "1<123>a0".
    QString tag() const;
    /// False, and nothing changed, when the text is no tag.
    bool setTag(const QString &text);

    friend bool operator==(const QueueRow &, const QueueRow &) = default;
};

/// A row as it stood at its place in the queue; −1: it stands there no more.
struct PlacedRow
{
    QueueRow row;
    int place = -1;
};

/// Rows as the print engine takes them.
std::vector<LabelRow> labelsOf(const std::vector<PlacedRow> &rows);

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

    /// Labels of all rows together.
    qint64 total() const { return m_total; }

    void append(const std::vector<QueueRow> &rows) override;
    void clear() override;

    /// Takes rows out; `places`: ascending, each 0 to size() − 1.
    std::vector<QueueRow> take(const QList<int> &places);
    /// Puts back what take() gave, each row at its place or as near as the rows there now allow.
    void putBack(const QList<int> &places, const std::vector<QueueRow> &rows);

    /// The rows get new running numbers, and are printed in the new order.
    void sort(int column, Qt::SortOrder order) override;

    /// Sets the label count (1 to 999.999) of these rows; they count as not printed from then on.
    void setCounts(const QList<int> &places, int labels);
    /// Marks the rows that came out of the printer.
    void markPrinted(const QList<int> &places);
    QList<int> printedPlaces() const;
    /// The price of a row as it is at this moment (milliseconds since 1970).
    void setPrice(int row, const QString &price, qint64 moment);

    /// The places of all rows: 0 to size() − 1.
    QList<int> everyPlace() const;
    std::vector<PlacedRow> placed(const QList<int> &places) const;

    /// Gives a row (0 to size() − 1) its number and state.
    void setNumber(int row, const QString &barcode, QueueState state);

    /// Replaces all rows; `added`: see placesAdded().
    void setRows(const std::vector<QueueRow> &rows, const std::vector<int> &added);

    /// Rows with a new number, and those that were printed, are told apart by colour and hint.
    /// Qt::UserRole: the row's tag.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void totalChanged(qint64 total);
    /// Anything of its rows is other than before.
    void changed();

private:
    /// Closes every change: rows from `firstRow` on show their running numbers, the total is
    /// summed.
    void sirala(int firstRow);
    void tellRows(const QList<int> &places);

    qint64 m_total = 0;
};
