#include "platform/host/system_probe.h"

#include "platform/host/engine_connector.h"
#include "platform/host/network.h"
#include "platform/host/sql_browser.h"
#include "platform/host/sql_greeting.h"
#include "platform/machine/profile_key_file.h"

namespace {

class SystemTools final : public HostTools
{
public:
    SystemTools(const QString &directory, std::chrono::milliseconds patience)
        : m_connector(directory, m_keys), m_patience(patience)
    {}

    QStringList addresses(const QString &host) override { return network::addresses(host); }

    std::optional<int> instancePort(const QString &host, const QString &instance) override
    {
        return sql_browser::instancePort(host, instance, m_patience);
    }

    PortState port(const QString &address, int port) override
    {
        const auto heard = network::talk(
            address, port, {}, [](const QByteArray &) { return true; }, m_patience);
        if (heard.end == network::Conversation::End::refused)
            return PortState::refused;
        return heard.end == network::Conversation::End::whole ? PortState::open : PortState::silent;
    }

    PortGreeting greet(const QString &address, int port) override
    {
        return sql_greeting::read(network::talk(address, port, sql_greeting::request(),
                                                &sql_greeting::isWhole, m_patience));
    }

    std::unique_ptr<HostConnection> open(const QString &connectionString) override
    {
        return m_connector.open(connectionString);
    }

private:
    ProfileKeyFile m_keys;
    EngineConnector m_connector;
    std::chrono::milliseconds m_patience;
};

} // namespace

void SystemProbe::start(std::function<void(HostTools &)> work)
{
    m_calls.start([directory = m_directory, patience = m_patience, work = std::move(work)] {
        SystemTools tools(directory, patience);
        work(tools);
    });
}
