#pragma once

#include "common/record_set.h"
#include "platform/host/bounded_calls.h"
#include "platform/host/odbc_api.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <vector>

/// One connection through the ODBC interface. Calls may take as long as the driver likes: whoever
/// waits for them does so through BoundedCalls.
class OdbcSession
{
public:
    /// Connects with a driver's own connection string. Throws HostError kConnectionLost. The driver
    /// gives up by itself within `patience`, of which it counts whole seconds, one at least.
    OdbcSession(const QString &driverConnectionString, std::chrono::milliseconds patience);
    ~OdbcSession();
    OdbcSession(const OdbcSession &) = delete;
    OdbcSession &operator=(const OdbcSession &) = delete;

    /// Runs a statement and reads every result to its end; gives the rows of the first result that
    /// has any columns. Throws HostError.
    RecordSet execute(const QString &statement, BoundedCalls::Life &life);

    /// Runs a batch of statements in one round trip and appends the rows of every result that has
    /// columns. Throws HostError; the results before the failure have been appended then.
    void executeBatch(const QString &batch, std::vector<RecordSet> &answers,
                      BoundedCalls::Life &life);

    /// File and version of the driver in use.
    QString driver() const;

    /// True when a statement has found the connection gone.
    bool lost() const { return m_lost; }

    /// Names of the drivers of this machine.
    static QStringList installedDrivers();

private:
    /// An ODBC handle, freed with its owner.
    class Handle
    {
    public:
        Handle(SQLSMALLINT type, SQLHANDLE parent);
        ~Handle() { SQLFreeHandle(m_type, m_handle); }
        Handle(const Handle &) = delete;
        Handle &operator=(const Handle &) = delete;

        SQLSMALLINT type() const { return m_type; }
        SQLHANDLE get() const { return m_handle; }

    private:
        SQLSMALLINT m_type;
        SQLHANDLE m_handle = SQL_NULL_HANDLE;
    };

    /// ODBC 3 is spoken on it.
    class Environment : public Handle
    {
    public:
        Environment();
    };

    /// `take` gets the rows of every result that has columns.
    void run(const QString &statement, BoundedCalls::Life &life,
             const std::function<void(RecordSet)> &take);
    RecordSet readRows(const Handle &handle, const QString &statement, BoundedCalls::Life &life);
    void check(SQLRETURN code, const Handle &handle, const QString &statement);
    /// What the driver knows of the connection; nothing when it cannot say.
    std::optional<bool> isDead() const;

    SQLULEN m_timeOut; ///< seconds
    Environment m_environment;
    Handle m_connection;
    std::atomic<bool> m_lost = false;
};
