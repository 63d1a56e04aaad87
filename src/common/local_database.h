#pragma once

#include "common/record_set.h"

/// A local single-file database: `data.dbs` (settings) and `Fis.dbs` (receipt layout). Opened for
/// one read or one save and closed at once.
class LocalDatabase
{
public:
    virtual ~LocalDatabase() = default;

    /// Opens the file, creating an empty one when it is missing. Throws HostError.
    virtual void open(const QString &path) = 0;

    /// Throws HostError, also when no file is open.
    virtual RecordSet execute(const QString &statement) = 0;

    /// One statement with `values` for its "?". It is prepared once and kept while the file is
    /// open: for what is written often, in texts that are few. Throws as execute().
    virtual RecordSet executeWith(const QString &statement, const QVariantList &values) = 0;

    virtual void close() = 0;
};

/// The database files of a working folder.
struct LocalFiles
{
    LocalDatabase &db;
    QString directory;

    QString path(QStringView name) const { return directory + u'/' + name.toString(); }
};

/// Closes the database when it leaves the scope, also by an exception.
class OpenDatabase
{
public:
    OpenDatabase(LocalDatabase &db, const QString &path) : m_db(db) { m_db.open(path); }
    OpenDatabase(const LocalFiles &files, QStringView name)
        : OpenDatabase(files.db, files.path(name))
    {}
    ~OpenDatabase() { m_db.close(); }
    OpenDatabase(const OpenDatabase &) = delete;
    OpenDatabase &operator=(const OpenDatabase &) = delete;

    RecordSet execute(const QString &statement) { return m_db.execute(statement); }

private:
    LocalDatabase &m_db;
};
