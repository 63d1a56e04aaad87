#include "shell/login_session.h"

#include "common/settings_database.h"
#include "common/turkish.h"

#include <QPointer>

using namespace Qt::StringLiterals;

LoginSession::LoginSession(Program &program, QObject *parent) : QObject(parent), m_program(program)
{}

void LoginSession::load()
{
    m_stored = settings::read(m_program.files(), {u"login"}).login.sifre;
}

void LoginSession::enter(const QString &typed)
{
    if (turkish::upper(typed) == m_stored) {
        Q_EMIT accepted();
        return;
    }
    const QPointer<LoginSession> there(this);
    m_program.tell(u"Yanlış Şifre"_s, 2);
    if (there) // the program may be ended behind the box
        Q_EMIT refused();
}
