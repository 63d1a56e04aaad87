#pragma once

#include "labels/desk/row_table.h"
#include "labels/print/label_row.h"

struct StockRow;

/// One queued stock unit; every cell is the text on screen.
struct QueueRow
{
    QString number; ///< running number from 1, written by the queue
    QString barcode;
    QString code;
    QString name;
    QString unit;
    QString price;
    QString count; ///< how many labels of this row are printed: a positive whole number
    QString tag;   ///< unit number, "<123>", state

    QString unitNumber() const; ///< "1" or "2"
    QString state() const;      ///< one of queue_state

    friend bool operator==(const QueueRow &, const QueueRow &) = default;
};

/// How a row came into the queue, or what became of its barcode number; the state is the last part
/// of its tag.
namespace queue_state {
inline constexpr QStringView kBulk = u"0";
inline constexpr QStringView kSingle = u"a0";
inline constexpr QStringView kNew = u"a1";   ///< has a new number that is not saved
inline constexpr QStringView kSaved = u"a2"; ///< its new number is in the ledger
} // namespace queue_state

inline constexpr QStringView kTagSeparator = u"<123>";

/// A queue row for a row of the stock list.
QueueRow queuedRow(const StockRow &stock, QStringView state);

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

    /// A row (0 to size() − 1) as the print engine takes it; all rows.
    LabelRow label(int row) const;
    std::vector<LabelRow> labels() const;

    /// Labels of all rows together.
    qint64 total() const { return m_total; }

    void append(const std::vector<QueueRow> &rows) override;
    void remove(int row);
    void clear() override;

    /// False, and nothing changed, when the text is not a positive whole number up to 999.999.
    bool setCount(int row, QStringView text);
    bool setAllCounts(QStringView text);

    /// Gives a row (0 to size() − 1) its number and state.
    void setNumber(int row, const QString &barcode, QStringView state);

    /// Rows with a new number are told apart by colour and hint.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    void totalChanged(qint64 total);

private:
    /// Closes every change: rows from `firstRow` on get their running numbers, the total is summed.
    void sirala(int firstRow);
    bool setCounts(int first, int last, QStringView text);

    qint64 m_total = 0;
};
