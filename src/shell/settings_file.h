#pragma once

#include "common/local_database.h"

/// Makes `data.dbs` with its tables and rows when the working folder has none: the demo shop on the
/// embedded server, an empty settings password. The file appears whole or not at all. Throws
/// HostError when it cannot be made.
void createSettingsFile(const LocalFiles &files);

/// Adds the tables, rows and columns that a settings file lacks, with empty values: nothing is
/// invented for a shop that had its own. A file that is damaged or no database is kept as
/// `data.dbs.bozuk` (`.bozuk2` and so on) and made anew the same way. Returns what the user is to
/// be told, "" when all was well. Throws HostError, also for a file that is only in use.
QString repairSettingsFile(const LocalFiles &files);

/// Removes what saves that were killed have left in the working folder.
void clearUnfinished(const QString &directory);
