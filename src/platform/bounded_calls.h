#pragma once

#include <QThreadPool>

#include <atomic>
#include <chrono>
#include <functional>

/// Runs calls into drivers that may hang on threads of their own, so that the user never waits
/// longer than agreed, whatever a driver does about its time-outs.
class BoundedCalls
{
public:
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

    /// Waits until `call` returns or has shown no life for `patience`; false then: the call goes on
    /// alone and must own all it touches. What it throws is thrown here.
    bool run(std::chrono::milliseconds patience, std::function<void(Life &)> call);

private:
    QThreadPool m_threads; ///< its end waits for calls that were left alone
};
