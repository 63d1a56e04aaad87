#include "common/connection_string.h"

#include "common/host_error.h"

using namespace Qt::StringLiterals;

namespace {

HostError malformed(const QString &what)
{
    return {HostError::kConnectionLost, what};
}

QString *field(ConnectionSettings &settings, QStringView name)
{
    const auto is = [&](QStringView known) {
        return name.compare(known, Qt::CaseInsensitive) == 0;
    };
    if (is(u"Server"))
        return &settings.server;
    if (is(u"UID"))
        return &settings.user;
    if (is(u"PWD"))
        return &settings.password;
    return is(u"database") ? &settings.database : nullptr;
}

/// The part before the first `separator`; `text` keeps what follows it.
QStringView cutAt(QStringView &text, QChar separator)
{
    const qsizetype at = text.indexOf(separator);
    const QStringView head = at < 0 ? text : text.first(at);
    text = at < 0 ? QStringView() : text.sliced(at + 1);
    return head.trimmed();
}

int portNumber(QStringView text)
{
    bool ok = false;
    const int port = text.toInt(&ok);
    if (!ok || port < 1 || port > 65535)
        throw malformed(u"Sunucu adındaki bağlantı noktası geçersiz: %1"_s.arg(text));
    return port;
}

} // namespace

QString connectionString(const ConnectionSettings &settings)
{
    return u"Server="_s + settings.server + u";Provider=SQLOLEDB;UID="_s + settings.user +
           u";PWD="_s + settings.password + u";database="_s + settings.database + u";"_s;
}

ConnectionSettings parseConnectionString(QStringView text)
{
    ConnectionSettings settings;
    while (!text.isEmpty()) {
        QStringView value = cutAt(text, u';');
        if (value.isEmpty())
            continue;
        const bool pair = value.contains(u'=');
        const QStringView name = cutAt(value, u'=');
        if (!pair || name.isEmpty())
            throw malformed(u"Bağlantı bilgileri geçersiz: kullanıcı adı, şifre, sunucu ve "
                            u"veritabanı adı \";\" içeremez."_s);
        if (QString *known = field(settings, name))
            *known = value.trimmed().toString();
    }
    return settings;
}

ServerAddress parseServerName(QStringView name)
{
    QStringView rest = name.trimmed();
    if (rest.startsWith(u"tcp:", Qt::CaseInsensitive))
        rest = rest.sliced(4);
    QStringView host = cutAt(rest, u',');
    ServerAddress address;
    if (!rest.trimmed().isEmpty())
        address.port = portNumber(rest.trimmed());
    address.host = cutAt(host, u'\\').toString();
    address.instance = host.trimmed().toString();
    if (address.host.isEmpty())
        throw malformed(u"Sunucu adı boş."_s);
    if (address.host == u"."_s || address.host.compare(u"(local)"_s, Qt::CaseInsensitive) == 0)
        address.host = u"localhost"_s;
    return address;
}
