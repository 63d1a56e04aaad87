#pragma once

#include "common/key_file.h"
#include "paper/calibration.h"

/// What printing remembers from one day to the next, in a key file of our own beside the settings.
class PrintMemory
{
public:
    /// `directory`: the working folder.
    PrintMemory(KeyFile &keys, const QString &directory)
        : m_keys(keys), m_file(directory + QStringLiteral("/yazdirma.zev"))
    {}

    /// The problems of a layout that the user does not want to be asked about again, as
    /// layoutProblemKey() tells them.
    bool isAccepted(const QString &layout, const QString &problems) const;
    void accept(const QString &layout, const QString &problems);

    /// The place of the sheet after the last label printed in a layout, from 1; 1 when the sheet
    /// was full.
    qint64 nextPlace(const QString &layout) const;
    void setNextPlace(const QString &layout, qint64 place);

    /// How a printer is made to hit the paper; none for printers nobody has measured, or when the
    /// file says something no printer needs. False when it could not be written.
    Calibration calibration(const QString &printer) const;
    bool setCalibration(const QString &printer, const Calibration &calibration);

private:
    QString read(const QString &section, const QString &key) const;
    bool write(const QString &section, const QString &key, const QString &value);

    KeyFile &m_keys;
    QString m_file;
};

/// No printer is farther off: mm, and as a share of the length.
inline constexpr double kMostOffset = 50;
inline constexpr double kMostStretch = 0.1;
