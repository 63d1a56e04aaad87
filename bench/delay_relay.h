#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <string>
#include <thread>

/// A network of a shop on this machine: passes what arrives at one port of the loopback on to
/// another one, each piece after a delay, in both directions. Takes connections from this machine
/// only, a few at a time, and ends by itself.
class DelayRelay
{
public:
    using Clock = std::chrono::steady_clock;

    struct Limits
    {
        std::size_t connections = 16;
        std::size_t held = 1 << 20; ///< bytes on their way in one direction
        std::chrono::seconds life{600};
    };

    /// `delay`: of each direction; `listen` 0: a free port. Throws std::system_error.
    DelayRelay(std::uint16_t target, Clock::duration delay, std::uint16_t listen,
               const Limits &limits);
    DelayRelay(std::uint16_t target, Clock::duration delay) : DelayRelay(target, delay, 0, {}) {}
    /// Ends the connections that are open.
    ~DelayRelay();
    DelayRelay(const DelayRelay &) = delete;
    DelayRelay &operator=(const DelayRelay &) = delete;

    std::uint16_t port() const { return m_port; }
    /// Waits until the relay has come to its end.
    void wait();

private:
    struct Piece
    {
        Clock::time_point due;
        std::string bytes;
    };
    struct Flow
    {
        int from = -1;
        int to = -1;
        std::deque<Piece> pieces{};
        std::size_t held = 0;
        bool ended = false; ///< `from` sends no more
        bool full = false;  ///< `to` takes no more for now

        bool finished() const { return ended && pieces.empty(); }
    };
    struct Connection
    {
        Flow out;
        Flow back;
        bool broken = false;
    };

    void run();
    void accept();
    void waitForWork();
    bool read(Flow &flow);
    static bool write(Flow &flow);
    static void close(const Connection &connection);

    std::uint16_t m_target;
    Clock::duration m_delay;
    Limits m_limits;
    Clock::time_point m_end;
    int m_listener = -1;
    int m_wake[2] = {-1, -1}; ///< a pipe: closing its end stops the thread
    std::uint16_t m_port = 0;
    std::list<Connection> m_connections;
    std::thread m_thread;
};
