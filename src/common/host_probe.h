#pragma once

#include "common/host_connection.h"

#include <QStringList>

#include <functional>
#include <optional>

/// What a look at a server's port found.
enum class PortState
{
    open,
    refused, ///< the machine is there, nobody listens
    silent   ///< no answer: switched off, or a firewall drops what is sent to it
};

/// What listens on a port, as its answer to the first words of SQL Server's protocol shows.
struct PortGreeting
{
    enum class Kind
    {
        server,
        foreign, ///< answers in another protocol
        closed,  ///< hangs up
        half,    ///< begins an answer and does not end it
        silent
    };
    enum class Encryption
    {
        none,     ///< the server cannot
        possible, ///< it does when the program wants to
        required
    };

    Kind kind = Kind::silent;
    Encryption encryption = Encryption::none;
};

/// What the diagnosis of a connection asks of the machine and the network. Every call may take as
/// long as the network likes; one thread at a time.
class HostTools
{
public:
    virtual ~HostTools() = default;

    /// The addresses of a machine's name; none when nobody knows it.
    virtual QStringList addresses(const QString &host) = 0;

    /// The port of an instance, from the browser service of its machine.
    virtual std::optional<int> instancePort(const QString &host, const QString &instance) = 0;

    virtual PortState port(const QString &address, int port) = 0;
    virtual PortGreeting greet(const QString &address, int port) = 0;

    /// A connection as the program opens its own. Throws HostError.
    virtual std::unique_ptr<HostConnection> open(const QString &connectionString) = 0;
};

/// Lets a diagnosis work beside the windows.
class HostProbe
{
public:
    virtual ~HostProbe() = default;

    /// Runs the work on a thread of its own, with tools that belong to that thread. Work that hangs
    /// in the network goes on alone: it must own all it touches and may not throw.
    virtual void start(std::function<void(HostTools &)> work) = 0;
};
