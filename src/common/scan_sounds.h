#pragma once

#include <QString>

struct Settings;
class Sounds;

/// What a scan sounds like, at the till and at the shelf alike. A sound lies in the working folder;
/// a shop that works in several folders may keep its sounds beside the program.
class ScanSounds
{
public:
    /// The sounds and the settings, which switch them on and off, must outlive it.
    ScanSounds(Sounds &sounds, const QString &directory, const Settings &settings);

    void calseson();  ///< an item was found
    void calsesoff(); ///< an item was not found, or something else to look up at

private:
    void play(QStringView name);

    Sounds &m_sounds;
    QString m_directory;
    const Settings &m_settings;
};
