#pragma once

class Program;

/// Makes `data.dbs` with its tables and rows when the working folder has none: the demo shop on the
/// embedded server, an empty settings password. The file appears whole or not at all. Throws
/// HostError when it cannot be made.
void createSettingsFile(Program &program);
