#include "platform/host/odbc_engine.h"

#include "platform/host/bounded_calls.h"
#include "platform/host/engine_errors.h"
#include "platform/host/odbc_driver.h"
#include "platform/host/odbc_session.h"
#include "platform/host/sql_browser.h"

using namespace Qt::StringLiterals;

namespace {

HostError silent(const QString &statement = {})
{
    return engineError(HostError::kConnectionLost, u"Sunucu yanıt vermiyor."_s, statement);
}

QString driverName(const OdbcOverride &override)
{
    if (!override.driver.isEmpty())
        return override.driver;
    QString driver = odbc_driver::choose(OdbcSession::installedDrivers());
    if (driver.isEmpty())
        throw HostError(HostError::kConnectionLost,
                        u"Bu bilgisayarda SQL Server için ODBC sürücüsü kurulu değil."_s, {},
                        HostError::Cause::refused);
    return driver;
}

/// May take its time: a name has to be looked up, a server to answer.
std::shared_ptr<OdbcSession> connect(const ConnectionSettings &settings,
                                     const OdbcOverride &override)
{
    const QString driver = driverName(override);
    ServerAddress address = parseServerName(settings.server);
    if (odbc_driver::needsPort(driver) && address.port == 0 && !address.instance.isEmpty()) {
        const auto port = sql_browser::instancePort(address.host, address.instance);
        if (!port)
            throw engineError(HostError::kConnectionLost,
                              u"SQL Server örneği bulunamadı: %1"_s.arg(settings.server));
        address.port = *port;
    }
    return std::make_shared<OdbcSession>(
        odbc_driver::connectionString(driver, address, settings, override.extra));
}

} // namespace

OdbcEngine::OdbcEngine(std::shared_ptr<BoundedCalls> calls, const ConnectionSettings &settings,
                       const OdbcOverride &override, std::chrono::milliseconds patience)
    : m_calls(std::move(calls)), m_patience(patience)
{
    const auto session = std::make_shared<std::shared_ptr<OdbcSession>>();
    const bool finished = m_calls->run(
        m_patience, [=](BoundedCalls::Life &) { *session = connect(settings, override); });
    if (!finished)
        throw silent();
    m_session = std::move(*session);
}

OdbcEngine::~OdbcEngine()
{
    leaveSession();
}

/// Closing a connection asks the server, and a driver may wait for its answer as long as it likes.
void OdbcEngine::leaveSession()
{
    if (m_session)
        m_calls->start(
            [session = std::exchange(m_session, nullptr)]() mutable { session.reset(); });
}

int OdbcEngine::state() const
{
    return m_session ? 1 : 0;
}

RecordSet OdbcEngine::execute(const QString &statement)
{
    if (!m_session)
        throw engineError(HostError::kConnectionLost, u"Bağlantı kapalı."_s, statement);
    if (statement.contains(QChar(u'\0')))
        throw engineError(HostError::kStatement, u"Sorguda geçersiz karakter var."_s, statement);
    const auto rows = std::make_shared<RecordSet>();
    try {
        const bool finished =
            m_calls->run(m_patience, [=, session = m_session](BoundedCalls::Life &life) {
                *rows = session->execute(statement, life);
            });
        if (!finished) {
            leaveSession();
            throw silent(statement);
        }
    } catch (const HostError &) {
        if (m_session && m_session->lost())
            leaveSession();
        throw;
    }
    return std::move(*rows);
}
