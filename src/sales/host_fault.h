#pragma once

#include "common/host_error.h"

class Program;

/// Tells the cashier of a failed host statement: a lost connection in the words the shop knows,
/// anything else as the program shows errors everywhere.
void tellHostFault(Program &program, const HostError &error);

/// The message box for a lost connection.
void tellConnectionLost(Program &program);
