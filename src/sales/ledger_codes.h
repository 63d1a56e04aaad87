#pragma once

#include <QStringList>

#include <optional>

class Program;
struct Settings;

/// Whether the codes that a sale is booked on are in the connected ledger: a till that was moved to
/// another server keeps those of the old one.
class LedgerCodes
{
public:
    explicit LedgerCodes(Program &program) : m_program(program) {}

    /// Looks them up anew; what the user has accepted before counts no more. `cashier`: the code of
    /// the chosen one, may be empty.
    void check(const Settings &settings, const QString &cashier);

    /// The codes that the ledger does not know, each with what it stands for: "depo 01". Empty
    /// while the ledger does not answer.
    QStringList unknown() const { return m_unknown.value_or(QStringList()); }

    /// Whether a sale may be booked on the codes, after another look when some were not there: the
    /// ledger may have been mended since.
    bool mayPost(const Settings &settings, const QString &cashier);

    /// Asks, once until the next check, whether it is to be booked on codes that are not there.
    bool accept();

private:
    Program &m_program;
    std::optional<QStringList> m_unknown; ///< nothing: the ledger could not be asked
    bool m_accepted = false;              ///< as they are, by the user
};
