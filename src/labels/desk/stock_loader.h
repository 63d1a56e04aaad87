#pragma once

#include "labels/desk/count_file.h"
#include "labels/desk/invoice_line.h"
#include "labels/desk/label_prices.h"
#include "labels/desk/long_task.h"
#include "labels/desk/stock_list.h"

#include <QObject>

#include <functional>

class Program;

/// Why nothing can be done just now.
inline constexpr QStringView kWorkGoesOn =
    u"İşlem sürüyor: bitmesini bekleyin ya da Esc ile durdurun.";

/// Fills the stock list from the company database: first the stocks, then the barcode of every row,
/// then its price, one statement each. One load at a time, watched and stoppable: a load asked for
/// while another runs stops that one and takes its place. What fails is told and leaves the list
/// with what it has; a first statement that fails leaves it as it was.
class StockLoader final : public QObject
{
    Q_OBJECT

public:
    /// All three are kept by reference.
    StockLoader(Program &program, StockList &list, const PriceNumbers &prices,
                QObject *parent = nullptr);

    bool isBusy() const { return m_task.isRunning(); }
    void setUnits(UnitChoice units) { m_units = units; }

    /// While others need the list and the connection, loads are refused with a word.
    void setLocked(bool locked) { m_locked = locked; }

public Q_SLOTS:
    void stkcinsibul(const QString &name);
    void stkkodbul(const QString &code);
    void brkdbul(const QString &barcode);
    void listele();

    // Named by the system, called by nothing yet.
    void fiyatoku();
    /// Appends a stock of an invoice line with as many labels as its quantity asks for.
    void fatekle(const QString &stockCode, const QString &quantity);

    /// Replaces the list by the stocks of invoice lines, in their order.
    void listLines(const QList<InvoiceLine> &lines);
    /// Replaces the list by the stock units of counted codes.
    void listCounted(const count_file::Content &content);
    /// Lists the stocks changed in a range of days, each day between two times; see
    /// stock_queries::changed().
    void fiyatdegisbul(const QString &fromDate, const QString &toDate, const QString &fromTime,
                       const QString &toTime);

    /// Ends a load after the statements it is at; the rows listed so far stay.
    void stop();

Q_SIGNALS:
    void busyChanged(bool busy);
    /// `total` is not 0; `text` says in words what is going on.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);
    /// Counted codes have been listed; `problems`: the lines nothing came of, in words.
    void counted(const QString &problems);

private:
    /// Returns false when it was stopped. Throws HostError.
    using Load = std::function<bool()>;
    using RowMaker = std::function<void(const RecordSet &card, std::vector<StockRow> &rows)>;

    void run(const Load &load);
    void runOne(const Load &load);
    void list(const QString &statement);
    bool listScanned(const QString &barcode);
    bool show(RecordSet cards, const RowMaker &makeRows);
    bool add(RecordSet cards, const RowMaker &makeRows);
    bool addLines(const QList<InvoiceLine> &lines);
    void addLine(RecordSet cards, const InvoiceLine &line);
    bool addCounted(count_file::Content content);
    bool readDetails();
    bool readPrices();
    qint64 now() const;
    void takeBarcode(int row, RecordSet barcodes);
    void takePrice(int row, RecordSet prices);

    QString foundText() const;
    QString partText() const;
    QString lineNotes() const;

    Program &m_program;
    StockList &m_list;
    const PriceNumbers &m_prices;
    UnitChoice m_units = UnitChoice::first;
    bool m_locked = false;

    LongTask m_task;
    Load m_next;            ///< asked for while another load runs
    bool m_listed = false;  ///< this load has brought rows
    int m_unknownLines = 0; ///< of this load: lines whose stock is not listed
    int m_roundedLines = 0; ///< of this load: lines whose quantity is no count of labels
};
