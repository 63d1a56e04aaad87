#pragma once

#include "common/settings_database.h"
#include "fakes/fake_ports.h"
#include "platform/demo/demo_shop.h"
#include "platform/demo/shipped_files.h"
#include "platform/host/engine_connector.h"
#include "platform/machine/profile_key_file.h"
#include "platform/machine/sqlite_database.h"
#include "platform/printing/system_printers.h"
#include "shell/host_link.h"
#include "shell/settings_file.h"
#include "support/test_server.h"

#include <QTemporaryDir>

/// The program on the real engines and files of a working folder; only the user, the clock and the
/// loudspeaker are fakes.
struct RealMachine
{
    explicit RealMachine(const QString &directory,
                         std::chrono::milliseconds patience = OdbcEngine::kPatience)
        : host(directory, keys, patience), db(std::min(patience, kFilePatience)),
          journal(std::min(patience, kFilePatience)), printers(directory, clock),
          program(Ports{host, db, keys, printers, sounds, clock, prompt, &journal}, directory)
    {}

    static constexpr std::chrono::milliseconds kFilePatience{2000};

    /// Opens the host as the start of the program does.
    void open() { HostLink(program).sqlbaglan(); }

    FixedClock clock;
    ProfileKeyFile keys;
    EngineConnector host;
    SqliteDatabase db;
    SqliteDatabase journal;
    SystemPrinters printers;
    RecordingSounds sounds;
    ScriptedPrompt prompt;
    Program program;
};

struct ShopFolder
{
    QTemporaryDir folder;
};

/// A working folder with the demo shop, and the program on it.
struct RealShop : ShopFolder, RealMachine
{
    /// Engine::server: on the test server; there is no shop at all when none is named, see
    /// SKIP_WITHOUT_SERVER. `moment`: what the clock shows; `patience`: how long a server is waited
    /// for.
    explicit RealShop(Engine engine = Engine::embedded,
                      const QDateTime &moment = FixedClock().moment,
                      std::chrono::milliseconds patience = OdbcEngine::kPatience)
        : RealMachine(folder.path(), patience)
    {
        clock.moment = moment;
        copyShippedFiles(folder.path());
        createSettingsFile(program.files());
        if (engine == Engine::embedded)
            createDemoShop(folder.path(), clock.now().date());
        else if (const auto login = testLogin())
            moveToServer(*login);
    }

    /// The test server drops databases that nobody uses any more.
    ~RealShop()
    {
        program.bag.reset();
        program.anabag.reset();
    }
    RealShop(const RealShop &) = delete;
    RealShop &operator=(const RealShop &) = delete;

    /// One more connection to the company database.
    std::unique_ptr<HostConnection> connect() { return host.open(connectionString(company)); }

    std::unique_ptr<TestServer> server; ///< null with the embedded engine
    ConnectionSettings company{kEmbeddedServer.toString(), {}, {}, kDemoCompany.toString()};

private:
    void moveToServer(const ConnectionSettings &login)
    {
        server = std::make_unique<TestServer>(host, login);
        const QString master = server->newName();
        company = server->login(server->newName());
        QString script = demoSqlServerScript();
        script.replace(kDemoMaster.toString(), master);
        script.replace(kDemoCompany.toString(), company.database);
        server->run(script);
        OpenDatabase file(program.files(), settings::kFile);
        file.execute(
            QStringLiteral("Update server set server='%1',kuladi='%2',sifre='%3',"
                           "sql='%4',msql='%5' Where id ='1'")
                .arg(company.server, company.user, company.password, company.database, master));
    }
};
