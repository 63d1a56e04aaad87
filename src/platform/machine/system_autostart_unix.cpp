#include "common/whole_file.h"
#include "platform/machine/system_autostart.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// One argument of an Exec line: in double quotes, the reserved characters escaped (desktop entry
/// rules), and the result escaped once more as a desktop entry value.
QString quoted(QString argument)
{
    for (const QChar reserved : {u'\\', u'"', u'`', u'$'})
        argument.replace(reserved, u"\\"_s + reserved);
    argument.replace(u"%"_s, u"%%"_s).replace(u"\\"_s, u"\\\\"_s);
    return u"\"%1\""_s.arg(argument);
}

} // namespace

bool SystemAutostart::set(bool on)
{
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QDir folder(config + u"/autostart"_s);
    const QString path = folder.filePath(u"tezgah.desktop"_s);
    if (!on)
        return !QFile::exists(path) || QFile::remove(path);
    folder.mkpath(u"."_s);
    const QByteArray entry =
        u"[Desktop Entry]\nType=Application\nName=Tezgâh\nExec=%1 --directory %2\n"_s
            .arg(quoted(QCoreApplication::applicationFilePath()), quoted(m_folder))
            .toUtf8();
    return writeWholeFile(path, entry);
}
