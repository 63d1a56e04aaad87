#pragma once

#include "common/host_probe.h"
#include "platform/host/bounded_calls.h"

/// Looks at hosts over the network of this machine, with connections of its own: a diagnosis does
/// not disturb what the program is doing.
class SystemProbe final : public HostProbe
{
public:
    /// A server of the shop's own network answers in milliseconds.
    static constexpr std::chrono::milliseconds kPatience{3000};

    /// `directory`: the working folder; `patience`: how long an answer from the network is waited
    /// for, and at the end of the program a look that hangs.
    explicit SystemProbe(const QString &directory, std::chrono::milliseconds patience = kPatience)
        : m_directory(directory), m_patience(patience), m_calls(patience)
    {}

    void start(std::function<void(HostTools &)> work) override;

private:
    QString m_directory;
    std::chrono::milliseconds m_patience;
    BoundedCalls m_calls;
};
