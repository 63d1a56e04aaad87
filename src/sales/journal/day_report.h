#pragma once

#include "sales/journal/day_figures.h"

#include <QStringList>

#include <functional>
#include <optional>

class CompanyDatabase;

/// The end of a day, ready to be shown, printed and saved.
struct DayReport
{
    DayFigures figures;
    std::optional<qint64> counted; ///< cash in the drawer, kuruş
    QStringList differences;       ///< between journal and ledger
    bool compared = false;

    /// Counted cash less the journal's, kuruş.
    qint64 over() const { return counted.value_or(0) - figures.all.cash; }
};

namespace day_report {

/// The figures of a cashier, each with its caption: the rows of the screen and of every print.
/// `rates`: those of all, so that every cashier has the same rows.
struct Row
{
    QString caption;
    QString value;
};
std::vector<Row> rows(const CashierFigures &figures, const std::vector<RateFigures> &rates);

/// "Tümü", or the cashier's name.
QString columnName(const CashierFigures &figures, bool all);

/// "07.03.2026" or "01.03.2026 – 07.03.2026".
QString days(const DayFigures &figures);

/// What was counted and compared, a line each.
QStringList closingLines(const DayReport &report);

QString text(const DayReport &report); ///< for the receipt printer
QString csv(const DayReport &report);  ///< fields between semicolons, as spreadsheets here read it

/// Writes A4 pages; false when the file could not be written.
bool writePdf(const DayReport &report, const QString &path);

/// Holds the sales of the days against the invoices of the till in the ledger, and lists the first
/// few hundred differences. `goOn`: asked before every week; false stops it, and nothing is
/// returned. Throws HostError.
std::optional<QStringList> compareWithLedger(CompanyDatabase &company, JournalFile &file,
                                             QDate from, QDate to,
                                             const std::function<bool(QDate)> &goOn);

} // namespace day_report
