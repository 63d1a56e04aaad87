#pragma once

#include <QFile>
#include <QString>

/// What was done, line by line, on disk before it is done: the last line of a run that crashed
/// names what it did.
class StepLog
{
public:
    explicit StepLog(const QString &path) : m_file(path)
    {
        m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
    }

    void line(const QString &text) { m_file.write((text + QChar(u'\n')).toUtf8()); }
    QString path() const { return m_file.fileName(); }

private:
    QFile m_file;
};
