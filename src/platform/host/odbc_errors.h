#pragma once

#include <QString>

#include <vector>

/// One message a driver left about a failed call.
struct OdbcMessage
{
    QString state; ///< SQLSTATE, five characters
    int native = 0;
    QString text;
};

/// The error number of HostError for what a driver said, the gravest message first: connection
/// lost or timed out, rule of a table violated, statement refused.
int odbcErrorNumber(const std::vector<OdbcMessage> &messages);

/// What is behind the messages, in Turkish words for the user; "" when that is not known.
QString odbcReason(const std::vector<OdbcMessage> &messages);

/// True when the server was reached and lets this user or this database not in, or when the driver
/// is missing: to repeat does not help then.
bool odbcRefused(const std::vector<OdbcMessage> &messages);

/// True when one of the messages says that time ran out: the connection may still be alive then.
bool odbcTimedOut(const std::vector<OdbcMessage> &messages);
