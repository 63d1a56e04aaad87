#pragma once

#include "common/host_connection.h"
#include "platform/host/bounded_calls.h"

#include <chrono>
#include <functional>
#include <memory>

class OdbcSession;

/// A host database through ODBC, whatever the driver. Connecting and each wait for rows take about
/// five seconds at most, also on a server that has fallen silent and with drivers that wait longer.
class OdbcEngine final : public HostConnection
{
public:
    /// The drivers' own time-outs are five seconds; who has not reported by then is not waited for.
    static constexpr std::chrono::milliseconds kPatience{5500};

    /// The driver's own connection string. May take its time, on another thread, and after the
    /// engine was given up: it owns all that it reads.
    using Where = std::function<QString()>;

    /// Throws HostError kConnectionLost.
    OdbcEngine(std::shared_ptr<BoundedCalls> calls, const Where &where,
               std::chrono::milliseconds patience = kPatience);
    /// Does not wait for the driver to close the connection.
    ~OdbcEngine() override;
    OdbcEngine(const OdbcEngine &) = delete;
    OdbcEngine &operator=(const OdbcEngine &) = delete;

    int state() const override;
    QString driver() const override;
    RecordSet execute(const QString &statement) override;
    /// In one round trip, where the statements and the driver allow it.
    void executeAll(const QStringList &statements, std::vector<RecordSet> &answers) override;

private:
    using Work = std::function<void(OdbcSession &session, BoundedCalls::Life &life)>;

    /// Runs `work` in the session. False when the server fell silent: then it goes on alone and
    /// what it touches must not be read. `statement`: what is told in an error before it starts.
    bool inSession(const QString &statement, const Work &work);
    void leaveSession();

    std::shared_ptr<BoundedCalls> m_calls;
    std::chrono::milliseconds m_patience;
    std::shared_ptr<OdbcSession> m_session; ///< null once the connection is lost
    bool m_takesBatches = true;             ///< the driver answers every statement of a batch
};
