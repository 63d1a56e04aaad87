#pragma once

#include "common/time_slices.h"
#include "sales/journal/day_report.h"

#include <QObject>

class Program;
class TillSession;

/// The end of the day: figures of any days, counted cash, the ledger's invoices; printed and saved.
class DayEnd final : public QObject
{
    Q_OBJECT

public:
    DayEnd(Program &program, JournalFile &file, TillSession &till, QObject *parent = nullptr);

    const DayReport &report() const { return m_report; }
    QDate today() const;

    /// A journal that takes too long is told, and nothing is shown of it.
    void read(QDate from, QDate to);

    /// The typed cash; false when it is no amount. Empty: not counted.
    bool setCounted(const QString &typed);

    /// Lists what journal and ledger say differently; a ledger that cannot be read is told. Long
    /// spans take a while: the windows live on meanwhile, and stop() ends it.
    void compare();
    void stop() { m_slices.stop(); }
    bool isComparing() const { return m_comparing; }

    void print();
    void savePdf(const QString &path);
    void saveCsv(const QString &path);

Q_SIGNALS:
    void changed();
    void comparing(QDate day); ///< how far it is

private:
    Program &m_program;
    JournalFile &m_file;
    TillSession &m_till;
    DayReport m_report;
    TimeSlices m_slices;
    bool m_comparing = false;
};
