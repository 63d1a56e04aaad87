#include "delay_relay.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

sockaddr_in loopback(std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

int checked(int result)
{
    if (result < 0)
        throw std::system_error(errno, std::generic_category());
    return result;
}

/// What is written goes at once: the delay is the relay's alone.
void prepare(int socket)
{
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    ::fcntl(socket, F_SETFL, O_NONBLOCK);
}

bool again()
{
    return errno == EAGAIN || errno == EINTR;
}

} // namespace

DelayRelay::DelayRelay(std::uint16_t target, Clock::duration delay, std::uint16_t listen,
                       const Limits &limits)
    : m_target(target), m_delay(delay), m_limits(limits), m_end(Clock::now() + limits.life)
{
    m_listener = checked(::socket(AF_INET, SOCK_STREAM, 0));
    const int on = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address = loopback(listen);
    socklen_t size = sizeof address;
    checked(::bind(m_listener, reinterpret_cast<sockaddr *>(&address), size));
    checked(::listen(m_listener, 8));
    checked(::getsockname(m_listener, reinterpret_cast<sockaddr *>(&address), &size));
    m_port = ntohs(address.sin_port);
    ::fcntl(m_listener, F_SETFL, O_NONBLOCK);
    checked(::pipe(m_wake));
    m_thread = std::thread([this] { run(); });
}

DelayRelay::~DelayRelay()
{
    ::close(m_wake[1]);
    wait();
    ::close(m_wake[0]);
    ::close(m_listener);
}

void DelayRelay::wait()
{
    if (m_thread.joinable())
        m_thread.join();
}

void DelayRelay::run()
{
    while (Clock::now() < m_end) {
        waitForWork();
        if (pollfd wake{m_wake[0], POLLIN, 0}; ::poll(&wake, 1, 0) > 0)
            break;
        accept();
        for (Connection &each : m_connections)
            each.broken = !read(each.out) || !read(each.back) || !write(each.out) ||
                          !write(each.back) || (each.out.finished() && each.back.finished());
        m_connections.remove_if([](const Connection &each) {
            if (each.broken)
                close(each);
            return each.broken;
        });
    }
    for (const Connection &each : m_connections)
        close(each);
    m_connections.clear();
}

/// Until something arrives, a piece is due, or a socket that was full takes more.
void DelayRelay::waitForWork()
{
    std::vector<pollfd> watched = {{m_wake[0], POLLIN, 0}};
    if (m_connections.size() < m_limits.connections)
        watched.push_back({m_listener, POLLIN, 0});
    Clock::time_point next = m_end;
    for (const Connection &each : m_connections)
        for (const Flow *flow : {&each.out, &each.back}) {
            if (!flow->ended && flow->held < m_limits.held)
                watched.push_back({flow->from, POLLIN, 0});
            if (flow->full)
                watched.push_back({flow->to, POLLOUT, 0});
            else if (!flow->pieces.empty())
                next = std::min(next, flow->pieces.front().due);
        }
    const auto left = std::max(next - Clock::now(), Clock::duration::zero());
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    const timespec time{seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
    ::ppoll(watched.data(), watched.size(), &time, nullptr);
}

void DelayRelay::accept()
{
    while (m_connections.size() < m_limits.connections) {
        const int client = ::accept(m_listener, nullptr, nullptr);
        if (client < 0)
            return;
        const int server = ::socket(AF_INET, SOCK_STREAM, 0);
        const sockaddr_in address = loopback(m_target);
        if (server < 0 ||
            ::connect(server, reinterpret_cast<const sockaddr *>(&address), sizeof address) < 0) {
            ::close(client);
            if (server >= 0)
                ::close(server);
            continue;
        }
        prepare(client);
        prepare(server);
        m_connections.push_back({{client, server}, {server, client}, false});
    }
}

/// False when the connection is broken.
bool DelayRelay::read(Flow &flow)
{
    std::array<char, 16 * 1024> room; // NOLINT: filled by recv
    while (!flow.ended && flow.held < m_limits.held) {
        const ssize_t size = ::recv(flow.from, room.data(), room.size(), 0);
        if (size < 0)
            return again();
        flow.ended = size == 0;
        // The end travels as an empty piece, behind what was sent before it.
        flow.pieces.push_back(
            {Clock::now() + m_delay, std::string(room.data(), static_cast<std::size_t>(size))});
        flow.held += static_cast<std::size_t>(size);
    }
    return true;
}

/// Passes on what is due; false when the connection is broken.
bool DelayRelay::write(Flow &flow)
{
    flow.full = false;
    while (!flow.pieces.empty() && flow.pieces.front().due <= Clock::now()) {
        std::string &bytes = flow.pieces.front().bytes;
        if (bytes.empty())
            return ::shutdown(flow.to, SHUT_WR) == 0 && (flow.pieces.pop_front(), true);
        const ssize_t size = ::send(flow.to, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (size < 0) {
            flow.full = again();
            return flow.full;
        }
        flow.held -= static_cast<std::size_t>(size);
        bytes.erase(0, static_cast<std::size_t>(size));
        if (bytes.empty())
            flow.pieces.pop_front();
    }
    return true;
}

void DelayRelay::close(const Connection &connection)
{
    ::close(connection.out.from);
    ::close(connection.out.to);
}
