#pragma once

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <functional>

/// The few words that are exchanged with a machine beside the database driver's own, over the
/// system's sockets.
namespace network {

using Patience = std::chrono::milliseconds;

/// The numeric addresses of a machine's name, those of the older protocol first: servers of shops
/// rarely listen on the newer one. May take as long as the system's look-up does.
QStringList addresses(const QString &host);

/// Sends one datagram and returns the answer; empty when none comes in time.
QByteArray askDatagram(const QString &address, int port, const QByteArray &request,
                       Patience patience);

/// How a conversation over TCP ended.
struct Conversation
{
    enum class End
    {
        refused,     ///< nobody listens there
        unreachable, ///< no way to the machine, or no answer in time
        whole,       ///< the answer has come
        closed,      ///< the other side hung up before
        silent       ///< time ran out before
    };

    End end = End::unreachable;
    QByteArray answer; ///< what came until then
};

/// Connects, sends the request and reads until the answer is whole. `isWhole` may be satisfied with
/// nothing: then it only connects.
Conversation talk(const QString &address, int port, const QByteArray &request,
                  const std::function<bool(const QByteArray &)> &isWhole, Patience patience);

} // namespace network
