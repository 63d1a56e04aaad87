#include "platform/machine/private_file.h"

#include <QFile>

bool makePrivate(const QString &path)
{
    constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
    QFile file(path);
    if (file.exists())
        return file.setPermissions(owner);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly, owner);
}

/// The engine gives a journal the rights of its file.
bool keepsPrivateJournal(const QString &)
{
    return false;
}
