#include "platform/machine/system_autostart.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

/// One word of a command line. A backslash before the closing quote would take its meaning away.
QString quoted(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    return u'"' + native + (native.endsWith(u'\\') ? u"\\\""_s : u"\""_s);
}

} // namespace

bool SystemAutostart::set(bool on)
{
    QSettings run(u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s,
                  QSettings::NativeFormat);
    if (on)
        run.setValue(u"Tezgah"_s, quoted(QCoreApplication::applicationFilePath()) +
                                      u" --directory "_s + quoted(m_folder));
    else
        run.remove(u"Tezgah"_s);
    run.sync();
    return run.status() == QSettings::NoError;
}
