#include "shell/login_session.h"

#include "common/settings_database.h"

using namespace Qt::StringLiterals;

LoginSession::LoginSession(Program &program, QObject *parent) : QObject(parent), m_program(program)
{}

void LoginSession::load()
{
    m_stored = settings::read(m_program.files(), {u"login"}).login.sifre;
}

void LoginSession::enter(const QString &typed)
{
    if (settings::isPassword(m_stored, typed)) {
        Q_EMIT accepted();
        return;
    }
    m_program.tell(u"Yanlış Şifre"_s, 2);
    Q_EMIT refused();
}
