#include "platform/machine/single_instance.h"

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

struct SingleInstance::Lock
{
    QLockFile file;
};

SingleInstance::SingleInstance(const QString &name)
    : m_lock(new Lock{QLockFile(u"%1/.%2.lock"_s.arg(lockFolder(), name))})
{
    QLockFile &file = m_lock->file;
    file.setStaleLockTime(0);
    m_first = file.tryLock(0) || file.error() != QLockFile::LockFailedError;
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::release()
{
    m_lock->file.unlock();
}
