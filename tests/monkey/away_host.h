#pragma once

#include "common/host_connection.h"

/// A host that goes away and comes back. Its time-outs are short: the forms are to be tried, not
/// the patience.
class AwayHost final : public HostConnector
{
public:
    enum class Mode
    {
        there,
        refuses,     ///< nothing listens: no connection opens, open ones are lost
        silent,      ///< nothing answers: every call ends with a time-out
        locked,      ///< statements time out, the connection lives
        loses,       ///< the connection is lost before the statement arrives
        losesAnswers ///< the statement is carried out, its answer lost with the connection
    };
    static constexpr int kModes = 6;

    explicit AwayHost(HostConnector &host) : m_host(host) {}

    std::unique_ptr<HostConnection> open(const QString &connectionString) override;

    void setMode(Mode mode) { m_mode = mode; }
    Mode mode() const { return m_mode; }

    /// Statements of sales that changed the ledger, their answers lost or not.
    int written() const { return m_written; }

private:
    class Connection;

    [[noreturn]] void timeOut() const;

    HostConnector &m_host;
    Mode m_mode = Mode::there;
    int m_written = 0;
};
