#include "platform/machine/system_sounds.h"

#include <QDir>
#include <qt_windows.h>

#include <mmsystem.h>

/// The system's player keeps what it needs.
struct SystemSounds::Player
{};

SystemSounds::SystemSounds() = default;

SystemSounds::~SystemSounds() = default;

void SystemSounds::play(const QString &path)
{
    PlaySoundW(QDir::toNativeSeparators(path).toStdWString().c_str(), nullptr,
               SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
}
