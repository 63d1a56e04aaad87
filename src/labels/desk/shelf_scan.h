#pragma once

#include "common/scan_sounds.h"
#include "common/settings.h"
#include "labels/desk/label_prices.h"
#include "labels/desk/print_queue.h"

#include <QObject>

#include <optional>

class Program;

/// A walk along the shelf with a scanner: every scan adds the unit to the queue or counts it up, a
/// number of up to three digits sets the count of the unit scanned last, 0 takes it out again.
/// (Three digits are no barcode of any kind, and no shelf needs a thousand labels of one stock.)
class ShelfScan final : public QObject
{
    Q_OBJECT

public:
    /// All are kept by reference.
    ShelfScan(Program &program, PrintQueue &queue, const PriceNumbers &prices,
              QObject *parent = nullptr);

    /// The row scanned last, as it stands in the queue; null when there is none.
    const QueueRow *last() const;
    /// The barcodes of this walk that nothing came of, each once.
    const QStringList &missed() const { return m_missed; }

public Q_SLOTS:
    /// Begins a new walk.
    void begin();
    /// Takes what was scanned or typed.
    void enter(const QString &text);

Q_SIGNALS:
    /// The last row is new or has another count; `row` of the queue.
    void taken(int row);
    /// Nothing came of a text; why, in words, and which barcode it was ("" when it was a number).
    void refused(const QString &reason, const QString &barcode);
    /// The last row is to leave the queue.
    void removalWanted(int row);

private:
    void setCount(int labels);
    void scan(const QString &barcode);
    std::optional<QueueRow> find(const QString &barcode);
    int placeOf(const QueueRow &row) const;
    void refuse(const QString &reason, const QString &barcode = {});

    Program &m_program;
    PrintQueue &m_queue;
    const PriceNumbers &m_prices;
    int m_last = -1; ///< row of the queue
    QStringList m_missed;
    Settings m_settings; ///< as they were when the walk began
    ScanSounds m_sounds;
};
