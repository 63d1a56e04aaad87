#pragma once

#include "common/host_error.h"
#include "common/record_set.h"
#include "support/files.h"

#include <QTemporaryDir>

#include <optional>

/// A folder that is gone after the test.
class Scratch
{
public:
    QString path() const { return m_folder.path(); }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Writes a file into it and returns its path.
    QString write(const QString &name, const QByteArray &content) const
    {
        writeFile(path(name), content);
        return path(name);
    }

private:
    QTemporaryDir m_folder;
};

/// The error number of what `run` throws, or nothing.
template <typename Run>
std::optional<int> errorOf(Run &&run)
{
    try {
        run();
        return std::nullopt;
    } catch (const HostError &error) {
        return error.number();
    }
}

/// One column of a result as texts.
inline QStringList texts(RecordSet rows, QStringView column)
{
    QStringList list;
    for (; !rows.eof(); rows.moveNext())
        list += rows.text(column);
    return list;
}
