#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QString;
QT_END_NAMESPACE

/// Lets one copy of the program run at a time: one per machine on Windows, one per user elsewhere.
class SingleInstance
{
public:
    /// `name`: what the copies share, a plain file-name word.
    explicit SingleInstance(const QString &name);
    ~SingleInstance();

    /// False when another copy runs. A copy that crashed does not count.
    bool first() const { return m_first; }

    /// Calls `shown` on this thread whenever a further copy has been started and has ended at once.
    /// Needs the application object.
    void onFurtherStart(std::function<void()> shown);

    /// For a copy that is not the first: tells the first one.
    void tellFirst();

    /// Lets the next copy start before this one has ended.
    void release();

private:
    struct Lock;
    std::unique_ptr<Lock> m_lock;
    bool m_first;
};
