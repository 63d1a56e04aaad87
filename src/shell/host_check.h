#pragma once

#include "common/host_tables.h"

class HostConnection;

/// Holds the company's database against the tables of host_tables.h. Nothing is written.
namespace host_check {

/// What the program would look for in vain.
struct Missing
{
    QStringList tables;
    QStringList columns;   ///< "TABLE.COLUMN", of tables that are there
    QStringList hidden;    ///< tables that are there but closed to the user
    QStringList otherCase; ///< of the missing tables: those there in other letters
    QStringList views;     ///< tables the program writes into that are no tables
};

/// Compares names as the server itself does. Throws HostError.
Missing missing(HostConnection &company);

/// The same for the embedded engine, whose tables hide nothing.
Missing missingEmbedded(HostConnection &company);

/// The columns of a record set that are not there; `table` only gives the wanted names.
QStringList missingColumns(const host_tables::Table &table, const QStringList &columns);

/// What the user of the connection may not do with the tables.
struct Rights
{
    QString user; ///< as the database knows it
    std::vector<host_tables::TableRight> missing;
};

/// `without`: tables that are not there. Throws HostError.
Rights rights(HostConnection &company, const QStringList &without);

/// The databases that the login of a connection may open, in alphabetical order; `table`: only
/// those in which it sees that table. Throws HostError.
QStringList openableDatabases(HostConnection &server, const QString &table = {});

/// What a wrong order of letters does to the shop; "" for one that suits.
QString collationFault(const QString &collation);

} // namespace host_check
