#pragma once

#include <QMap>
#include <QStringList>

class HostConnection;

/// The tables a sale writes, as they stand at one moment.
class LedgerRows
{
public:
    LedgerRows() = default;

    /// Reads them all. Throws HostError.
    explicit LedgerRows(HostConnection &host);

    /// What became of them since `before`: for each table that changed its columns, the rows that
    /// are gone ("-") and the rows that came ("+"). "" when nothing changed.
    QString changedSince(const LedgerRows &before) const;

private:
    struct Table
    {
        QString columns;
        QStringList rows;
    };
    QMap<QString, Table> m_tables;
};
