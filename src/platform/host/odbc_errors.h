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

/// True when one of the messages says that time ran out: the connection may still be alive then.
bool odbcTimedOut(const std::vector<OdbcMessage> &messages);
