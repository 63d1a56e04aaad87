#pragma once

#include "common/clock.h"
#include "common/host_connection.h"
#include "common/host_error.h"
#include "common/key_file.h"
#include "common/local_database.h"
#include "common/printers.h"
#include "common/prompt.h"
#include "common/sounds.h"
#include "common/vat_table.h"

#include <array>
#include <functional>
#include <optional>

/// What the program needs of the machine; built in main() or by a test.
struct Ports
{
    HostConnector &host;
    LocalDatabase &db;
    KeyFile &keys;
    Printers &printers;
    Sounds &sounds;
    Clock &clock;
    Prompt &prompt;
    LocalDatabase *journal = nullptr; ///< of the till; none: it forgets with the program
};

/// The program-wide values, handed to every room by reference.
class Program final : public Ports, public CompanyDatabase
{
public:
    Program(const Ports &ports, const QString &directory) : Ports(ports), m_directory(directory) {}

    std::unique_ptr<HostConnection> anabag; ///< master connection; null or not open: state 0
    std::unique_ptr<HostConnection> bag;    ///< company connection
    std::optional<HostError> bagFailure;    ///< why it did not open
    QString ledger; ///< names the books that `bag` is connected to, or was told to connect to
    VatTable kdvtab;
    int cevap = 0;                ///< answer of the last message box: 0 no, 1 confirmed, 2 closed
    std::array<QString, 88> sira; ///< start-up index table; read by nothing yet

    /// Absolute path of a file of the working folder.
    QString path(QStringView name) const;
    const QString &directory() const { return m_directory; }

    /// The local database files of the working folder.
    LocalFiles files() const { return {db, m_directory}; }

    /// The company connection, opened anew by `reopen` when it was lost.
    HostConnection &company() override;
    HostConnection &openCompany() override;

    /// Tries to open a lost company connection; none in a program without a host.
    std::function<void()> reopen;

    /// A connection counts as open only when its state is exactly 1.
    static bool isOpen(const std::unique_ptr<HostConnection> &connection);

    /// Shows the program's message box. `kind` 1 "TAMAM", 2 "DİKKAT", 3 "UYARI", 4 "ONAY", other:
    /// no caption of its own; `icon` 1 to 3; `buttons` 1 "TAMAM", 2 "EVET" and "HAYIR", other:
    /// none. True when the user confirmed. `cevap` is 0 afterwards.
    bool mesajgoster(const QString &text, int kind, int icon, int buttons);

    void tell(const QString &text, int icon = 1); ///< "TAMAM": done
    void caution(const QString &text);            ///< "DİKKAT": not done, and what to do about it
    void warn(const QString &text);               ///< "UYARI": something failed
    bool ask(const QString &text);                ///< "ONAY": "EVET" or "HAYIR"

    /// Runs what a key or button asked for. An error of a database or printer is shown in the
    /// message box and the form stays usable: nothing that a user types ends the program.
    template <typename Handler>
    void handle(Handler &&handler)
    {
        try {
            handler();
        } catch (const std::exception &error) {
            report(error);
        }
    }

    /// Shows an error as handle() does.
    void report(const std::exception &error);

private:
    QString m_directory;
};
