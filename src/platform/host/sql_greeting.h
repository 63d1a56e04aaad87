#pragma once

#include "common/host_probe.h"
#include "platform/host/network.h"

/// The first words of SQL Server's protocol, spoken before any login: they tell whether a server
/// listens at all, and what it thinks of encryption.
namespace sql_greeting {

QByteArray request();

/// Whether an answer has come to its end, or is none of this protocol.
bool isWhole(const QByteArray &answer);

PortGreeting read(const network::Conversation &conversation);

} // namespace sql_greeting
