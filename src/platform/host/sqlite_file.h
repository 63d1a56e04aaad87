#pragma once

#include "common/record_set.h"

#include <chrono>
#include <memory>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

/// One open SQLite file. Both the local databases and the embedded host engine stand on it.
class SqliteFile
{
public:
    enum class Mode
    {
        mustExist,
        createWhenMissing
    };

    /// `limit`: how long one statement may take, waiting for other programs included.
    /// Throws HostError kConnectionLost for a file that cannot be opened or is no database.
    SqliteFile(const QString &path, Mode mode, std::chrono::milliseconds limit);
    ~SqliteFile();
    SqliteFile(const SqliteFile &) = delete;
    SqliteFile &operator=(const SqliteFile &) = delete;

    /// Runs a statement, or several separated by ";": none of them when one cannot be read, else
    /// all, and the rows are those of the first that returns any. Number, money and date columns
    /// give values of their declared type. Throws HostError.
    RecordSet execute(const QString &statement);

    /// One statement with `values` (numbers, texts, none) for its "?"; prepared once and kept.
    /// Throws HostError.
    RecordSet executeWith(const QString &statement, const QVariantList &values);

    /// "SQLite 3.40.1"
    static QString version();

    sqlite3 *handle() const { return m_database; }

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    std::vector<Statement> prepare(const QString &statement);
    RecordSet run(sqlite3_stmt *prepared, const QString &statement);
    [[noreturn]] void fail(int code, const QString &statement);
    void openFile(const QString &path, Mode mode);
    void startWatch();
    bool overdue() const;

    sqlite3 *m_database = nullptr;
    std::chrono::milliseconds m_limit;
    std::chrono::steady_clock::time_point m_deadline;
    std::unordered_map<QString, Statement> m_kept;
};
