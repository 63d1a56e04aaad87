#pragma once

#include "labels/desk/invoice_line.h"
#include "labels/desk/long_task.h"
#include "labels/desk/stock_search.h"

#include <QObject>

#include <functional>

/// Fills the stock list for the label desk: one load at a time, watched and stoppable. A load asked
/// for while another runs stops that one and takes its place.
class StockLoader final : public QObject
{
    Q_OBJECT

public:
    /// All three are kept by reference.
    StockLoader(Program &program, StockList &list, const PriceNumbers &prices,
                QObject *parent = nullptr);

    bool isBusy() const { return m_task.isRunning(); }
    void setUnits(UnitChoice units) { m_units = units; }

    /// Replaces the list by what a statement over `STKKART` finds.
    void find(const QString &statement);
    void findBarcode(const QString &barcode);
    void readPrices();

    /// Appends the units of one stock, with the labels its quantity asks for.
    void addLine(const InvoiceLine &line);
    /// Replaces the list by the stocks of invoice lines, in their order.
    void replaceByLines(const QList<InvoiceLine> &lines);

    /// Ends a load after the statement it is at; the rows listed so far stay.
    void stop();

Q_SIGNALS:
    void busyChanged(bool busy);
    /// `total` is not 0; `text` says in words what is going on.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);

private:
    /// Returns false when it was stopped.
    using Load = std::function<bool()>;

    void run(const Load &load);
    void runOne(const Load &load);
    StockSearch search();
    bool readDetails(StockSearch &search);
    bool append(StockSearch &search, const InvoiceLine &line);
    QString foundText() const;
    QString stoppedText() const;
    QString lineNotes() const;

    Program &m_program;
    StockList &m_list;
    const PriceNumbers &m_prices;
    UnitChoice m_units = UnitChoice::first;

    LongTask m_task;
    Load m_next;            ///< asked for while another load runs
    int m_unknownLines = 0; ///< of this load: lines whose stock is not listed
    int m_roundedLines = 0; ///< of this load: lines whose quantity is no count of labels
};
