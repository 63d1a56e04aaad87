#pragma once

/// Turns the C library from the user's language to that of programs. Call it after the application
/// object, which takes the user's language over. A driver that reads numbers with the C library
/// would end "18.99" at its point on a Turkish machine, and the shop would sell at 18.
void useProgramLocale();
