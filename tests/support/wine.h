#pragma once

#include <QLibrary>

/// Wine stands in for Windows where the tests of the Windows build run; it differs in places.
inline bool runsUnderWine()
{
    return QLibrary::resolve(QStringLiteral("ntdll"), "wine_get_version") != nullptr;
}
