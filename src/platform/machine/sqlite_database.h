#pragma once

#include "common/local_database.h"

#include <memory>

class SqliteFile;

/// The local databases as SQLite files. A statement waits at most 2 seconds for another program
/// that is writing the same file.
class SqliteDatabase final : public LocalDatabase
{
public:
    SqliteDatabase();
    ~SqliteDatabase() override;

    void open(const QString &path) override;
    RecordSet execute(const QString &statement) override;
    void close() override;

private:
    std::unique_ptr<SqliteFile> m_file;
};
