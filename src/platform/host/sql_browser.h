#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

/// Instances of a SQL Server listen on ports of their own; the browser service of the machine, on
/// UDP port 1434, tells which.
namespace sql_browser {

inline constexpr int kPort = 1434;

/// Asks the machine once. Returns nothing when it does not answer in time or does not know the
/// instance.
std::optional<int> instancePort(const QString &host, const QString &instance,
                                std::chrono::milliseconds patience = std::chrono::seconds(1),
                                int browserPort = kPort);

/// What the service is asked.
QByteArray instanceRequest(const QString &instance);

/// The TCP port in an answer of the service, or nothing.
std::optional<int> portInAnswer(const QByteArray &answer);

} // namespace sql_browser
