#pragma once

#include "common/local_database.h"

#include <chrono>
#include <memory>

class SqliteFile;

/// The local databases as SQLite files. A statement waits for another program that is writing the
/// same file, but not long.
class SqliteDatabase final : public LocalDatabase
{
public:
    explicit SqliteDatabase(std::chrono::milliseconds patience = std::chrono::seconds(2));
    ~SqliteDatabase() override;

    void open(const QString &path) override;
    RecordSet execute(const QString &statement) override;
    RecordSet executeWith(const QString &statement, const QVariantList &values) override;
    void close() override;

private:
    SqliteFile &opened(const QString &statement) const;

    std::chrono::milliseconds m_patience;
    std::unique_ptr<SqliteFile> m_file;
};
