#include "platform/host/network.h"

#include <QDeadlineTimer>

#include <array>
#include <memory>
#include <string>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace network {

namespace {

/// The system's sockets, from here to the end of the scope.
struct Sockets
{
    Sockets() { WSAStartup(MAKEWORD(2, 2), &data); }
    ~Sockets() { WSACleanup(); }
    Sockets(const Sockets &) = delete;
    Sockets &operator=(const Sockets &) = delete;

    WSADATA data{};
};

struct Socket
{
    explicit Socket(const ADDRINFOW &place)
        : handle(socket(place.ai_family, place.ai_socktype, place.ai_protocol))
    {}
    ~Socket()
    {
        if (handle != INVALID_SOCKET)
            closesocket(handle);
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    SOCKET handle;
};

using Addresses = std::unique_ptr<ADDRINFOW, decltype(&FreeAddrInfoW)>;

/// `type`: SOCK_STREAM or SOCK_DGRAM.
Addresses lookUp(const QString &host, int port, int type)
{
    ADDRINFOW wanted{};
    wanted.ai_socktype = type;
    ADDRINFOW *found = nullptr;
    if (GetAddrInfoW(host.toStdWString().c_str(), std::to_wstring(port).c_str(), &wanted, &found) !=
        0)
        found = nullptr;
    return {found, &FreeAddrInfoW};
}

QString numericText(const ADDRINFOW &place)
{
    std::array<wchar_t, NI_MAXHOST> text{};
    if (GetNameInfoW(place.ai_addr, static_cast<socklen_t>(place.ai_addrlen), text.data(),
                     static_cast<DWORD>(text.size()), nullptr, 0, NI_NUMERICHOST) != 0)
        return {};
    return QString::fromWCharArray(text.data());
}

enum class Event
{
    readable,
    connected,
    failed,
    none
};

/// Waits for one thing to happen to a socket that does not block.
Event waitFor(SOCKET handle, bool connecting, const QDeadlineTimer &deadline)
{
    fd_set wanted;
    fd_set failed;
    FD_ZERO(&wanted);
    FD_ZERO(&failed);
    FD_SET(handle, &wanted);
    FD_SET(handle, &failed);
    const auto left = static_cast<long>(deadline.remainingTime());
    timeval wait{left / 1000, left % 1000 * 1000};
    if (select(0, connecting ? nullptr : &wanted, connecting ? &wanted : nullptr, &failed, &wait) <=
        0)
        return Event::none;
    if (FD_ISSET(handle, &failed))
        return Event::failed;
    return connecting ? Event::connected : Event::readable;
}

bool wasRefused(SOCKET handle)
{
    int error = 0;
    int size = sizeof error;
    getsockopt(handle, SOL_SOCKET, SO_ERROR, reinterpret_cast<char *>(&error), &size);
    return error == WSAECONNREFUSED;
}

} // namespace

QStringList addresses(const QString &host)
{
    const Sockets sockets;
    const Addresses found = lookUp(host, 0, SOCK_STREAM);
    QStringList older;
    QStringList newer;
    for (const ADDRINFOW *place = found.get(); place; place = place->ai_next)
        (place->ai_family == AF_INET ? older : newer) += numericText(*place);
    return older + newer;
}

QByteArray askDatagram(const QString &address, int port, const QByteArray &request,
                       Patience patience)
{
    const Sockets sockets;
    const Addresses place = lookUp(address, port, SOCK_DGRAM);
    if (!place)
        return {};
    const Socket asker(*place);
    const auto wait = static_cast<DWORD>(patience.count());
    std::array<char, 65536> answer{};
    if (connect(asker.handle, place->ai_addr, static_cast<int>(place->ai_addrlen)) != 0 ||
        setsockopt(asker.handle, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char *>(&wait),
                   sizeof wait) != 0 ||
        send(asker.handle, request.constData(), static_cast<int>(request.size()), 0) < 0)
        return {};
    const int size = recv(asker.handle, answer.data(), static_cast<int>(answer.size()), 0);
    return size > 0 ? QByteArray(answer.data(), size) : QByteArray();
}

Conversation talk(const QString &address, int port, const QByteArray &request,
                  const std::function<bool(const QByteArray &)> &isWhole, Patience patience)
{
    using End = Conversation::End;
    const QDeadlineTimer deadline(patience);
    const Sockets sockets;
    const Addresses place = lookUp(address, port, SOCK_STREAM);
    if (!place)
        return {};
    const Socket caller(*place);
    u_long unblocked = 1;
    ioctlsocket(caller.handle, FIONBIO, &unblocked);
    connect(caller.handle, place->ai_addr, static_cast<int>(place->ai_addrlen));
    if (waitFor(caller.handle, true, deadline) != Event::connected)
        return {wasRefused(caller.handle) ? End::refused : End::unreachable, {}};
    if (!request.isEmpty())
        send(caller.handle, request.constData(), static_cast<int>(request.size()), 0);
    QByteArray answer;
    std::array<char, 4096> piece{};
    while (!isWhole(answer)) {
        if (waitFor(caller.handle, false, deadline) == Event::none)
            return {End::silent, answer};
        const int size = recv(caller.handle, piece.data(), static_cast<int>(piece.size()), 0);
        if (size <= 0)
            return {End::closed, answer};
        answer.append(piece.data(), size);
    }
    return {End::whole, answer};
}

} // namespace network
