#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

/// Something long that the user watches and may stop. Between its steps the windows live on, so
/// that a key or a click can reach stop(); whoever runs it keeps a second one from starting.
class LongTask
{
public:
    bool isRunning() const { return m_running; }
    bool isStopped() const { return m_stopped; }

    void start()
    {
        m_running = true;
        m_stopped = false;
        m_sinceEvents.start();
    }
    void end() { m_running = false; }
    void stop() { m_stopped = true; }

    /// Lets the windows draw what was said before a statement keeps them waiting; no key or click
    /// is handled.
    static void showFirst() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

    /// Call between two steps. Every 50 ms, often enough for the eye and seldom enough to cost
    /// nothing, calls `tell` and handles events. False: the user wants it to stop.
    template <typename Tell>
    bool goOn(Tell &&tell)
    {
        if (m_sinceEvents.elapsed() >= kEventInterval) {
            tell();
            QCoreApplication::processEvents();
            m_sinceEvents.restart();
        }
        return !m_stopped;
    }

private:
    static constexpr qint64 kEventInterval = 50;

    bool m_running = false;
    bool m_stopped = false;
    QElapsedTimer m_sinceEvents;
};
