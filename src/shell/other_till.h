#pragma once

#include "common/local_database.h"
#include "common/settings.h"

#include <QStringList>

class FileBatch;

/// The working folder of another till, whose settings and layouts this one can take over. Nothing
/// is written there.
struct OtherTill
{
    QString directory;
    Settings settings;
    QStringList files; ///< below the folder: receipt layout, label layouts, pictures, sheets

    int layouts() const;
    int pictures() const;
    bool hasReceipt() const;

    /// Looks at a folder, or at the folder of a file. Throws std::runtime_error, in words for the
    /// user.
    static OtherTill read(const LocalFiles &own, const QString &path);

    /// Brings its settings file, copied, into a batch. Throws std::runtime_error or HostError.
    void takeSettings(LocalDatabase &db, FileBatch &batch) const;

    /// The same for all its other files.
    void takeFiles(LocalDatabase &db, FileBatch &batch) const;
};

/// Copies a database file, with the journal that belongs to it, so that nobody else may read the
/// copy. Throws std::runtime_error or HostError.
void copyDatabase(LocalDatabase &db, const QString &source, QStringView name, FileBatch &batch);
