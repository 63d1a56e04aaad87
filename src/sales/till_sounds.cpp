#include "sales/till_sounds.h"

#include "common/settings.h"
#include "common/sounds.h"

#include <QCoreApplication>
#include <QDir>

TillSounds::TillSounds(Sounds &sounds, const QString &directory, const Settings &settings)
    : m_sounds(sounds), m_directory(directory), m_settings(settings)
{}

void TillSounds::calseson()
{
    if (m_settings.ses.bulses)
        play(u"sndon.sun");
}

void TillSounds::calsesoff()
{
    if (m_settings.ses.bulmases)
        play(u"sndoff.sun");
}

void TillSounds::play(QStringView name)
{
    const QString own = m_directory + u'/' + name.toString();
    const QString shared = QDir(QCoreApplication::applicationDirPath()).filePath(name.toString());
    m_sounds.play(QFileInfo::exists(own) || !QFileInfo::exists(shared) ? own : shared);
}
