#pragma once

#include "labels/desk/invoice_lists.h"
#include "labels/desk/long_task.h"

#include <QDate>
#include <QObject>

class Program;
class RecordSet;

/// One entry of the invoice type box: its name, and the code string that names and numbers it.
struct InvoiceType
{
    QString name;
    QString code; ///< name, "<1234>", type number

    /// The part after "<1234>".
    QString number() const;
};

/// Takes only the lines of one delivery.
struct TrackingFilter
{
    bool on = false;
    QString number;

    friend bool operator==(const TrackingFilter &, const TrackingFilter &) = default;
};

/// Picks invoices and hands their lines to the label desk. Reading handles events while it runs, so
/// that it can be watched and stopped; another reading asked for meanwhile is refused.
class InvoicePicker final : public QObject
{
    Q_OBJECT

public:
    explicit InvoicePicker(Program &program, QObject *parent = nullptr);

    InvoiceList &invoices() { return m_invoices; }
    InvoiceLineList &lines() { return m_lines; }
    const QList<InvoiceType> &types() const { return m_types; }
    const TrackingFilter &tracking() const { return m_tracking; }
    QDate today() const;

    bool isBusy() const { return m_task.isRunning(); }

public Q_SLOTS:
    /// What the form needs when it opens: types, tracking filter, empty lists.
    void load();
    void fatipyukle();
    void takipyukle();
    void saveTracking(const TrackingFilter &filter);

    /// Lists the invoices of a type (index into types(), −1: none chosen) dated from one day to
    /// another, both included.
    void listInvoices(int type, QDate from, QDate to);
    /// Lists the lines of the checked invoices.
    void loadLines(const TrackingFilter &filter);
    void anafatekle();
    void stop() { m_task.stop(); }

Q_SIGNALS:
    void busyChanged(bool busy);
    void progressed(const QString &text, int done, int total);
    void statusChanged(const QString &text);
    /// The lines are to take the place of the stock list.
    void transferred(const QList<InvoiceLine> &lines);

private:
    bool refuseListing(int type, QDate from, QDate to);
    QString pick(RecordSet invoices, const QString &type, QDate from, QDate to);
    QString readLines(const QStringList &references, const TrackingFilter &filter);

    Program &m_program;
    InvoiceList m_invoices;
    InvoiceLineList m_lines;
    QList<InvoiceType> m_types;
    TrackingFilter m_tracking;
    LongTask m_task;
};
