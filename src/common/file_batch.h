#pragma once

#include <QString>

/// Files that come into a folder together or not at all. They are written into a folder beside it;
/// renaming that folder decides, and what a power cut interrupts after that is finished at the next
/// start.
class FileBatch
{
public:
    /// `last`: the file that shows by being there that the others are. Finishes an older batch
    /// first. Throws std::runtime_error, in words for the user, when nothing can be written there.
    FileBatch(const QString &directory, QStringView last);

    /// Without commit() nothing of the batch stays.
    ~FileBatch();
    FileBatch(const FileBatch &) = delete;
    FileBatch &operator=(const FileBatch &) = delete;

    const QString &directory() const { return m_directory; }

    /// Where a file is to be written that will have this name ("ayar/pic/a.png") in the folder.
    QString path(const QString &name) const;
    QString path(QStringView name) const { return path(name.toString()); }

    /// Takes a copy of a file, not of its rights. Throws std::runtime_error.
    void take(const QString &source, const QString &name);

    /// Brings all of them to their places. Throws std::runtime_error; the text says whether nothing
    /// has changed, or what will be finished at the next start.
    void commit();

    /// Finishes what a power cut interrupted, and removes what was not decided. Throws
    /// std::runtime_error.
    static void finish(const QString &directory, QStringView last);

private:
    QString m_directory;
    QString m_last;
};
