#pragma once

#include <QString>

/// Makes this machine one like those of the shops for the test program: a Turkish one, without a
/// display. Call it before the application object.
void useTestMachine();

/// The file or folder `path` of the source tree ("/demo/ayar"): golden files, cases, the demo shop.
QString sourcePath(const char *path);
