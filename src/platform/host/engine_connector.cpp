#include "platform/host/engine_connector.h"

#include "common/connection_string.h"
#include "platform/host/bounded_calls.h"
#include "platform/host/embedded_engine.h"
#include "platform/host/sql_server.h"

using namespace Qt::StringLiterals;

EngineConnector::EngineConnector(const QString &directory, KeyFile &keys,
                                 std::chrono::milliseconds patience)
    : m_directory(directory), m_keys(keys), m_patience(patience),
      m_calls(std::make_shared<BoundedCalls>())
{
    m_calls->waiting = [this] {
        if (waiting)
            waiting();
    };
}

EngineConnector::~EngineConnector()
{
    m_calls->waiting = nullptr; // connections may outlive their connector
}

std::unique_ptr<HostConnection> EngineConnector::open(const QString &connectionString)
{
    const ConnectionSettings settings = parseConnectionString(connectionString);
    if (isEmbedded(settings.server))
        return std::make_unique<EmbeddedEngine>(m_directory, settings.database);
    const QString file = m_directory + u"/baglanti.zev"_s;
    const OdbcOverride override{m_keys.read(u"odbc"_s, u"surucu"_s, file),
                                m_keys.read(u"odbc"_s, u"ek"_s, file)};
    return std::make_unique<OdbcEngine>(
        m_calls, [=] { return sql_server::whereIs(settings, override); }, m_patience);
}
