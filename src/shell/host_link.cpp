#include "shell/host_link.h"

#include "common/connection_string.h"
#include "common/host_queries.h"
#include "common/resume_next.h"
#include "common/settings_database.h"

using namespace Qt::StringLiterals;

HostLink::HostLink(Program &program, QObject *parent) : QObject(parent), m_program(program)
{}

void HostLink::ayaroku()
{
    settings::read(m_program.files(), {u"server", u"instan"}, m_settings);
    // Without the server's address, which may change under the same books.
    m_program.ledger = server().sql.trimmed().toUpper();
    if (isEmbedded(server().server))
        m_program.ledger.append(u' ').append(kEmbeddedServer);
}

/// Null when it does not open; start-up goes on, and the connection dialog tells why.
std::unique_ptr<HostConnection> HostLink::open(const QString &database)
{
    try {
        m_failure.reset();
        return m_program.host.open(
            connectionString({server().server, server().kuladi, server().sifre, database}));
    } catch (const HostError &error) {
        m_failure = error;
        return nullptr;
    }
}

QString HostLink::failure() const
{
    return m_failure ? m_failure->text() : QString();
}

void HostLink::sqlbaglan()
{
    ayaroku();
    tellConnecting();
    m_program.anabag.reset();
    m_program.anabag = open(server().msql);
    if (!masterOpen()) {
        m_sinceFailure.start(); // the settings need not wait for the same server once more
        Q_EMIT connected();
        Q_EMIT connectionDialogWanted();
        return;
    }
    resumeNext([this] { loadVatClasses(); });
    sqlbaglan2();
}

void HostLink::sqlbaglan2()
{
    if (openCompany())
        Q_EMIT stockListWanted();
}

bool HostLink::openCompany()
{
    m_program.bag.reset();
    m_program.bag = open(server().sql);
    m_program.bagFailure.reset();
    if (m_failure)
        m_program.bagFailure =
            HostError(m_failure->number(),
                      u"Şirket veritabanı açılamadı: %1\n%2"_s.arg(server().sql, failure()), {},
                      m_failure->cause());
    Q_EMIT connected();
    if (!Program::isOpen(m_program.bag))
        return false;
    resumeNext([this] { m_program.bag->execute(host_queries::dayMonthYear()); });
    return true;
}

void HostLink::reopenCompany()
{
    constexpr int pause = 10'000; // milliseconds
    if (m_sinceFailure.isValid() && !m_sinceFailure.hasExpired(pause))
        return;
    tellConnecting();
    if (openCompany())
        m_sinceFailure.invalidate();
    else
        m_sinceFailure.start();
}

void HostLink::tellConnecting()
{
    if (!isEmbedded(server().server))
        Q_EMIT connecting(server().server); // the embedded databases open in no time
}

void HostLink::loadVatClasses()
{
    RecordSet classes = m_program.anabag->execute(host_queries::allOf(u"KDVKISIM"));
    std::size_t counter = 0;
    for (; !classes.eof(); classes.moveNext()) {
        ++counter;
        if (counter >= m_program.kdvtab.size())
            continue; // out of the table's bounds: not stored, and the loop goes on
        m_program.kdvtab[counter][1] = classes.text(u"KDVKISNO");
        m_program.kdvtab[counter][2] = classes.text(u"KDVKISORAN");
    }
}
