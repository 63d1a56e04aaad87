#include "platform/host/sql_server.h"

#include "platform/host/engine_errors.h"
#include "platform/host/odbc_session.h"
#include "platform/host/sql_browser.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace sql_server {

namespace {

constexpr int kDefaultPort = 1433;

struct Pair
{
    QString name;
    QString value;
};

/// Puts a value between braces when it would end or change the string without them. FreeTDS before
/// 1.4 does not read a doubled brace as one: there a value ends at the first "};".
QString quoted(QString value, const QString &driver)
{
    const QString special = needsPort(driver) ? u";"_s : u";{}[]()=,?*!@"_s;
    const bool plain =
        value == value.trimmed() && !value.startsWith(u'{') &&
        std::none_of(value.begin(), value.end(), [&](QChar c) { return special.contains(c); });
    if (plain)
        return value;
    if (!needsPort(driver))
        value.replace(u'}', u"}}"_s);
    return u'{' + value + u'}';
}

/// "host", "host\instance" or "host,port", as Microsoft's drivers write it. A port says it all.
QString serverText(const ServerAddress &address)
{
    if (address.port != 0)
        return address.host + u',' + QString::number(address.port);
    return address.instance.isEmpty() ? address.host : address.host + u'\\' + address.instance;
}

bool isMicrosoft(const QString &driver)
{
    return driver.startsWith(u"ODBC Driver "_s) && driver.endsWith(u" for SQL Server"_s);
}

/// The names that stand before a "=" in the shop's own text, in lower case.
QStringList namesIn(const QString &extra)
{
    QStringList names;
    for (const QString &piece : extra.split(u';'))
        names += piece.section(u'=', 0, 0).trimmed().toLower();
    return names;
}

QString driverName(const OdbcOverride &override)
{
    if (!override.driver.isEmpty())
        return override.driver;
    QString driver = choose(OdbcSession::installedDrivers());
    if (driver.isEmpty())
        throw HostError(HostError::kConnectionLost,
                        u"Bu bilgisayarda SQL Server için ODBC sürücüsü kurulu değil."_s, {},
                        HostError::Cause::noDriver);
    return driver;
}

} // namespace

QString whereIs(const ConnectionSettings &settings, const OdbcOverride &override)
{
    const QString driver = driverName(override);
    ServerAddress address = parseServerName(settings.server);
    if (needsPort(driver) && address.port == 0 && !address.instance.isEmpty()) {
        const auto port = sql_browser::instancePort(address.host, address.instance);
        if (!port)
            throw engineError(HostError::kConnectionLost,
                              u"SQL Server örneği bulunamadı: %1"_s.arg(settings.server));
        address.port = *port;
    }
    return connectionString(driver, address, settings, override.extra);
}

QString choose(const QStringList &installed)
{
    static const std::array<QString, 5> known = {
        u"ODBC Driver 18 for SQL Server"_s, u"ODBC Driver 17 for SQL Server"_s,
        u"ODBC Driver 13 for SQL Server"_s, u"SQL Server"_s, u"FreeTDS"_s};
    for (const QString &driver : known)
        if (installed.contains(driver, Qt::CaseInsensitive))
            return driver;
    return {};
}

bool needsPort(const QString &driver)
{
    return driver.contains(u"FreeTDS"_s, Qt::CaseInsensitive);
}

QString connectionString(const QString &driver, const ServerAddress &address,
                         const ConnectionSettings &settings, const QString &extra)
{
    std::vector<Pair> pairs;
    if (needsPort(driver)) {
        const int port = address.port != 0 ? address.port : kDefaultPort;
        pairs = {{u"Server"_s, quoted(address.host, driver)},
                 {u"Port"_s, QString::number(port)},
                 {u"TDS_Version"_s, u"7.4"_s},
                 {u"ClientCharset"_s, u"UTF-8"_s}};
    } else {
        // The comma before a port is the driver's own and stays outside of braces.
        pairs = {{u"Server"_s, serverText(address)}};
    }
    pairs.push_back({u"UID"_s, quoted(settings.user, driver)});
    pairs.push_back({u"PWD"_s, quoted(settings.password, driver)});
    pairs.push_back({u"Database"_s, quoted(settings.database, driver)});
    // Newer drivers encrypt and check certificates unless told not to; the servers of shops are
    // old and have certificates of their own making. A shop that wants it says so in its text.
    if (isMicrosoft(driver)) {
        pairs.push_back({u"Encrypt"_s, u"no"_s});
        pairs.push_back({u"TrustServerCertificate"_s, u"yes"_s});
    }
    const QStringList replaced = namesIn(extra);
    // In capitals: the driver manager of Unix changes letters as the user's language does, and a
    // Turkish i has another capital than the one it looks for.
    QString text = u"DRIVER={"_s + driver + u"};"_s;
    for (const Pair &pair : pairs)
        if (!replaced.contains(pair.name.toLower()))
            text += pair.name + u'=' + pair.value + u';';
    return text + extra;
}

} // namespace sql_server
