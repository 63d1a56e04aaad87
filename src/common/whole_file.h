#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file whole or not at all: beside it (with ".yeni" in its name), then in its
/// place. False when it could not.
bool writeWholeFile(const QString &path, const QByteArray &bytes);

/// The same with a text, lines ending as they stand in it; marked as UTF-8, or spreadsheets take it
/// for another code page.
bool writeTextFile(const QString &path, const QString &text);

/// Moves a written file to its place, over an older one. False when it could not.
bool takePlaceOf(const QString &path, const QString &written);
