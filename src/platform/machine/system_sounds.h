#pragma once

#include "common/sounds.h"

#include <memory>

/// Plays wave files through the machine's sound output.
class SystemSounds final : public Sounds
{
public:
    SystemSounds();
    ~SystemSounds() override;
    void play(const QString &path) override;

private:
    struct Player;
    std::unique_ptr<Player> m_player;
};
