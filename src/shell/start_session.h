#pragma once

#include "common/program.h"

#include <QObject>

class HostLink;

/// What happens when the program starts, behind the hidden start form.
class StartSession : public QObject
{
    Q_OBJECT

public:
    StartSession(Program &program, HostLink &link, QObject *parent = nullptr);

    /// Opens the host database and fills the index table.
    void load();

    /// Decides, once, what the user sees first: the stock list, or the connection dialog when the
    /// master connection is not open.
    void firstTick();

Q_SIGNALS:
    void connectionDialogWanted();
    void stockListWanted();

private:
    Program &m_program;
    HostLink &m_link;
};
