#include "platform/single_instance.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString lockFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QDir(runtime).exists() ? runtime : QDir::homePath();
}

} // namespace

SingleInstance::SingleInstance(const QString &name)
    : m_lock(std::make_unique<QLockFile>(u"%1/.%2.lock"_s.arg(lockFolder(), name)))
{
    m_lock->setStaleLockTime(0);
    m_first = m_lock->tryLock(0) || m_lock->error() != QLockFile::LockFailedError;
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::release()
{
    m_lock->unlock();
}
