#pragma once

#include "common/host_connection.h"

#include <QStringList>

#include <memory>
#include <utility>

/// Passes statements on and keeps their texts.
class RecordedHost final : public HostConnection
{
public:
    explicit RecordedHost(std::unique_ptr<HostConnection> host) : m_host(std::move(host)) {}

    int state() const override { return m_host->state(); }
    RecordSet execute(const QString &statement) override
    {
        if (recording)
            statements += statement;
        return m_host->execute(statement);
    }

    bool recording = false;
    QStringList statements;

private:
    std::unique_ptr<HostConnection> m_host;
};
