#pragma once

#include "platform/demo/demo_text.h"

/// Makes the file of an embedded host database, with types, orders, keys and rules as the server
/// would have them, and fills it in one transaction. `path` must not exist yet. `today`: the day
/// from which dates are counted back. Throws HostError, and demo::TextError for a row that breaks
/// a rule of its table.
void writeEmbeddedFile(const QString &path, const std::vector<demo::Table> &tables, QDate today);
