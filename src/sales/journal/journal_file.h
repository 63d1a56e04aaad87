#pragma once

#include "common/clock.h"
#include "common/host_error.h"
#include "common/local_database.h"

#include <functional>
#include <vector>

/// The file of the till's own memory, `kasa.dbs`. The till sells on without it: whatever keeps it
/// from being read or written (damaged, locked, read-only, no room on the disk) is kept as a fault
/// for the cashier, and nothing of it is thrown.
///
/// What is written survives the end of the program at once, however it ends, and a power cut from
/// the next sync() on, or at once when it was wanted so: waiting for the disk at every scan and
/// every statement would be felt on a slow one.
class JournalFile
{
public:
    /// `ledger`: name of the books that the till writes to, as it is at any time. One file serves
    /// them all and tells their sales apart.
    JournalFile(LocalDatabase &db, const Clock &clock, const QString &path, const QString &ledger);
    ~JournalFile();
    JournalFile(const JournalFile &) = delete;
    JournalFile &operator=(const JournalFile &) = delete;

    /// Opens the file, making its tables. A damaged one is set aside under another name.
    void open();
    bool isOpen() const { return m_open; }

    /// Why nothing is kept; empty: all is well.
    const QString &fault() const { return m_fault; }

    /// What the opening did that a user should hear of; empty: nothing.
    const QString &news() const { return m_news; }

    /// Forgets some of what is too old to be kept; true when more is left. Little enough for a till
    /// that is at work.
    bool prune();

    /// Called when the file fails, or is open again.
    std::function<void()> healthChanged;

    /// A statement that writes, and what stands for its "?".
    struct Change
    {
        QString statement;
        QVariantList values;
    };
    using Changes = std::vector<Change>;

    enum class Lasting
    {
        fromNextSync,
        atOnce
    };
    /// Makes the changes in one transaction: all of them or none. False when the file failed.
    bool write(const Changes &changes, Lasting lasting = Lasting::fromNextSync);

    /// No rows when the file fails.
    RecordSet read(const QString &statement);
    /// The same, but throws HostError when the file fails or the statement is out of time: half an
    /// answer is not to be taken for a whole one. No rows while the file is shut.
    RecordSet readWhole(const QString &statement);

    /// Brings what was written to the disk.
    void sync();

    /// A new row.
    using Cells = std::vector<std::pair<QStringView, QVariant>>;
    static Change insertion(QStringView table, const Cells &cells);

    /// A text as a literal of a statement that reads.
    static QString quoted(QString text);

    /// The time as the file keeps it: texts that sort as their moments do.
    static QString momentText(const QDateTime &moment);
    QString now() const { return momentText(m_clock.now()); }
    QDate today() const { return m_clock.now().date(); }

    const QString &ledger() const { return m_ledger; }

    /// Sales that stand in the connected ledger, as a condition.
    QString soldHere() const;

private:
    void openFile();
    void makeTables();
    void tellAged();
    QString agedBy(int days) const;
    bool setAside();
    void fail(const HostError &error);

    LocalDatabase &m_db;
    const Clock &m_clock;
    QString m_path;
    const QString &m_ledger;
    bool m_open = false;
    bool m_written = false; ///< since the last sync
    QString m_fault;
    QString m_news;
};
