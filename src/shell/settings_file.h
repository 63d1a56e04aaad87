#pragma once

#include <QString>

class Program;

/// Makes `data.dbs` with its tables and rows when the working folder has none: the demo shop on the
/// embedded server, an empty settings password. The file appears whole or not at all. Throws
/// HostError when it cannot be made.
void createSettingsFile(Program &program);

/// Adds the tables and rows that a settings file lacks, with empty values: nothing is invented for
/// a shop that had its own. A file that is no database is kept as `data.dbs.bozuk` and made anew
/// the same way. Returns what the user is to be told, "" when all was well. Throws HostError.
QString repairSettingsFile(Program &program);
