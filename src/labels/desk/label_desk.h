#pragma once

#include "labels/desk/number_desk.h"
#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "labels/desk/stock_loader.h"
#include "labels/print/print_request.h"

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

    /// True while a load runs, or numbers are made or saved. The desk must not be destroyed then.
    bool isBusy() const { return m_loader.isBusy() || m_numbers.isBusy(); }
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
    /// Brings back the rows that were taken out of the queue last.
    void undoRemoval();

    /// Print the whole queue, or these rows of it.
    void yzdtum();
    void yzdsec(const QList<int> &queueRows);
    /// Print the whole queue with a layout that the user chooses.
    void chooseLayout();

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
    /// A count was taken; one that was not leaves its box as it is.
    void countSet();
    void allCountsSet();

    void printWanted(const PrintRequest &request);

private:
    /// Rows that left the queue together.
    struct Removal
    {
        QList<int> places;
        std::vector<QueueRow> rows;
        bool numbering; ///< the desk was numbering stocks
    };

    QList<int> widths(QStringView section, int columns) const;

    bool refuseWhileBusy();
    bool refuseWhileNumbering();
    void gather(UnitChoice units);
    bool refuseRows(const QList<int> &queueRows);
    std::optional<int> readCount(const QString &text);
    void takeOut(const QList<int> &queueRows);
    void remember(Removal removal);
    void addBulk(UnitChoice units);
    void request(const PrintRequest &request);

    Program &m_program;
    StockList m_stocks;
    PrintQueue m_queue;
    std::vector<Removal> m_removals; ///< the last one last
    PriceNumbers m_prices;
    StockLoader m_loader{m_program, m_stocks, m_prices};
    NumberDesk m_numbers{m_program, m_stocks, m_queue, m_prices};
};
