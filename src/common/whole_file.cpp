#include "common/whole_file.h"

#include <QSaveFile>

bool writeWholeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // commit() does not notice a disk that fills up while the last buffer is written; flush() does.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}
