#pragma once

/// Keeps the program's memory, and with it the passwords, out of what the system
/// writes when the program crashes. What kind of crash and where it was is still written.
void keepMemoryPrivate();
