#pragma once

#include "common/record_set.h"
#include "common/settings.h"

#include <QStringList>

/// A list that shows names of a host table and keeps the matching keys in one text, each key
/// followed by "<1234>": entry i of the list belongs to element i of that text.
struct CodeList
{
    QStringList names;
    QString codes;

    /// Reads all records; `display` and `key` are column names. Throws HostError.
    static CodeList read(RecordSet records, QStringView display, QStringView key);

    /// The entry of that name, of several the one with that key; −1 when the name is not listed.
    int find(const QString &name, const QString &key) const;

    /// The key of entry `index`; "" when there is no such entry.
    QString code(int index) const;
};