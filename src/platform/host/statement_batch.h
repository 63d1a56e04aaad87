#pragma once

#include <QStringList>

#include <optional>

/// Several selects as one text for one round trip; nothing when one of them might not end where it
/// ends: values stand in statements as typed, and an odd quote or a comment sign in one must not
/// change the meaning of the next.
std::optional<QString> statementBatch(const QStringList &statements);
