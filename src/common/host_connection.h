#pragma once

#include "common/record_set.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// One open connection to a database of the host accounting system. Used from the user-interface
/// thread, one statement at a time.
class HostConnection
{
public:
    virtual ~HostConnection() = default;

    /// 1 = open; a connection counts as open only then. Falls to 0 when a statement finds the
    /// connection lost.
    virtual int state() const = 0;

    /// What answers on this side of the connection, with its version; "" when nothing can be said.
    virtual QString driver() const { return {}; }

    /// Runs one statement and returns all its rows (none for statements that return no rows).
    /// Takes 5 seconds at most before it gives up. Throws HostError.
    virtual RecordSet execute(const QString &statement) = 0;

    /// Runs selects that do not depend on one another and appends their answers, both in this
    /// order. Engines may send them in one round trip. Throws HostError, as the failing statement
    /// alone would; the answers before it have been appended then.
    virtual void executeAll(const QStringList &statements, std::vector<RecordSet> &answers)
    {
        for (const QString &statement : statements)
            answers.push_back(execute(statement));
    }
};

/// The company's database, for those who need nothing else of the program.
class CompanyDatabase
{
public:
    /// The connection, opened anew when it was lost, so that a cashier goes on with the list on
    /// screen. Throws HostError (kConnectionLost) when it is not open.
    virtual HostConnection &company() = 0;

    /// The same without opening it: a posting that lost its connection must not go on half-way over
    /// another one.
    virtual HostConnection &openCompany() = 0;

protected:
    ~CompanyDatabase() = default;
};

/// Opens connections: on the embedded engine when the server name is "(yerel)", else on SQL Server.
class HostConnector
{
public:
    virtual ~HostConnector() = default;

    /// `connectionString`: as connectionString() builds it. Gives up after 5 seconds. Throws
    /// HostError (kConnectionLost) when it does not open.
    virtual std::unique_ptr<HostConnection> open(const QString &connectionString) = 0;

    /// Called a few times a second, on the thread that waits, while a server takes its time: for a
    /// line on the screen. May be empty.
    std::function<void()> waiting;
};

/// The server name of the demo shop, and its databases: files in the working folder.
inline constexpr QStringView kEmbeddedServer = u"(yerel)";
inline constexpr QStringView kDemoMaster = u"DEMOANA";
inline constexpr QStringView kDemoCompany = u"DEMOSIRKET";

inline bool isEmbedded(QStringView server)
{
    return server.compare(kEmbeddedServer, Qt::CaseInsensitive) == 0;
}
