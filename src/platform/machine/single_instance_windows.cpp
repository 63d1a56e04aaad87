#include "platform/machine/single_instance.h"

#include <QString>
#include <qt_windows.h>

using namespace Qt::StringLiterals;

/// A named mutex of the machine; the system closes it when the program ends, however it ends.
struct SingleInstance::Lock
{
    explicit Lock(const QString &name)
        : mutex(CreateMutexW(nullptr, FALSE, (u"Global\\"_s + name).toStdWString().c_str())),
          error(GetLastError())
    {}
    ~Lock()
    {
        if (mutex)
            CloseHandle(mutex);
    }
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

    HANDLE mutex;
    DWORD error;
};

SingleInstance::SingleInstance(const QString &name)
    : m_lock(std::make_unique<Lock>(name)),
      // The mutex of another user exists, but may not be opened.
      m_first(m_lock->error != ERROR_ALREADY_EXISTS && m_lock->error != ERROR_ACCESS_DENIED)
{}

SingleInstance::~SingleInstance() = default;

void SingleInstance::release()
{
    m_lock.reset();
}
