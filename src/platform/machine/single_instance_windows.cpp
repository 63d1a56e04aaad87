#include "platform/machine/single_instance.h"

#include <QString>
#include <QWinEventNotifier>
#include <qt_windows.h>

using namespace Qt::StringLiterals;

/// A named mutex of the machine; the system closes it when the program ends, however it ends.
struct SingleInstance::Lock
{
    explicit Lock(const QString &name)
        : mutex(CreateMutexW(nullptr, FALSE, (u"Global\\"_s + name).toStdWString().c_str())),
          error(GetLastError()),
          furtherStart(CreateEventW(nullptr, FALSE, FALSE,
                                    (u"Local\\"_s + name + u"-goster"_s).toStdWString().c_str()))
    {}
    ~Lock()
    {
        heard.reset();
        if (furtherStart)
            CloseHandle(furtherStart);
        if (mutex)
            CloseHandle(mutex);
    }
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

    HANDLE mutex;
    DWORD error;
    HANDLE furtherStart; ///< set by every further copy of the same user
    std::unique_ptr<QWinEventNotifier> heard;
};

SingleInstance::SingleInstance(const QString &name)
    : m_lock(std::make_unique<Lock>(name)),
      // The mutex of another user exists, but may not be opened.
      m_first(m_lock->error != ERROR_ALREADY_EXISTS && m_lock->error != ERROR_ACCESS_DENIED)
{}

SingleInstance::~SingleInstance() = default;

void SingleInstance::onFurtherStart(std::function<void()> shown)
{
    if (!m_lock->furtherStart)
        return;
    m_lock->heard = std::make_unique<QWinEventNotifier>(m_lock->furtherStart);
    QObject::connect(m_lock->heard.get(), &QWinEventNotifier::activated, m_lock->heard.get(),
                     [shown = std::move(shown)] { shown(); });
}

void SingleInstance::tellFirst()
{
    // Without it Windows would only let the first copy's button blink.
    AllowSetForegroundWindow(ASFW_ANY);
    if (m_lock->furtherStart)
        SetEvent(m_lock->furtherStart);
}

void SingleInstance::release()
{
    m_lock.reset();
}
