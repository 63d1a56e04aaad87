#pragma once

#include "common/program.h"

#include <QObject>

/// The password in front of the settings.
class LoginSession : public QObject
{
    Q_OBJECT

public:
    explicit LoginSession(Program &program, QObject *parent = nullptr);

    /// Keeps the stored password; "" when it cannot be read.
    void load();

    /// Compares the typed text in upper case with the stored password exactly as it is stored: one
    /// stored with lower-case letters is never matched, on purpose.
    void enter(const QString &typed);

Q_SIGNALS:
    void accepted();
    void refused(); ///< the message was shown; clear the box and type again

private:
    Program &m_program;
    QString m_stored;
};
