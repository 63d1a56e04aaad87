#pragma once

#include "common/host_connection.h"
#include "common/key_file.h"
#include "platform/host/odbc_engine.h"

#include <memory>

/// Opens host connections: on a database file of the working folder when the server name is
/// "(yerel)", else on SQL Server.
class EngineConnector final : public HostConnector
{
public:
    /// `directory`: the working folder; `keys`: reads its `baglanti.zev` (section "odbc", keys
    /// "surucu" and "ek") before each connection to a server.
    /// `patience`: how long a server is waited for.
    EngineConnector(const QString &directory, KeyFile &keys,
                    std::chrono::milliseconds patience = OdbcEngine::kPatience);
    ~EngineConnector() override;

    std::unique_ptr<HostConnection> open(const QString &connectionString) override;

private:
    QString m_directory;
    KeyFile &m_keys;
    std::chrono::milliseconds m_patience;
    std::shared_ptr<BoundedCalls> m_calls;
};
