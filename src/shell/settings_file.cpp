#include "shell/settings_file.h"

#include "common/host_error.h"
#include "common/settings_database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Renames a damaged file, with the journal that belongs to it, to the first free name; an older
/// damaged one may be the only one that can still be read. Returns the new name.
QString keepAside(const QString &file)
{
    const QString first = file + u".bozuk"_s;
    QString kept = first;
    for (int number = 2; QFile::exists(kept); ++number)
        kept = first + QString::number(number);
    if (!QFile::rename(file, kept))
        throw std::runtime_error(
            u"Ayar dosyası (data.dbs) bozuk, saklanmak için yeniden adlandırılamadı: %1"_s
                .arg(QDir::toNativeSeparators(file))
                .toStdString());
    QFile::rename(file + u"-journal"_s, kept + u"-journal"_s);
    return QFileInfo(kept).fileName();
}

} // namespace

void createSettingsFile(const LocalFiles &files)
{
    const QString file = files.path(settings::kFile);
    if (QFile::exists(file))
        return;
    const QString unfinished = file + u".yeni"_s;
    QFile::remove(unfinished);
    {
        OpenDatabase open(files.db, unfinished);
        settings::complete(open, LocalFile::settings, settings::Fill::first);
    }
    if (!QFile::rename(unfinished, file))
        throw HostError(HostError::kStatement,
                        u"Ayar dosyası oluşturulamadı: %1"_s.arg(QDir::toNativeSeparators(file)));
}

QString repairSettingsFile(const LocalFiles &files)
{
    const QString file = files.path(settings::kFile);
    const auto repair = [&] {
        OpenDatabase open(files.db, file);
        return settings::complete(open, LocalFile::settings, settings::Fill::design);
    };
    try {
        return repair() ? u"Ayar dosyasında (data.dbs) eksik bölümler vardı; boş olarak eklendi. "
                          "Ayarları denetleyin."_s
                        : QString();
    } catch (const HostError &error) {
        if (error.cause() != HostError::Cause::damaged)
            throw;
    }
    const QString kept = keepAside(file);
    repair();
    return u"Ayar dosyası (data.dbs) bozuk; %1 adıyla saklandı ve boş olarak yeniden oluşturuldu. "
           "Ayarları yeniden girin."_s.arg(kept);
}

void clearUnfinished(const QString &directory)
{
    for (const QString &folder : {directory, directory + u"/ayar"_s}) {
        const QDir place(folder);
        for (const QString &name :
             place.entryList({u"*.yeni"_s, u"*.yeni-journal"_s, u"*.yeni.??????"_s}, QDir::Files))
            QFile::remove(place.filePath(name));
    }
}
