#include "shell/other_till.h"

#include "common/file_batch.h"
#include "common/settings_database.h"

#include <QDir>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fail(const QString &text)
{
    throw std::runtime_error(text.toStdString());
}

/// How the driver is chosen, the receipt layout, the shop's own label sheets.
const QStringList kFiles = {u"baglanti.zev"_s, u"Fis.dbs"_s, u"ayar/Default.zev"_s,
                            u"ayar/kagitlar.csv"_s, u"terazi.zev"_s};
const QString kPictures = u"ayar/pic/"_s;

QStringList filesOf(const QDir &till)
{
    QStringList files;
    for (const QString &name : kFiles)
        if (till.exists(name))
            files += name;
    const auto add = [&](const QString &folder, const QStringList &patterns) {
        for (const QString &name : QDir(till.filePath(folder)).entryList(patterns, QDir::Files))
            files += folder + name;
    };
    add(u"ayar/"_s, {u"*.ayr"_s});
    add(kPictures, {u"*"_s});
    return files;
}

void fill(const QString &source, const QString &target)
{
    QFile from(source);
    QFile to(target);
    if (!from.open(QIODevice::ReadOnly))
        fail(u"%1 okunamadı."_s.arg(QDir::toNativeSeparators(source)));
    const QByteArray bytes = from.readAll();
    if (!to.open(QIODevice::WriteOnly) || to.write(bytes) != bytes.size() || !to.flush())
        fail(u"%1 yazılamadı; diskte yer olduğuna bakın."_s.arg(QDir::toNativeSeparators(target)));
}

} // namespace

void copyDatabase(LocalDatabase &db, const QString &source, QStringView name, FileBatch &batch)
{
    const QString target = batch.path(name);
    {
        const OpenDatabase born(db, target); // for its owner alone
    }
    if (const QString journal = source + u"-journal"_s; QFileInfo(journal).size() > 0)
        fill(journal, target + u"-journal"_s);
    fill(source, target);
}

OtherTill OtherTill::read(const LocalFiles &own, const QString &path)
{
    const QFileInfo named(path.trimmed());
    const QDir till(named.isFile() ? named.absolutePath() : path.trimmed());
    if (path.trimmed().isEmpty() || !till.exists())
        fail(u"Böyle bir klasör yok ya da ona ulaşılamıyor."_s);
    if (till.canonicalPath() == QDir(own.directory).canonicalPath())
        fail(u"Bu, bu kasanın kendi klasörü; öbür kasanınkini gösterin."_s);
    if (!till.exists(settings::kFile.toString()))
        fail(u"Bu klasörde bir kasanın ayarları (data.dbs) yok."_s);
    OtherTill other{till.absolutePath(), {}, filesOf(till)};
    FileBatch look(own.directory, settings::kFile);
    other.takeSettings(own.db, look);
    OpenDatabase db(own.db, look.path(settings::kFile));
    settings::complete(db, LocalFile::settings, settings::Fill::design);
    settings::read(db, settingTables(LocalFile::settings), other.settings);
    return other;
}

void OtherTill::takeSettings(LocalDatabase &db, FileBatch &batch) const
{
    copyDatabase(db, QDir(directory).filePath(settings::kFile.toString()), settings::kFile, batch);
}

void OtherTill::takeFiles(LocalDatabase &db, FileBatch &batch) const
{
    for (const QString &name : files)
        if (const QString source = QDir(directory).filePath(name); name == settings::kReceiptFile)
            copyDatabase(db, source, name, batch);
        else
            batch.take(source, name);
}

int OtherTill::layouts() const
{
    return static_cast<int>(std::ranges::count_if(
        files, [](const QString &name) { return name.endsWith(u".ayr"_s, Qt::CaseInsensitive); }));
}

int OtherTill::pictures() const
{
    return static_cast<int>(std::ranges::count_if(
        files, [](const QString &name) { return name.startsWith(kPictures); }));
}

bool OtherTill::hasReceipt() const
{
    return files.contains(settings::kReceiptFile.toString());
}
