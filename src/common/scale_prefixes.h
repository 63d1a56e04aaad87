#pragma once

#include "common/key_file.h"

#include <QStringList>

/// The shop's file that says how its weighing scales build their numbers.
inline constexpr QStringView kScaleFile = u"terazi.zev";

/// With what the 13 digits begin that the shop's scales print: key "onekler" of section "terazi";
/// 27, 28 and 29 where it names none.
inline QStringList scalePrefixes(KeyFile &keys, const QString &file)
{
    const QString named =
        keys.read(QStringLiteral("terazi"), QStringLiteral("onekler"), file).trimmed();
    QStringList prefixes;
    for (const QString &prefix :
         (named.isEmpty() ? QStringLiteral("27,28,29") : named).split(u',', Qt::SkipEmptyParts))
        prefixes += prefix.trimmed();
    prefixes.removeAll(QString());
    return prefixes;
}
