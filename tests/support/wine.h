#pragma once

#include <QDir>
#include <QLibrary>

/// Wine stands in for Windows where the tests of the Windows build run; it differs in places.
inline bool runsUnderWine()
{
    return QLibrary::resolve(QStringLiteral("ntdll"), "wine_get_version") != nullptr;
}

/// The path of a file as ODBC drivers see it: under Wine they are those of the system beneath.
inline QString driverPath(const QString &path)
{
    using UnixName = char *(*)(const wchar_t *);
    const auto unixName = reinterpret_cast<UnixName>(
        QLibrary::resolve(QStringLiteral("kernel32"), "wine_get_unix_file_name"));
    return unixName
               ? QString::fromUtf8(unixName(QDir::toNativeSeparators(path).toStdWString().c_str()))
               : path;
}
