#include "monkey/away_host.h"

#include "common/connection_string.h"
#include "common/host_error.h"

#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWait = 10; ///< milliseconds
constexpr int kWaits = 3; ///< until a call times out

[[noreturn]] void lost(const QString &text)
{
    throw HostError(HostError::kConnectionLost, text);
}

bool writesSale(const QString &statement)
{
    return (statement.startsWith(u"INSERT"_s) || statement.startsWith(u"UPDATE"_s)) &&
           !statement.contains(u"STKBARKOD"_s);
}

} // namespace

void AwayHost::timeOut() const
{
    for (int i = 0; i < kWaits; ++i) {
        QThread::msleep(kWait);
        if (waiting)
            waiting();
    }
    lost(u"Süre doldu."_s);
}

class AwayHost::Connection final : public HostConnection
{
public:
    Connection(AwayHost &away, std::unique_ptr<HostConnection> inner)
        : m_away(away), m_inner(std::move(inner))
    {}

    int state() const override { return m_inner ? m_inner->state() : 0; }

    RecordSet execute(const QString &statement) override
    {
        if (!m_inner)
            lost(u"Bağlantı koptu."_s);
        switch (m_away.m_mode) {
        case Mode::there:
            return reach(statement);
        case Mode::locked:
            m_away.timeOut();
        case Mode::silent:
            m_inner.reset();
            m_away.timeOut();
        case Mode::losesAnswers:
            reach(statement);
            [[fallthrough]];
        case Mode::refuses:
        case Mode::loses:
            m_inner.reset();
            lost(u"Bağlantı koptu."_s);
        }
        Q_UNREACHABLE();
    }

private:
    RecordSet reach(const QString &statement)
    {
        RecordSet answer = m_inner->execute(statement);
        if (writesSale(statement))
            ++m_away.m_written;
        return answer;
    }

    AwayHost &m_away;
    std::unique_ptr<HostConnection> m_inner; ///< null once the connection is lost
};

std::unique_ptr<HostConnection> AwayHost::open(const QString &connectionString)
{
    // Only the demo shop is ever reached, whatever server the monkey types into the settings.
    const QString server = parseConnectionString(connectionString).server;
    if (m_mode == Mode::refuses || server.compare(kEmbeddedServer, Qt::CaseInsensitive) != 0)
        lost(u"Sunucu bulunamadı."_s);
    if (m_mode == Mode::silent)
        timeOut();
    return std::make_unique<Connection>(*this, m_host.open(connectionString));
}
