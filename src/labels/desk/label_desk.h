#pragma once

#include "labels/desk/number_desk.h"
#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "labels/desk/stock_loader.h"
#include "labels/print/print_request.h"

#include <QObject>

#include <functional>

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
    NumberDesk &numbers() { return m_numbers; }

    /// True while a load runs, or numbers are made or saved. The desk must not be destroyed then.
    bool isBusy() const { return m_loader.isBusy() || m_numbers.isBusy(); }
    /// True while rows may be queued and printed.
    bool isFree() const { return !isBusy() && !m_numbers.isOn(); }

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

    void setUnits(UnitChoice units) { m_loader.setUnits(units); }

    void stkcinsibul(const QString &name);
    void stkkodbul(const QString &code);
    void brkdbul(const QString &barcode);
    void listele();
    void fiyatoku(); ///< prices alone, read anew; called by nothing yet

    /// Appends a stock of an invoice line with as many labels as its quantity asks for; called by
    /// nothing yet.
    void fatekle(const QString &stockCode, const QString &quantity);
    /// Replaces the list by the stocks of invoice lines.
    void listLines(const QList<InvoiceLine> &lines);
    /// Lists the stocks changed in a range of days, each day between two times; see
    /// stock_queries::changed().
    void fiyatdegisbul(const QString &fromDate, const QString &toDate, const QString &fromTime,
                       const QString &toTime);

    /// Ends a search after the statement it is at; the rows listed so far stay.
    void stop();

    /// Queue one row of the stock list; other rows than 0 to size − 1 only tell the user.
    void addOne(int stockRow);
    /// Queue the rows of the first unit, of the second, all.
    void ekbr1();
    void ekbr2();
    void ektm();

    /// Gather the rows without a barcode for new numbers: of the first unit, of the second, all.
    void ekbar1();
    void ekbar2();
    void ekbartum();

    void setCount(int queueRow, const QString &text);
    void setAllCounts(const QString &text);
    void removeOne(int queueRow);
    void clearQueue();

    /// Print the whole queue, or one row of it.
    void yzdtum();
    void yzdsec(int queueRow);
    /// Print the whole queue with a layout that the user chooses.
    void chooseLayout();

Q_SIGNALS:
    void busyChanged(bool busy);
    /// `total` is not 0; `text` says in words what is going on.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);

    /// A row came into the queue by itself: the row its count is meant for.
    void rowQueued(int queueRow);
    /// The labels of this row are being printed.
    void rowPrinting(int queueRow);
    /// A count was taken; one that was not leaves its box as it is.
    void countSet();
    void allCountsSet();

    void printWanted(const PrintRequest &request);

private:
    QList<int> widths(QStringView section, int columns) const;

    bool refuseWhileBusy();
    bool refuseWhileNumbering();
    void load(const std::function<void()> &start);
    void gather(QStringView unitEnding);
    bool refuseRow(int queueRow);
    bool refuseCount(const QString &text);
    void addBulk(QStringView unitEnding);

    Program &m_program;
    StockList m_stocks;
    PrintQueue m_queue;
    PriceNumbers m_prices;
    StockLoader m_loader{m_program, m_stocks, m_prices};
    NumberDesk m_numbers{m_program, m_stocks, m_queue, m_prices};
};
