#pragma once

#include "labels/desk/label_prices.h"
#include "labels/desk/long_task.h"
#include "labels/desk/print_queue.h"
#include "labels/print/print_request.h"

#include <QObject>

class Program;

/// Sends rows of the queue to the printer: with the prices of this moment, and so that everybody
/// sees afterwards what has come out.
class LabelPrinting final : public QObject
{
    Q_OBJECT

public:
    /// All are kept by reference.
    LabelPrinting(Program &program, PrintQueue &queue, const PriceNumbers &prices,
                  QObject *parent = nullptr);

    /// True while prices are read anew. The queue must not be changed then.
    bool isBusy() const { return m_task.isRunning(); }
    bool canRepeat() const { return !m_last.empty(); }
    /// What was printed last; to be set when the program starts.
    const std::vector<QueueRow> &last() const { return m_last; }
    void setLast(std::vector<QueueRow> rows);

    /// Prints these rows of the queue.
    void print(PrintMode mode, const QList<int> &places, bool chooseLayout = false);

public Q_SLOTS:
    /// Prints once more what was printed last, whether it is still in the queue or not.
    void repeat();
    /// The run that was asked for last has ended.
    void runEnded(bool printed);
    void stop() { m_task.stop(); }

Q_SIGNALS:
    void printWanted(const PrintRequest &request);
    void repeatChanged(bool possible);
    void busyChanged(bool busy);
    /// `total` is not 0.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);

private:
    void send(PrintMode mode, std::vector<PlacedRow> rows, bool chooseLayout);
    bool freshen(std::vector<PlacedRow> &rows);
    bool readPrices(std::vector<PlacedRow> &rows, const std::vector<std::size_t> &old,
                    QStringList &changes);

    Program &m_program;
    PrintQueue &m_queue;
    const PriceNumbers &m_prices;
    LongTask m_task;
    std::vector<PlacedRow> m_sent; ///< of the run asked for last
    std::vector<QueueRow> m_last;  ///< printed last
};
