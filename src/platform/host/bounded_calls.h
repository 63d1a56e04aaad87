#pragma once

#include <QThreadPool>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>

/// Runs calls into drivers that may hang on threads of their own, so that the user never waits
/// longer than agreed, whatever a driver does about its time-outs.
class BoundedCalls
{
public:
    /// How long the end of the program waits for calls that were left alone.
    static constexpr std::chrono::milliseconds kFarewell{3000};

    explicit BoundedCalls(std::chrono::milliseconds farewell = kFarewell);
    /// A call that still hangs after the farewell is abandoned with its thread: the process must be
    /// able to end, or it keeps the next start out of the shop.
    ~BoundedCalls();
    BoundedCalls(const BoundedCalls &) = delete;
    BoundedCalls &operator=(const BoundedCalls &) = delete;

    /// A call that takes long but goes on (rows keep coming) says so here.
    class Life
    {
    public:
        void show() { m_last = std::chrono::steady_clock::now(); }
        std::chrono::steady_clock::time_point last() const { return m_last; }

    private:
        std::atomic<std::chrono::steady_clock::time_point> m_last =
            std::chrono::steady_clock::now();
    };

    /// Called on the waiting thread, several times a second, while run() waits longer than a
    /// moment.
    std::function<void()> waiting;

    /// Waits until `call` returns or has shown no life for `patience`; false then: the call goes on
    /// alone and must own all it touches. What it throws is thrown here.
    bool run(std::chrono::milliseconds patience, std::function<void(Life &)> call);

    /// Starts a call nobody waits for; it must own all it touches and may not throw.
    void start(std::function<void()> call);

private:
    std::chrono::milliseconds m_farewell;
    std::unique_ptr<QThreadPool> m_threads;
};
