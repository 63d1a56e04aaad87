#include "common/file_batch.h"

#include "common/whole_file.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString undecided(const QString &directory)
{
    return directory + u"/kurulum.yeni"_s;
}

QString decided(const QString &directory)
{
    return directory + u"/kurulum.hazir"_s;
}

[[noreturn]] void fail(const QString &text)
{
    throw std::runtime_error(text.toStdString());
}

QString shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

/// A database whose old journal stayed would be "repaired" with it.
void moveIntoPlace(const QString &written, const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile::remove(path + u"-journal"_s);
    if (!takePlaceOf(path, written))
        fail(u"%1 yazılamadı. Dosyayı kullanan program varsa kapatın, klasöre yazılabildiğine "
             "bakın; kurulum, program yeniden açılınca tamamlanır."_s.arg(shown(path)));
}

} // namespace

FileBatch::FileBatch(const QString &directory, QStringView last)
    : m_directory(directory), m_last(last.toString())
{
    finish(directory, last);
    if (!QDir(directory).exists())
        fail(u"%1 klasörüne ulaşılamıyor; başka bir bilgisayardaysa ağa bakın."_s.arg(
            shown(directory)));
    if (!QDir().mkdir(undecided(directory)))
        fail(u"%1 klasörüne yazılamıyor; yazma iznine ve diskte yer olduğuna bakın."_s.arg(
            shown(directory)));
}

FileBatch::~FileBatch()
{
    QDir(undecided(m_directory)).removeRecursively();
}

QString FileBatch::path(const QString &name) const
{
    QString path = undecided(m_directory) + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    return path;
}

void FileBatch::take(const QString &source, const QString &name)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        fail(u"%1 okunamadı."_s.arg(shown(source)));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError || bytes.size() != file.size())
        fail(u"%1 okunamadı."_s.arg(shown(source)));
    if (!writeWholeFile(path(name), bytes))
        fail(u"%1 klasörüne yazılamadı; diskte yer olduğuna bakın."_s.arg(shown(m_directory)));
}

void FileBatch::commit()
{
    if (!QDir().rename(undecided(m_directory), decided(m_directory)))
        fail(u"%1 klasörüne yazılamadı; hiçbir şey değişmedi."_s.arg(shown(m_directory)));
    finish(m_directory, m_last);
}

void FileBatch::finish(const QString &directory, QStringView last)
{
    QDir(undecided(directory)).removeRecursively();
    const QDir ready(decided(directory));
    if (!ready.exists())
        return;
    const QDir target(directory);
    QStringList names;
    QDirIterator files(ready.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        if (const QString name = ready.relativeFilePath(files.next());
            name != last && !name.endsWith(u"-journal"_s))
            names += name;
    if (ready.exists(last.toString()))
        names += last.toString();
    for (const QString &name : names)
        moveIntoPlace(ready.filePath(name), target.filePath(name));
    QDir(ready).removeRecursively();
}
