#pragma once

#include "common/connection_string.h"
#include "common/host_connection.h"
#include "common/resume_next.h"

#include <QThread>
#include <QUuid>

#include <gtest/gtest.h>
#include <optional>

/// Where the demo shop of a test stands.
enum class Engine
{
    embedded,
    server
};

inline void PrintTo(Engine engine, std::ostream *out)
{
    *out << (engine == Engine::embedded ? "Embedded" : "Server");
}

inline std::string engineName(const testing::TestParamInfo<Engine> &info)
{
    return testing::PrintToString(info.param);
}

/// The login of the SQL Server that the developer names for tests, in the form of the program's own
/// connection strings; nothing when there is none.
inline std::optional<ConnectionSettings> testLogin()
{
    const QString text = qEnvironmentVariable("TEZGAH_TEST_ODBC");
    if (text.isEmpty())
        return std::nullopt;
    return parseConnectionString(text);
}

/// First line of a SetUp() or test that needs the test server.
#define SKIP_WITHOUT_SERVER()                                                                      \
    if (!testLogin())                                                                              \
    GTEST_SKIP() << "no SQL Server to test on; name one in TEZGAH_TEST_ODBC, for example "         \
                    "\"Server=127.0.0.1,1433;UID=sa;PWD=...;\" (its login makes databases)"

/// Databases of one test on a server, under names of their own: nothing that is there already is
/// touched. They are dropped with this object.
class TestServer
{
public:
    TestServer(HostConnector &connector, const ConnectionSettings &login)
        : m_connector(connector), m_login(login)
    {}
    ~TestServer()
    {
        resumeNext([this] {
            const auto host = connect(QStringLiteral("master"));
            for (const QString &database : m_databases)
                drop(*host, database);
        });
    }
    TestServer(const TestServer &) = delete;
    TestServer &operator=(const TestServer &) = delete;

    /// A name that no other test uses; the script is to make the database.
    QString newName()
    {
        m_databases += QStringLiteral("TZ") + QUuid::createUuid().toString(QUuid::Id128).toUpper();
        return m_databases.back();
    }

    /// Runs a script whose batches end with "GO".
    void run(const QString &script) const
    {
        const auto host = connect(QStringLiteral("master"));
        for (const QString &batch : script.split(QStringLiteral("\nGO\n"), Qt::SkipEmptyParts))
            host->execute(batch);
    }

    ConnectionSettings login(const QString &database) const
    {
        ConnectionSettings settings = m_login;
        settings.database = database;
        return settings;
    }
    std::unique_ptr<HostConnection> connect(const QString &database) const
    {
        return m_connector.open(connectionString(login(database)));
    }

private:
    /// Connections of the test may still be closing.
    static void drop(HostConnection &host, const QString &database)
    {
        constexpr int tries = 50;
        const QString statement = QStringLiteral("DROP DATABASE ") + database;
        for (int i = 0; i < tries && !resumeNext([&] { host.execute(statement); }); ++i)
            QThread::msleep(100);
    }

    HostConnector &m_connector;
    ConnectionSettings m_login;
    QStringList m_databases;
};
