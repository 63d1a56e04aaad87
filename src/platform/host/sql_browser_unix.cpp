#include "platform/host/sql_browser.h"

#include <QHostInfo>
#include <QUdpSocket>

namespace sql_browser {

std::optional<int> instancePort(const QString &host, const QString &instance,
                                std::chrono::milliseconds patience, int browserPort)
{
    const QList<QHostAddress> addresses = QHostInfo::fromName(host).addresses();
    if (addresses.isEmpty())
        return std::nullopt;
    QUdpSocket socket;
    socket.connectToHost(addresses.first(), static_cast<quint16>(browserPort));
    socket.write(instanceRequest(instance));
    if (!socket.waitForReadyRead(static_cast<int>(patience.count())))
        return std::nullopt;
    return portInAnswer(socket.readAll());
}

} // namespace sql_browser
