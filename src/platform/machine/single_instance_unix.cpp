#include "platform/machine/single_instance.h"

#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
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
    explicit Lock(const QString &path) : file(path + u".lock"_s), place(path + u".yer"_s) {}

    QLockFile file;
    QString place; ///< where further copies are heard
    QLocalServer server;
};

SingleInstance::SingleInstance(const QString &name)
    : m_lock(std::make_unique<Lock>(u"%1/.%2"_s.arg(lockFolder(), name)))
{
    QLockFile &file = m_lock->file;
    file.setStaleLockTime(0);
    m_first = file.tryLock(0) || file.error() != QLockFile::LockFailedError;
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::onFurtherStart(std::function<void()> shown)
{
    QLocalServer &server = m_lock->server;
    server.setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(m_lock->place); // of a copy that crashed
    QObject::connect(&server, &QLocalServer::newConnection, &server,
                     [&server, shown = std::move(shown)] {
                         while (QLocalSocket *copy = server.nextPendingConnection())
                             copy->deleteLater();
                         shown();
                     });
    server.listen(m_lock->place);
}

void SingleInstance::tellFirst()
{
    QLocalSocket first;
    first.connectToServer(m_lock->place);
    first.waitForConnected(1000);
}

void SingleInstance::release()
{
    m_lock->server.close();
    m_lock->file.unlock();
}
