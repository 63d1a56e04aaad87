#include "platform/host/odbc_errors.h"

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

/// The numbers of SQL Server for what a shop can mend. Behind a database that cannot be opened
/// comes a refused login, so the order counts.
constexpr std::array<std::pair<int, HostError::Cause>, 15> kCauses = {
    {{911, HostError::Cause::database},     // no such database
     {916, HostError::Cause::database},     // not for this user
     {4060, HostError::Cause::database},    // cannot be opened
     {18452, HostError::Cause::login},      // a user of the domain, or only those are let in
     {18456, HostError::Cause::login},      // user or password
     {18470, HostError::Cause::login},      // user switched off
     {18486, HostError::Cause::login},      // user locked
     {18487, HostError::Cause::login},      // password too old
     {18488, HostError::Cause::login},      // password to be changed
     {229, HostError::Cause::right},        // on a table
     {230, HostError::Cause::right},        // on a column
     {262, HostError::Cause::right},        // in a database
     {207, HostError::Cause::noTable},      // no such column
     {208, HostError::Cause::noTable},      // no such table
     {17835, HostError::Cause::encryption}} // the server wants it, the driver does not
};

/// Drivers have no number of their own for it, and speak the user's language.
bool isEncryption(const OdbcMessage &message)
{
    const auto says = [&](QStringView word) {
        return message.text.contains(word, Qt::CaseInsensitive);
    };
    return says(u"SSL") || says(u"TLS ") || says(u"encrypt") || says(u"certificate") ||
           says(u"sertifika");
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

HostError::Cause odbcCause(const std::vector<OdbcMessage> &messages)
{
    using Cause = HostError::Cause;
    const auto any = [&](auto test) { return std::any_of(messages.begin(), messages.end(), test); };
    for (const auto &[number, cause] : kCauses)
        if (any([number = number](const OdbcMessage &message) { return message.native == number; }))
            return cause;
    // No such driver is known, or its file cannot be loaded.
    if (any([](const OdbcMessage &message) {
            return message.state == u"IM002"_s || message.state == u"IM003"_s ||
                   message.text.contains(u"Can't open lib"_s);
        }))
        return Cause::noDriver;
    if (any(isEncryption))
        return Cause::encryption;
    return any(isTimeOut) ? Cause::silent : Cause::unknown;
}

bool odbcTimedOut(const std::vector<OdbcMessage> &messages)
{
    return std::any_of(messages.begin(), messages.end(), isTimeOut);
}
