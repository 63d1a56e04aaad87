#pragma once

#include "common/program.h"

/// What printing remembers from one day to the next, in a key file of our own beside the settings.
class PrintMemory
{
public:
    explicit PrintMemory(Program &program) : m_program(program) {}

    /// The problems of a layout that the user does not want to be asked about again, as
    /// layoutProblemKey() tells them.
    bool isAccepted(const QString &layout, const QString &problems) const;
    void accept(const QString &layout, const QString &problems);

private:
    QString read(const QString &section, const QString &key) const;
    bool write(const QString &section, const QString &key, const QString &value);

    Program &m_program;
};
