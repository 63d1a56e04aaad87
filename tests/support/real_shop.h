#pragma once

#include "fakes/fake_ports.h"
#include "platform/demo_shop.h"
#include "platform/engine_connector.h"
#include "platform/profile_key_file.h"
#include "platform/shipped_files.h"
#include "platform/sqlite_database.h"
#include "platform/system_printers.h"
#include "shell/host_link.h"
#include "shell/settings_file.h"

#include <QTemporaryDir>

/// A working folder with the demo shop on the real engines and files; only the user, the clock and
/// the loudspeaker are fakes.
struct RealShop
{
    RealShop()
    {
        copyShippedFiles(folder.path());
        createDemoShop(folder.path(), clock.now().date());
        createSettingsFile(program);
    }

    /// Opens the host as the start of the program does.
    void open() { HostLink(program).sqlbaglan(); }

    QTemporaryDir folder;
    FixedClock clock;
    ProfileKeyFile keys;
    EngineConnector host{folder.path(), keys};
    SqliteDatabase db;
    SystemPrinters printers{folder.path(), clock};
    RecordingSounds sounds;
    ScriptedPrompt prompt;
    Program program{Ports{host, db, keys, printers, sounds, clock, prompt}, folder.path()};
};
