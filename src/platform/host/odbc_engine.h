#pragma once

#include "common/connection_string.h"
#include "common/host_connection.h"

#include <memory>

class BoundedCalls;
class OdbcSession;

/// What the shop says in `baglanti.zev` about its ODBC driver; both may be empty.
struct OdbcOverride
{
    QString driver; ///< this one instead of the first known
    QString extra;  ///< appended to the driver's connection string
};

/// A host database on SQL Server through ODBC. Connecting and each wait for rows take about five
/// seconds at most, also on a server that has fallen silent and with drivers that wait longer.
class OdbcEngine final : public HostConnection
{
public:
    /// Throws HostError kConnectionLost.
    OdbcEngine(std::shared_ptr<BoundedCalls> calls, const ConnectionSettings &settings,
               const OdbcOverride &override);
    /// Does not wait for the driver to close the connection.
    ~OdbcEngine() override;
    OdbcEngine(const OdbcEngine &) = delete;
    OdbcEngine &operator=(const OdbcEngine &) = delete;

    int state() const override;
    RecordSet execute(const QString &statement) override;

private:
    void leaveSession();

    std::shared_ptr<BoundedCalls> m_calls;
    std::shared_ptr<OdbcSession> m_session; ///< null once the connection is lost
};
