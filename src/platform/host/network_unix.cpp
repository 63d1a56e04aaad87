#include "platform/host/network.h"

#include <QDeadlineTimer>
#include <QHostInfo>
#include <QTcpSocket>
#include <QUdpSocket>

#include <algorithm>

namespace network {

namespace {

int left(const QDeadlineTimer &deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

QStringList addresses(const QString &host)
{
    QList<QHostAddress> found = QHostInfo::fromName(host).addresses();
    std::stable_partition(found.begin(), found.end(), [](const QHostAddress &address) {
        return address.protocol() == QAbstractSocket::IPv4Protocol;
    });
    QStringList texts;
    for (const QHostAddress &address : found)
        texts += address.toString();
    return texts;
}

QByteArray askDatagram(const QString &address, int port, const QByteArray &request,
                       Patience patience)
{
    QUdpSocket socket;
    socket.connectToHost(QHostAddress(address), static_cast<quint16>(port));
    socket.write(request);
    if (!socket.waitForReadyRead(static_cast<int>(patience.count())))
        return {};
    return socket.readAll();
}

Conversation talk(const QString &address, int port, const QByteArray &request,
                  const std::function<bool(const QByteArray &)> &isWhole, Patience patience)
{
    using End = Conversation::End;
    const QDeadlineTimer deadline(patience);
    QTcpSocket socket;
    socket.connectToHost(QHostAddress(address), static_cast<quint16>(port));
    if (!socket.waitForConnected(left(deadline)))
        return {socket.error() == QAbstractSocket::ConnectionRefusedError ? End::refused
                                                                          : End::unreachable,
                {}};
    socket.write(request);
    QByteArray answer;
    while (!isWhole(answer)) {
        if (deadline.hasExpired())
            return {End::silent, answer};
        if (!socket.waitForReadyRead(left(deadline)) &&
            socket.state() != QAbstractSocket::ConnectedState)
            return {End::closed, answer + socket.readAll()};
        answer += socket.readAll();
    }
    return {End::whole, answer};
}

} // namespace network
