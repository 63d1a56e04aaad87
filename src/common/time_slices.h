#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

/// Works in slices: whatever takes long looks up between its steps, so that it is seen to go on and
/// a key or a click can stop it.
class TimeSlices
{
public:
    void start()
    {
        m_stopped = false;
        m_since.start();
    }
    void stop() { m_stopped = true; }
    bool stopped() const { return m_stopped; }

    /// Call between two steps. Every 50 ms, often enough for the eye and seldom enough to cost
    /// nothing, `tell` shows how far the work is and events are handled. False: it is to stop.
    template <typename Tell>
    bool goOn(Tell &&tell)
    {
        return m_since.elapsed() < kSlice ? !m_stopped : lookUp(tell);
    }

    /// The same at once, before a step that may take long.
    template <typename Tell>
    bool lookUp(Tell &&tell)
    {
        tell();
        QCoreApplication::processEvents();
        m_since.restart();
        return !m_stopped;
    }

private:
    static constexpr qint64 kSlice = 50; ///< milliseconds

    QElapsedTimer m_since;
    bool m_stopped = false;
};
