#include "platform/host/odbc_errors.h"

#include "common/host_error.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// FreeTDS reports a broken connection as a mere warning, with one of these numbers: timed out,
/// read failed, write failed, connect failed, closed by the server, connection dead.
constexpr std::array<int, 6> kFreeTdsLost = {20003, 20004, 20006, 20009, 20017, 20047};

bool isTimeOut(const OdbcMessage &message)
{
    return message.state == u"HYT00"_s || message.state == u"HYT01"_s;
}

bool isLost(const OdbcMessage &message)
{
    return message.state.startsWith(u"08"_s) || isTimeOut(message) ||
           std::find(kFreeTdsLost.begin(), kFreeTdsLost.end(), message.native) !=
               kFreeTdsLost.end();
}

bool isRule(const OdbcMessage &message)
{
    return message.state == u"23000"_s;
}

} // namespace

int odbcErrorNumber(const std::vector<OdbcMessage> &messages)
{
    if (std::any_of(messages.begin(), messages.end(), isLost))
        return HostError::kConnectionLost;
    if (std::any_of(messages.begin(), messages.end(), isRule))
        return HostError::kDuplicate;
    return HostError::kStatement;
}

bool odbcTimedOut(const std::vector<OdbcMessage> &messages)
{
    return std::any_of(messages.begin(), messages.end(), isTimeOut);
}
