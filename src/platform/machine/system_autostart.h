#pragma once

#include "common/autostart.h"

#include <QString>

/// Linux: a desktop entry in the user's autostart folder. Windows: a value under the user's Run
/// key.
class SystemAutostart final : public Autostart
{
public:
    explicit SystemAutostart(const QString &workingFolder) : m_folder(workingFolder) {}
    bool set(bool on) override;

private:
    QString m_folder;
};
