#pragma once

#include "common/host_error.h"

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

/// The same for the program, as far as it makes a difference there.
HostError::Cause odbcCause(const std::vector<OdbcMessage> &messages);

/// True when one of the messages says that time ran out: the connection may still be alive then.
bool odbcTimedOut(const std::vector<OdbcMessage> &messages);
