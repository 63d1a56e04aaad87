#include "shell/start_session.h"

#include "shell/host_link.h"
#include "shell/start_table.h"

StartSession::StartSession(Program &program, HostLink &link, QObject *parent)
    : QObject(parent), m_program(program), m_link(link)
{}

void StartSession::load()
{
    m_link.sqlbaglan();
    m_program.sira = startTable();
}

void StartSession::firstTick()
{
    if (m_link.masterOpen())
        Q_EMIT stockListWanted();
    else
        Q_EMIT connectionDialogWanted();
}
