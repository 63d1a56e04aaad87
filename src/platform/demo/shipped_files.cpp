#include "platform/demo/shipped_files.h"

#include <QDir>
#include <QDirIterator>

#include <stdexcept>

using namespace Qt::StringLiterals;

void copyShippedFiles(const QString &directory)
{
    const QString root = u":/dukkan"_s;
    const QDir target(directory);
    QDirIterator files(root, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString source = files.next();
        const QString path = target.filePath(source.mid(root.size() + 1));
        if (QFile::exists(path))
            continue;
        QDir().mkpath(QFileInfo(path).path());
        if (!QFile::copy(source, path))
            throw std::runtime_error(
                u"%1 klasörüne yazılamıyor; yazma iznine ve diskte yer olduğuna bakın."_s
                    .arg(QDir::toNativeSeparators(directory))
                    .toStdString());
        // Copies of resources are born read-only, but the shop edits its layouts.
        QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
    }
}
