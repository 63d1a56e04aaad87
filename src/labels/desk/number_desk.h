#pragma once

#include "labels/desk/label_prices.h"
#include "labels/desk/long_task.h"
#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "labels/print/ean.h"

#include <QMultiHash>
#include <QObject>
#include <QSet>

class HostError;
class Program;

/// Gives the stock units without a barcode new numbers. Gathering them into the queue turns the
/// label form to numbering; it stays so until every row has a number and every number is saved, or
/// the queue is empty. So no label is printed of a number that the ledger does not know, and no
/// unsaved number goes without a question.
class NumberDesk final : public QObject
{
    Q_OBJECT

public:
    /// All are kept by reference.
    NumberDesk(Program &program, StockList &stocks, PrintQueue &queue, const PriceNumbers &prices,
               QObject *parent = nullptr);

    /// True while the label form is turned to numbering.
    bool isOn() const { return m_on; }
    /// True while numbers are looked for or saved. The queue must not be changed then.
    bool isBusy() const { return m_task.isRunning(); }

    /// Rows without a barcode, and rows whose new number is not saved.
    int waiting() const;
    int unsaved() const;

    /// Both in words; "" when there is nothing left to do.
    QString summary() const;

    /// Replaces the queue by the stock-list rows of these units that have no barcode. False when it
    /// stays as it is.
    bool gather(UnitChoice units);
    /// Turns the label form to numbering again, because rows that wait for it are back.
    void resume();

    ean::Symbology symbology() const { return m_symbology; }
    QString caption() const;
    /// The base number to count on from: the one used last for the chosen symbology, or where there
    /// is none, one that suits.
    QString nextBase() const;
    /// What the base in the box means, for the user.
    QString rangeHint(const QString &base) const;
    /// The complete number of the base in the box, "" when it is none.
    QString completeNumber(const QString &base) const;
    bool takesKey(const QString &box, const QString &key) const;

    /// Asks before so many unsaved numbers go; true when there are none or the user gives them up.
    bool mayDrop(int numbers);
    /// The same before the form or the program ends, for all of them.
    bool mayClose();

public Q_SLOTS:
    /// Asks for the generator.
    void brkdurt();
    /// Writes the new numbers to the host.
    void brgnc();

    void choose(ean::Symbology symbology) { m_symbology = symbology; }
    /// Numbers the rows without a barcode from the base (as typed) on.
    void generate(const QString &base);
    void stop() { m_task.stop(); }

Q_SIGNALS:
    void modeChanged(bool on);
    void busyChanged(bool busy);
    /// `total` is not 0.
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);
    /// As summary().
    void summaryChanged(const QString &text);
    void generatorRequested();
    /// The ledger did not take this row's number; the user is told after.
    void rowRefused(int queueRow);
    /// The last base number used.
    void baseChanged(const QString &base);

private:
    struct NewNumber
    {
        int row = 0;
        QString barcode;
    };
    struct Numbering
    {
        qint64 last = 0; ///< base number tried last
        std::vector<NewNumber> given;
    };
    using StockRows = QMultiHash<QString, int>; ///< stock-list rows by unit
    enum class Outcome
    {
        complete,
        stopped,
        exhausted
    };

    QStringList scales() const; ///< prefixes of the shop's weighing scales
    bool confirmLoss(int numbers, QStringView verb);
    QString baseProblem(const QString &base) const;
    QString number(qint64 base);
    Outcome findNumbers(Numbering &numbering);
    void give(const Numbering &numbering);
    std::vector<int> rowsWaiting() const;
    QSet<QString> freshNumbers() const;
    void tellRefused(const HostError &error);

    bool save();
    bool saveRows(int total);
    void saveRow(int row, const QString &type);
    StockRows unnumberedStocks() const;

    void setOn(bool on);
    void refresh();

    Program &m_program;
    StockList &m_stocks;
    PrintQueue &m_queue;
    const PriceNumbers &m_prices;
    ean::Symbology m_symbology = ean::Symbology::ean13;
    LongTask m_task;
    bool m_on = false;
};
