#include "common/scan_sounds.h"

#include "common/settings.h"
#include "common/sounds.h"

#include <QCoreApplication>
#include <QDir>

ScanSounds::ScanSounds(Sounds &sounds, const QString &directory, const Settings &settings)
    : m_sounds(sounds), m_directory(directory), m_settings(settings)
{}

void ScanSounds::calseson()
{
    if (m_settings.ses.bulses)
        play(u"sndon.sun");
}

void ScanSounds::calsesoff()
{
    if (m_settings.ses.bulmases)
        play(u"sndoff.sun");
}

void ScanSounds::play(QStringView name)
{
    const QString own = m_directory + u'/' + name.toString();
    const QString shared = QDir(QCoreApplication::applicationDirPath()).filePath(name.toString());
    m_sounds.play(QFileInfo::exists(own) || !QFileInfo::exists(shared) ? own : shared);
}
