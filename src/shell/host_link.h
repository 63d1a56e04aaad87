#pragma once

#include "common/program.h"
#include "common/settings.h"

#include <QElapsedTimer>
#include <QObject>

/// Opens the two program-wide connections and loads the VAT classes.
class HostLink : public QObject
{
    Q_OBJECT

public:
    explicit HostLink(Program &program, QObject *parent = nullptr);

    /// Reads the server settings; what cannot be read stays as it was.
    void ayaroku();

    /// Opens the master connection, loads the VAT classes and goes on with sqlbaglan2(); asks for
    /// the connection dialog when the master connection does not open. Blocks for 5 seconds per
    /// connection at most.
    void sqlbaglan();

    /// Opens the company connection, sets its date format and asks for the stock list.
    void sqlbaglan2();

    /// Opens a lost company connection anew, in place of the old one; not within ten seconds of a
    /// try that failed: an unreachable server must not stop every scan for five.
    void reopenCompany();

    bool masterOpen() const { return Program::isOpen(m_program.anabag); }
    const Settings::Server &server() const { return m_settings.server; }

    /// Why the last connection did not open, in the engine's words; "" when it did.
    QString failure() const;

Q_SIGNALS:
    void connecting(const QString &server); ///< an attempt begins that may block for seconds
    void connected();                       ///< it ended, open or not
    void connectionDialogWanted();
    void stockListWanted();

private:
    std::unique_ptr<HostConnection> open(const QString &database);
    bool openCompany();
    void tellConnecting();
    void loadVatClasses();

    Program &m_program;
    Settings m_settings; ///< the tables server and instan
    std::optional<HostError> m_failure;
    QElapsedTimer m_sinceFailure; ///< since a try failed
};
