#pragma once

#include "common/connection_string.h"

#include <QStringList>

/// Which ODBC driver reaches SQL Server on this machine, and how it wants to be told where.
namespace odbc_driver {

/// The first installed of Microsoft's drivers 18, 17, 13 and "SQL Server" and of FreeTDS; "" when
/// there is none.
QString choose(const QStringList &installed);

/// FreeTDS takes host and port, Microsoft's drivers find the port of an instance themselves.
bool needsPort(const QString &driver);

/// The driver's own connection string. Values with a meaning in it are put between braces.
/// `extra`: text of the shop appended to it; a name in it replaces ours.
QString connectionString(const QString &driver, const ServerAddress &address,
                         const ConnectionSettings &settings, const QString &extra);

} // namespace odbc_driver
