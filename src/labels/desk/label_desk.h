#pragma once

#include "labels/desk/label_printing.h"
#include "labels/desk/number_desk.h"
#include "labels/desk/print_queue.h"
#include "labels/desk/queue_store.h"
#include "labels/desk/shelf_scan.h"
#include "labels/desk/stock_list.h"
#include "labels/desk/stock_loader.h"

#include <QObject>

#include <optional>

class Program;

/// The desk at which labels are picked: stock list, print queue, and what the user does with them.
///
/// A load handles events while it runs, so that it can be watched and stopped. Meanwhile rows
/// cannot be queued or printed, because their barcodes and prices are still being read.
class LabelDesk final : public QObject
{
    Q_OBJECT

public:
    explicit LabelDesk(Program &program, QObject *parent = nullptr);

    StockList &stocks() { return m_stocks; }
    PrintQueue &queue() { return m_queue; }
    const PriceNumbers &priceNumbers() const { return m_prices; }
    StockLoader &loader() { return m_loader; }
    NumberDesk &numbers() { return m_numbers; }
    LabelPrinting &printing() { return m_printing; }
    ShelfScan &scan() { return m_scan; }
    QueueStore &store() { return m_store; }

    /// True while a load runs, numbers are made or saved, or prices are read anew. The desk must
    /// not be destroyed then.
    bool isBusy() const { return m_loader.isBusy() || isQueueBusy(); }
    /// True while rows may be queued and printed.
    bool isFree() const { return !isBusy() && !m_numbers.isOn(); }

    bool canUndo() const { return !m_removals.empty(); }

    /// False while numbers are made or saved (they are stopped), and when the user would rather not
    /// give up unsaved ones.
    bool mayClose();

    /// Widths kept from the last time, in pixels; empty when there are none or they make no sense.
    QList<int> stockWidths() const;
    QList<int> queueWidths() const;
    void saveWidths(const QList<int> &stockList, const QList<int> &printQueue);

    /// Brings back the queue of the last time and what was printed last, and keeps both from now
    /// on.
    void keepQueue();

public Q_SLOTS:
    /// Reads the price numbers from the settings; again after they were changed.
    void loadPriceNumbers();

    /// Ends whatever runs.
    void stop();

    /// Queue these rows of the stock list, each for itself; without any the user is told.
    void addRows(const QList<int> &stockRows);
    /// Queue the rows of the first unit, of the second, all.
    void ekbr1();
    void ekbr2();
    void ektm();

    /// Gather the rows without a barcode for new numbers: of the first unit, of the second, all.
    void ekbar1();
    void ekbar2();
    void ekbartum();

    void setCounts(const QList<int> &queueRows, const QString &text);
    void setAllCounts(const QString &text);
    void removeRows(const QList<int> &queueRows);
    void clearQueue();
    /// Takes the rows out that were printed.
    void removePrinted();
    /// Brings back the rows that were taken out of the queue last.
    void undoRemoval();

    /// Sort by a column: upwards, downwards, and then as the rows were added.
    void sortStocks(int column);
    void sortQueue(int column);

    /// Replaces the queue by the one kept under a name.
    void openQueue(const QString &name);
    /// Keeps the queue under a name, deletes what is kept under it; asks before either costs
    /// anything.
    bool saveQueue(const QString &name);
    void deleteQueue(const QString &name);
    /// Queues the stocks of a file of codes and counts.
    void importCounts(const QString &path);
    /// Asks for the form of a walk along the shelf.
    void startScan();

    /// Print the whole queue, or these rows of it.
    void yzdtum();
    void yzdsec(const QList<int> &queueRows);
    /// Print the whole queue with a layout that the user chooses.
    void chooseLayout();
    /// Print once more what was printed last.
    void repeatPrinting();

Q_SIGNALS:
    void busyChanged(bool busy);
    /// `total` is not 0; `text` says in words what is going on.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);

    /// These rows came into the queue one by one, or back into it: those the next count is meant
    /// for.
    void rowsQueued(const QList<int> &queueRows);
    /// Whether rows can be brought back.
    void undoChanged(bool possible);
    /// The labels of this row are being printed.
    void rowPrinting(int queueRow);
    /// The user wants to see to a row before it is printed.
    void rowWanted(int queueRow);
    /// A count was taken; one that was not leaves its box as it is.
    void countSet();
    void allCountsSet();

    /// The lines of an imported file that nothing came of, in words.
    void importReported(const QString &problems);
    void scanFormWanted();

private:
    /// Rows that left the queue together.
    struct Removal
    {
        QList<int> places;
        std::vector<QueueRow> rows;
        bool numbering; ///< the desk was numbering stocks
    };

    QList<int> widths(QStringView section, int columns) const;

    bool isQueueBusy() const { return m_numbers.isBusy() || m_printing.isBusy(); }
    bool refuseWhileBusy();
    bool refuseWhileNumbering();
    void gather(UnitChoice units);
    bool refuseRows(const QList<int> &queueRows);
    std::optional<int> readCount(const QString &text);
    void takeOut(const QList<int> &queueRows);
    void remember(Removal removal);
    QueueRow queued(const StockRow &stock, QueueState state) const;
    void addBulk(UnitChoice units);
    void print(PrintMode mode, const QList<int> &places, bool chooseLayout = false);
    void queueCounted(const QString &problems);

    Program &m_program;
    StockList m_stocks;
    PrintQueue m_queue;
    std::vector<Removal> m_removals; ///< the last one last
    PriceNumbers m_prices;
    StockLoader m_loader{m_program, m_stocks, m_prices};
    NumberDesk m_numbers{m_program, m_stocks, m_queue, m_prices};
    LabelPrinting m_printing{m_program, m_queue, m_prices};
    ShelfScan m_scan{m_program, m_queue, m_prices};
    QueueStore m_store{m_program, m_queue};
};
