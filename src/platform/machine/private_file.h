#pragma once

#include <QString>

/// Files that hold passwords are for their owner alone; on Windows for the system and its
/// administrators too, who could take them anyhow.

/// Takes everybody else's rights off a file, making it empty when there is none. False when the
/// system refused.
bool makePrivate(const QString &path);

/// Readies the journal of a database file, so that it is as private as the file. True when the
/// journal must be emptied after use instead of being removed, because a new one would have the
/// rights of the folder.
bool keepsPrivateJournal(const QString &database);
