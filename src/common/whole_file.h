#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file whole or not at all: beside it (with ".yeni" in its name), then in its
/// place. False when it could not.
bool writeWholeFile(const QString &path, const QByteArray &bytes);
