#pragma once

#include "common/connection_string.h"

#include <QStringList>

/// What the shop says in `baglanti.zev` about its ODBC driver; both may be empty.
struct OdbcOverride
{
    QString driver; ///< this one instead of the first known
    QString extra;  ///< appended to the driver's connection string
};

/// How SQL Server is reached through ODBC from this machine: by which driver, how that wants to be
/// told where, and on which port an instance listens. The ODBC engine knows nothing of it.
namespace sql_server {

/// What OdbcEngine is to connect with. May take its time: the server is asked for an instance's
/// port. Throws HostError kConnectionLost.
QString whereIs(const ConnectionSettings &settings, const OdbcOverride &override);

/// The first installed of Microsoft's drivers 18, 17, 13 and "SQL Server" and of FreeTDS; "" when
/// there is none.
QString choose(const QStringList &installed);

/// FreeTDS takes host and port, Microsoft's drivers find the port of an instance themselves.
bool needsPort(const QString &driver);

/// The driver's own connection string. Values with a meaning in it are put between braces.
/// `extra`: text of the shop appended to it; a name in it replaces ours.
QString connectionString(const QString &driver, const ServerAddress &address,
                         const ConnectionSettings &settings, const QString &extra);

} // namespace sql_server
