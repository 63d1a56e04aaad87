#pragma once

#include <QString>

/// Plays a sound file of the working folder and returns at once; a missing or damaged file plays
/// nothing.
class Sounds
{
public:
    virtual ~Sounds() = default;
    virtual void play(const QString &path) = 0;
};
