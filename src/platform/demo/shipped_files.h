#pragma once

#include <QString>

/// Copies what is shipped inside the program (label layouts and their pictures, sounds) into the
/// working folder; what is there already stays. Throws std::runtime_error, in words for the user,
/// when the folder cannot be written.
void copyShippedFiles(const QString &directory);
