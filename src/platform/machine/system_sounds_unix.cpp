#include "platform/machine/system_sounds.h"

#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

#include <map>

/// One loaded effect per file: loading takes longer than a cashier waits between two scans.
struct SystemSounds::Player
{
    std::map<QString, std::unique_ptr<QSoundEffect>> effects;
};

SystemSounds::SystemSounds() : m_player(std::make_unique<Player>())
{}

SystemSounds::~SystemSounds() = default;

void SystemSounds::play(const QString &path)
{
    if (!QFileInfo::exists(path))
        return;
    std::unique_ptr<QSoundEffect> &effect = m_player->effects[path];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(path));
    }
    effect->play();
}
