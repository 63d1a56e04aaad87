#pragma once

#include <QObject>

#include <memory>
#include <mutex>

/// Ties work that runs beside the windows to whoever waits for it. The listener may leave first:
/// the work then ends by itself, and what it has still sent counts no more.
class RunLink : public std::enable_shared_from_this<RunLink>
{
public:
    explicit RunLink(QObject &listener) : m_listener(&listener) {}

    /// For the working thread: has something done on the listener's. False when nobody listens any
    /// more.
    template <typename What>
    bool post(What what)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_listener)
            return false;
        return QMetaObject::invokeMethod(
            m_listener,
            [link = shared_from_this(), what] {
                if (link->m_listener) // cut on this very thread
                    what();
            },
            Qt::QueuedConnection);
    }

    /// For the listener.
    void cut()
    {
        const std::lock_guard lock(m_mutex);
        m_listener = nullptr;
    }

private:
    std::mutex m_mutex;
    QObject *m_listener;
};
