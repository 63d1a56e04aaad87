#include "common/whole_file.h"

#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

using namespace Qt::StringLiterals;

bool takePlaceOf(const QString &path, const QString &written)
{
    std::error_code failed;
    std::filesystem::rename(written.toStdU16String(), path.toStdU16String(), failed);
    return !failed;
}

bool writeWholeFile(const QString &path, const QByteArray &bytes)
{
    const QFileInfo old(path);
    const QString target = old.isSymLink() ? old.symLinkTarget() : path;
    const QString written = target + u".yeni"_s;
    QSaveFile file(written); // brings the bytes onto the disk
    // commit() does not notice a disk that fills up while the last buffer is written; flush() does.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        return false;
    if (old.exists())
        QFile::setPermissions(written, old.permissions());
    if (takePlaceOf(target, written))
        return true;
    QFile::remove(written);
    return false;
}

bool writeTextFile(const QString &path, const QString &text)
{
    return writeWholeFile(path, "\xEF\xBB\xBF" + text.toUtf8());
}
