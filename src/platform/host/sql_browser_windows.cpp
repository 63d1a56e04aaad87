#include "platform/host/sql_browser.h"

#include <array>
#include <memory>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace sql_browser {

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
    explicit Socket(int family) : handle(socket(family, SOCK_DGRAM, IPPROTO_UDP)) {}
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

Addresses addressesOf(const QString &host, int port)
{
    ADDRINFOW wanted{};
    wanted.ai_socktype = SOCK_DGRAM;
    ADDRINFOW *found = nullptr;
    if (GetAddrInfoW(host.toStdWString().c_str(), std::to_wstring(port).c_str(), &wanted, &found) !=
        0)
        found = nullptr;
    return {found, &FreeAddrInfoW};
}

} // namespace

std::optional<int> instancePort(const QString &host, const QString &instance,
                                std::chrono::milliseconds patience, int browserPort)
{
    const Sockets sockets;
    const Addresses addresses = addressesOf(host, browserPort);
    if (!addresses)
        return std::nullopt;
    const Socket asker(addresses->ai_family);
    const auto wait = static_cast<DWORD>(patience.count());
    const QByteArray request = instanceRequest(instance);
    std::array<char, 65536> answer{};
    if (connect(asker.handle, addresses->ai_addr, static_cast<int>(addresses->ai_addrlen)) != 0 ||
        setsockopt(asker.handle, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char *>(&wait),
                   sizeof wait) != 0 ||
        send(asker.handle, request.constData(), static_cast<int>(request.size()), 0) < 0)
        return std::nullopt;
    const int size = recv(asker.handle, answer.data(), static_cast<int>(answer.size()), 0);
    return size > 0 ? portInAnswer({answer.data(), size}) : std::nullopt;
}

} // namespace sql_browser
