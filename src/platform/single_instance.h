#pragma once

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QLockFile;
class QString;
QT_END_NAMESPACE

/// Lets one copy of the program run per user at a time.
class SingleInstance
{
public:
    /// `name`: what the copies share, a plain file-name word.
    explicit SingleInstance(const QString &name);
    ~SingleInstance();

    /// False when another copy runs. A copy that crashed does not count.
    bool first() const { return m_first; }

    /// Lets the next copy start before this one has ended.
    void release();

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_first;
};
